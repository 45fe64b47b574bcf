#pragma once

#include <cstdint>

namespace lmk {

// An attribute byte: ink in bits 0 to 2 (pixels that are set), paper in bits 3 to 5, bright in bit 6. Bit 7, which lets
// the Spectrum flash, means nothing here. Inks and papers are the colours 0 to 7.

constexpr std::int16_t Ink(std::int32_t attribute) {
    return static_cast<std::int16_t>(attribute & 7);
}
constexpr std::int16_t Paper(std::int32_t attribute) {
    return static_cast<std::int16_t>(attribute >> 3 & 7);
}
constexpr bool IsBright(std::int32_t attribute) {
    return (attribute & 64) != 0;
}
constexpr std::int16_t MakeAttribute(std::int32_t ink, std::int32_t paper, bool bright) {
    return static_cast<std::int16_t>((bright ? 64 : 0) + paper * 8 + ink);
}
/// The entry of a palette of 16, whose second half is bright.
constexpr int InkColour(std::int32_t attribute) {
    return Ink(attribute) + (IsBright(attribute) ? 8 : 0);
}
constexpr int PaperColour(std::int32_t attribute) {
    return Paper(attribute) + (IsBright(attribute) ? 8 : 0);
}

} // namespace lmk
