#pragma once

#include <cstdint>

namespace lumrake {

/// Sizes of windows and dialogs are kept in twips (1/1440 inch). The screen is taken to have 96 logical
/// pixels to the inch whatever its device pixel ratio, so a pixel is 15 twips in both directions.
inline constexpr std::int32_t kTwipsPerPixel = 15;

constexpr std::int32_t TwipsFromPixels(std::int32_t pixels) {
    return pixels * kTwipsPerPixel;
}

/// Whole pixels, rounded to the nearest so that widths given in twips do not lose a pixel.
constexpr std::int32_t PixelsFromTwips(std::int32_t twips) {
    return twips >= 0 ? (twips + kTwipsPerPixel / 2) / kTwipsPerPixel
                      : -((-twips + kTwipsPerPixel / 2) / kTwipsPerPixel);
}

} // namespace lumrake
