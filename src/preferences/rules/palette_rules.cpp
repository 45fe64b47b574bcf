#include "preferences/rules/palette_rules.h"

#include "base/numbers.h"

#include <algorithm>

namespace lumrake {

ColourParts PartsOf(Colour colour) {
    return {colour & 0xFF, (colour & 0xFF00) / 0x100, (colour & 0xFF0000) / 0x10000};
}

Colour ColourOf(const ColourParts& parts) {
    const auto held = [](std::int32_t component) { return std::clamp(component, 0, 255); };
    return held(parts[0]) + 256 * held(parts[1]) + 65536 * held(parts[2]);
}

void CopyHalf(PaletteColours& colours, std::size_t from, std::size_t to) {
    std::copy_n(colours.begin() + static_cast<std::ptrdiff_t>(from), 8,
                colours.begin() + static_cast<std::ptrdiff_t>(to));
}

void SpreadPalette(PaletteColours& colours, std::size_t iStart, std::size_t iEnd) {
    const auto steps = static_cast<float>(iEnd - iStart);
    const ColourParts first = PartsOf(colours[iStart]), last = PartsOf(colours[iEnd]);
    for (std::size_t i = iStart + 1; i < iEnd; ++i) {
        ColourParts parts = first;
        for (std::size_t part = 0; part < parts.size(); ++part) {
            const auto step = HeldTo<std::int32_t>(static_cast<float>(last[part] - first[part]) / steps);
            parts[part] += static_cast<std::int32_t>(i - iStart) * step;
        }
        colours[i] = ColourOf(parts);
    }
}

} // namespace lumrake
