#include "snapshot/rules/net.h"

#include "base/numbers.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>

namespace lumrake {

namespace {

/// Far more than mouse and zoom can reach, and few enough that sums of two places never overflow.
constexpr std::int64_t kFarthest = std::int64_t{1} << 29;

std::int32_t Held(std::int64_t place) {
    return static_cast<std::int32_t>(std::clamp(place, -kFarthest, kFarthest));
}

} // namespace

std::int32_t SnapToPixel(double at, std::int32_t iZoomFactor) {
    const auto farthest = static_cast<double>(kFarthest);
    const auto whole = static_cast<std::int32_t>(std::floor(std::clamp(at, -farthest, farthest)));
    return FloorDiv(whole, iZoomFactor) * iZoomFactor;
}

NetRect ScaledNet(const NetRect& net, std::int32_t iOldFactor, std::int32_t iNewFactor) {
    // Factors are powers of two, so one of the two divides the other.
    const auto scaled = [=](std::int32_t place) {
        return iNewFactor >= iOldFactor ? Held(std::int64_t{place} * (iNewFactor / iOldFactor))
                                        : FloorDiv(place, iOldFactor / iNewFactor);
    };
    return {scaled(net.Left), scaled(net.Top), scaled(net.Width), scaled(net.Height)};
}

NetRect FrameOf(const NetRect& block) {
    return {block.Left - 1, block.Top - 1, block.Width + 2, block.Height + 2};
}

std::array<NetRect, 4> BorderOf(const NetRect& net) {
    const std::int32_t width = std::max(net.Width, 1), height = std::max(net.Height, 1);
    const std::int32_t between = std::max(height - 2, 0); // rows between the top and the bottom line
    return {NetRect{net.Left, net.Top, width, 1},
            NetRect{net.Left, net.Top + height - 1, width, height > 1 ? 1 : 0},
            NetRect{net.Left, net.Top + 1, 1, between},
            NetRect{net.Left + width - 1, net.Top + 1, width > 1 ? 1 : 0, between}};
}

NetRect NetDrag::Place() const {
    return {std::min(iNetX, iNetX + iNetWidth), std::min(iNetY, iNetY + iNetHeight), std::abs(iNetWidth),
            std::abs(iNetHeight)};
}

Net Net::Started(double X, double Y, std::int32_t iZoomFactor) {
    const NetDrag drag{SnapToPixel(X, iZoomFactor), SnapToPixel(Y, iZoomFactor), 1, 1};
    return {drag.Place(), drag, true};
}

Net Net::Dragged(double X, double Y, std::int32_t iZoomFactor) const {
    const NetDrag drag{iNetX, iNetY, SnapToPixel(X - iNetX, iZoomFactor),
                       SnapToPixel(Y - iNetY, iZoomFactor)};
    return {drag.Place(), drag, Visible, Dotted, Frame};
}

} // namespace lumrake
