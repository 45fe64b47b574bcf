#include "snapshot/addressing.h"

#include <gtest/gtest.h>

#include <limits>
#include <random>
#include <vector>

namespace lumrake {
namespace {

ViewNumbers View(std::int32_t lOffset, int width, int lines, int columns, int mode, int zoom = 1,
                 int flip = 0) {
    const auto narrow = [](int value) { return static_cast<std::int16_t>(value); };
    return {1 << 20,         lOffset,      narrow(width), narrow(lines),
            narrow(columns), narrow(mode), narrow(zoom),  narrow(lmk::ZoomIndexToFactor(zoom)),
            narrow(flip)};
}

TEST(LocatePixel, FollowsTheLayoutOfTheMode) {
    struct Case {
        const char* what;
        ViewNumbers view;
        float X, Y;
        std::int64_t address;
        int bit;
    };
    // clang-format off
    const Case cases[] = {
        {"graphics",                View(100, 16, 8, 2, kGraphics),        21, 3,     122,  2},
        {"graphics at 4:1",         View(100, 16, 8, 2, kGraphics, 3),     87, 15,    122,  2},
        {"line masks",              View(100, 16, 8, 2, kLineMasks),       21, 3,     144,  2},
        {"byte masks",              View(100, 16, 8, 2, kByteMasks),       21, 3,     144,  2},
        {"screen",                  View(0, 256, 192, 1, kScreen),         100, 70,   3596, 3},
        {"text",                    View(1000, 32, 16, 1, kText),          13, 10,    1042, 2},
        {"flip, top",               View(0, 16, 8, 1, kGraphics, 1, 1),    9, 0,      15,   6},
        {"flip at 2:1, Y 1",        View(0, 8, 4, 1, kGraphics, 2, 1),     0, 1,      3,    7},
        {"far corner",              View(0, 256, 512, 16, kByteMasks, 5),  65535, 8191, 524286, 0},
        {"offset at the top end",   View(2147483646, 256, 512, 16, kGraphics), 4095, 511, 2147483646LL + 262143, 0},
    };
    // clang-format on
    for (const Case& one : cases) {
        const auto at = LocatePixel(one.view, one.X, one.Y);
        ASSERT_TRUE(at.has_value()) << one.what;
        EXPECT_EQ(at->lAddress, one.address) << one.what;
        EXPECT_EQ(at->iBit, one.bit) << one.what;
    }
}

TEST(LocatePixel, FindsNothingOutsideThePicture) {
    const ViewNumbers view = View(50, 16, 8, 2, kGraphics, 2);
    const float inf = std::numeric_limits<float>::infinity(), nan = std::numeric_limits<float>::quiet_NaN();
    for (const float out : {-1.0F, -0.25F, 64.0F, 1e30F, inf, -inf, nan}) {
        EXPECT_FALSE(LocatePixel(view, out, 0).has_value()) << out;
        EXPECT_FALSE(LocatePixel(view, 0, out).has_value()) << out;
    }
    EXPECT_FALSE(LocatePixel(view, 0, 16).has_value());
    EXPECT_TRUE(LocatePixel(view, 63.75F, 15.75F).has_value());
}

TEST(Pixels, EndWithTheMemory) {
    std::vector<std::uint8_t> memory(10, 0);
    const ViewNumbers view = View(9, 16, 8, 1, kGraphics); // one byte of the picture is backed
    EXPECT_TRUE(WritePixel(memory, view, 7, 0, 1));
    EXPECT_FALSE(WritePixel(memory, view, 8, 0, 1));
    EXPECT_FALSE(WritePixel(memory, view, 0, 1, 1));
    EXPECT_EQ(memory[9], 1);
    EXPECT_EQ(ReadPixel(memory, view, 7, 0), 1);
    EXPECT_EQ(ReadPixel(memory, view, 8, 0), 0);
    EXPECT_FALSE(WritePixel(memory, View(-9, 16, 8, 1, kGraphics), 0, 0, 1)) << "before the memory";
}

/// What is shown at a pixel must be the bit that would be written there.
TEST(Pixels, AreThoseOfTheDisplay) {
    std::mt19937 random(7);
    const auto pick = [&random](int least, int most) {
        return std::uniform_int_distribution<int>(least, most)(random);
    };
    std::vector<std::uint8_t> memory(20000);
    for (auto& byte : memory) {
        byte = static_cast<std::uint8_t>(pick(0, 255));
    }
    lmk::DeviceContext context;
    for (int round = 0; round < 2000; ++round) {
        const int mode = pick(0, 4);
        const int width = mode == kScreen ? 256 : 8 * pick(1, 32);
        const int lines = mode == kScreen ? 192 : mode == kText ? 8 * pick(1, 64) : pick(1, 512);
        const int columns = mode == kScreen || mode == kText ? 1 : pick(1, 16);
        ViewNumbers view = View(pick(0, 19999), width, lines, columns, mode, pick(1, 5), pick(0, 1));
        view.lFileLength = pick(view.lOffset + 1, 20000);
        lmk::zxShowMem(&context, memory.data(), view.lOffset, view.lFileLength, width, lines, columns,
                       view.iUpsideDown * 128 | view.iZoom * 16 | mode, 7, nullptr);
        const std::span<const std::uint8_t> file(memory.data(), static_cast<std::size_t>(view.lFileLength));
        for (int i = 0; i < 40; ++i) {
            const int px = pick(0, width * columns - 1), row = pick(0, lines - 1), z = view.iZoomFactor;
            const auto X = static_cast<float>(px * z + pick(0, z - 1));
            const auto Y = static_cast<float>(row * z + pick(0, z - 1));
            ASSERT_EQ(ReadPixel(file, view, X, Y), context.Picture().PixelAt(px, row) ? 1 : 0)
                << "mode " << mode << ' ' << width << 'x' << lines << 'x' << columns << " at " << px << ','
                << row;
        }
    }
}

} // namespace
} // namespace lumrake
