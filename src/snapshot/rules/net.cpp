#include "snapshot/rules/net.h"

#include "base/numbers.h"

#include <algorithm>
#include <cmath>

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

NetRect NetFromDrag(std::int32_t iNetX, std::int32_t iNetY, std::int32_t iNetWidth, std::int32_t iNetHeight) {
    NetRect net{iNetX, iNetY, iNetWidth, iNetHeight};
    if (iNetWidth < 0) {
        net.Left = iNetX + iNetWidth;
        net.Width = -iNetWidth;
    }
    if (iNetHeight < 0) {
        net.Top = iNetY + iNetHeight;
        net.Height = -iNetHeight;
    }
    return net;
}

NetRect ScaledNet(const NetRect& net, std::int32_t iOldFactor, std::int32_t iNewFactor) {
    // Factors are powers of two, so one of the two divides the other.
    const auto scaled = [=](std::int32_t place) {
        return iNewFactor >= iOldFactor ? Held(std::int64_t{place} * (iNewFactor / iOldFactor))
                                        : FloorDiv(place, iOldFactor / iNewFactor);
    };
    return {scaled(net.Left), scaled(net.Top), scaled(net.Width), scaled(net.Height)};
}

std::int32_t HungAt(double mouse, std::int32_t size, std::int32_t iZoomFactor) {
    return SnapToPixel(mouse - size / 2.0, iZoomFactor);
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

void Net::Start(double X, double Y, std::int32_t iZoomFactor) {
    iNetWidth = iNetHeight = 1;
    iNetX = SnapToPixel(X, iZoomFactor);
    iNetY = SnapToPixel(Y, iZoomFactor);
    SetPosition();
    Visible = true;
    Dotted = Frame = false;
}

void Net::DragTo(double X, double Y, std::int32_t iZoomFactor) {
    iNetWidth = SnapToPixel(X - iNetX, iZoomFactor);
    iNetHeight = SnapToPixel(Y - iNetY, iZoomFactor);
    SetPosition();
}

void Net::FrameBlock(const NetRect& block) {
    Move(FrameOf(block));
    Visible = Frame = true;
}

} // namespace lumrake
