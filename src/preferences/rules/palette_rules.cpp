#include "preferences/rules/palette_rules.h"

#include "base/numbers.h"

#include <algorithm>

namespace lumrake {

ColourParts PartsOf(Colour colour) {
    return {colour & 0xFF, (colour & 0xFF00) / 0x100, (colour & 0xFF0000) / 0x10000};
}

Colour ColourOf(const ColourParts& parts) {
    const auto held = [](std::int32_t component) { return std::clamp(component, 0, 255); };
    return held(parts.red) + 256 * held(parts.green) + 65536 * held(parts.blue);
}

void CopyHalf(PaletteColours& colours, std::size_t from, std::size_t to) {
    std::copy_n(colours.begin() + static_cast<std::ptrdiff_t>(from), 8,
                colours.begin() + static_cast<std::ptrdiff_t>(to));
}

void SpreadPalette(PaletteColours& colours, std::size_t iStart, std::size_t iEnd) {
    const auto steps = static_cast<float>(iEnd - iStart);
    const ColourParts first = PartsOf(colours[iStart]);
    const ColourParts last = PartsOf(colours[iEnd]);
    const auto stepOf = [steps](std::int32_t from, std::int32_t to) {
        return HeldTo<std::int32_t>(static_cast<float>(to - from) / steps);
    };
    const ColourParts step{stepOf(first.red, last.red), stepOf(first.green, last.green),
                           stepOf(first.blue, last.blue)};
    for (std::size_t i = 1; i < iEnd - iStart; ++i) {
        const auto n = static_cast<std::int32_t>(i);
        colours[iStart + i] =
            ColourOf({first.red + n * step.red, first.green + n * step.green, first.blue + n * step.blue});
    }
}

} // namespace lumrake
