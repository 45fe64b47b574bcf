#pragma once

#include "base/numbers.h"
#include "base/twips.h"

#include <array>
#include <cstdint>

namespace lumrake {

/// Sizes and places in the player's window, in logical screen pixels.
struct PlayerLayout {
    std::int32_t windowWidth = 0, windowHeight = 0; ///< outer size, frame and caption included
    std::int32_t pictureLeft = 0;
    std::int32_t controlTop = 0;
    std::array<std::int32_t, 5> controlLeft{};
};

inline constexpr std::int32_t kPictureTop = 8;
inline constexpr std::int32_t kPictureBorder = 2;
inline constexpr std::int32_t kWidestNarrow =
    153; ///< pictures up to here stand in a window of one fixed width
inline constexpr std::int32_t kNarrowWindow = PixelsFromTwips(2645);

/// A narrow picture is centred over the row of buttons; under a wide one the buttons are centred.
/// `pictureWidth` and `pictureHeight` are the sizes of picImage with its border, `frameWidth` what the outer
/// width of the window has more than the inner one.
constexpr PlayerLayout LayoutOf(std::int32_t pictureWidth, std::int32_t pictureHeight,
                                std::int32_t frameWidth) {
    constexpr std::array<std::int32_t, 5> kFromFirst = {0, 24, 48, 72, 104};
    const bool narrow = pictureWidth <= kWidestNarrow;
    PlayerLayout layout;
    layout.windowWidth = narrow ? kNarrowWindow : pictureWidth + 22;
    layout.windowHeight = pictureHeight + 70;
    const std::int32_t innerWidth = layout.windowWidth - frameWidth;
    layout.pictureLeft = narrow ? FloorDiv(innerWidth - pictureWidth, 2) : 8;
    layout.controlTop = pictureHeight + 17;
    const std::int32_t first = narrow ? 8 : FloorDiv(innerWidth, 2) - 77;
    for (std::size_t i = 0; i < kFromFirst.size(); ++i) {
        layout.controlLeft[i] = first + kFromFirst[i];
    }
    return layout;
}

} // namespace lumrake
