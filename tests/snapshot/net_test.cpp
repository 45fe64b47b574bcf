#include "snapshot/net.h"

#include <gtest/gtest.h>

#include <map>
#include <utility>

namespace lumrake {
namespace {

TEST(Net, DragSnapsToPicturePixels) {
    struct Case {
        std::int32_t z;
        double pressX, pressY, toX, toY;
        NetRect net;
    };
    // clang-format off
    const Case cases[] = {
        {4,  10, 10,  21,  10, {  8,   8, 12,  0}}, // the pixel under the mouse is not taken in to the right
        {4,  10, 10,   7,   7, {  4,   4,  4,  4}}, // to the left and upwards it is
        {4,  10, 10,   8,   8, {  8,   8,  0,  0}},
        {1,   5,  5,   6,   7, {  5,   5,  1,  2}},
        {8,  -3, -9,  -1, -25, { -8, -32,  0, 16}}, // rounding goes down outside the picture too
        {16, 65535, 8191, -1, -1, {-16, -16, 65536, 8192}},
    };
    // clang-format on
    for (const Case& c : cases) {
        const std::int32_t x = SnapToPixel(c.pressX, c.z), y = SnapToPixel(c.pressY, c.z);
        const NetRect net = NetFromDrag(x, y, SnapToPixel(c.toX - x, c.z), SnapToPixel(c.toY - y, c.z));
        EXPECT_EQ(net, c.net) << "factor " << c.z << ", to " << c.toX << "," << c.toY;
    }
}

TEST(Net, KeepsItsPixelsThroughEveryZoom) {
    const NetRect drawn{-3, 5, 200, 1};
    const std::int32_t factors[] = {1, 16, 2, 8, 4, 1};
    NetRect net = drawn;
    for (int i = 1; i < 6; ++i) {
        net = ScaledNet(net, factors[i - 1], factors[i]);
        EXPECT_EQ(net, (NetRect{-3 * factors[i], 5 * factors[i], 200 * factors[i], factors[i]}));
    }
    EXPECT_EQ(ScaledNet({-5, 5, 1, 17}, 16, 1), (NetRect{-1, 0, 0, 1})); // no whole pixels: rounded down
}

TEST(Net, BlockHangsCentredInsideAFrame) {
    EXPECT_EQ(HungAt(10, 3, 1), 8);    // floor(8.5)
    EXPECT_EQ(HungAt(100, 24, 8), 88); // exactly on a corner
    EXPECT_EQ(HungAt(103, 24, 8), 88);
    EXPECT_EQ(HungAt(0, 8, 8), -8); // floor(-4 / 8)
    EXPECT_EQ(FrameOf({88, -8, 24, 8}), (NetRect{87, -9, 26, 10}));
}

/// A pixel inverted twice would be invisible.
TEST(Net, BorderTouchesEveryPixelOnce) {
    for (std::int32_t width = 0; width < 6; ++width) {
        for (std::int32_t height = 0; height < 6; ++height) {
            std::map<std::pair<int, int>, int> touched;
            for (const NetRect& line : BorderOf({-2, 3, width, height})) {
                for (int y = line.Top; y < line.Top + line.Height; ++y) {
                    for (int x = line.Left; x < line.Left + line.Width; ++x) {
                        ++touched[{x + 2, y - 3}];
                    }
                }
            }
            const int w = std::max(width, 1), h = std::max(height, 1);
            for (int y = -1; y <= h; ++y) {
                for (int x = -1; x <= w; ++x) {
                    const bool inside = x >= 0 && y >= 0 && x < w && y < h;
                    const bool border = inside && (x == 0 || y == 0 || x == w - 1 || y == h - 1);
                    const auto found = touched.find({x, y});
                    EXPECT_EQ(found == touched.end() ? 0 : found->second, border ? 1 : 0)
                        << width << "x" << height << " at " << x << "," << y;
                }
            }
        }
    }
}

} // namespace
} // namespace lumrake
