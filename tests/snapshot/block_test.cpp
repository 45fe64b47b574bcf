#include "snapshot/block.h"

#include <gtest/gtest.h>

#include <random>
#include <vector>

namespace lumrake {
namespace {

TEST(Block, CoversThePixelsWhoseCornersLieUnderTheNet) {
    struct Case {
        NetRect net;
        std::int32_t z;
        PixelBlock block;
    };
    // clang-format off
    const Case cases[] = {
        {{-16, -32, 48, 16}, 16, {-1, -2, 3, 1}},
        {{  5,   6,  1,  1},  1, { 5,  6, 1, 1}},
        {{  8,   8,  1,  1},  4, { 2,  2, 1, 0}}, // a press without a move: no row
        {{ 40,  16, 57, 49}, 16, { 2,  1, 4, 3}}, // not on pixel corners: X 40, 56, 72, 88, Y 16, 32, 48
        {{-9000, 0, 18000, 9000}, 1, {-9000, 0, kMaxBlockSide, kMaxBlockSide}},
    };
    // clang-format on
    for (const Case& c : cases) {
        EXPECT_EQ(BlockUnder(c.net, c.z), c.block) << c.net.Left << "," << c.net.Width << " factor " << c.z;
    }
}

/// The law: a block operation does what one ReadPixel or WritePixel for each pixel does, top row first,
/// wherever the block lies, and touches nothing else.
TEST(Block, DoesWhatThePixelRoutinesDo) {
    std::mt19937 random(7);
    const auto from = [&random](int least, int most) {
        return std::uniform_int_distribution<std::int32_t>(least, most)(random);
    };
    const auto small = [&from](int least, int most) { return static_cast<std::int16_t>(from(least, most)); };
    for (int round = 0; round < 3000; ++round) {
        std::vector<std::uint8_t> memory(static_cast<std::size_t>(from(1, 700)));
        for (std::uint8_t& byte : memory) {
            byte = static_cast<std::uint8_t>(random());
        }
        ViewNumbers view; // small, so that its edges and the end of the file are met often
        view.iMode = small(0, 4);
        view.iWidth = static_cast<std::int16_t>(view.iMode == kScreen ? 256 : 8 * from(1, 6));
        view.iLines = view.iMode == kScreen ? std::int16_t{192}
                      : view.iMode == kText ? std::int16_t{16}
                                            : small(1, 20);
        view.iColumns = view.iMode == kScreen || view.iMode == kText ? std::int16_t{1} : small(1, 4);
        view.lOffset = from(0, static_cast<int>(memory.size()) - 1);
        view.iZoomFactor = static_cast<std::int16_t>(1 << from(0, 4));
        view.iUpsideDown = small(0, 1);
        const PixelBlock block{from(-8, view.PictureWidth() + 8), from(-8, view.iLines + 8), from(-8, 48),
                               from(-8, 32)};

        std::vector<std::uint8_t> cleared = memory, dropped = memory;
        std::string sLifted, sDrop;
        for (std::int32_t y = 0; y < block.iHeight; ++y) {
            for (std::int32_t x = 0; x < block.iWidth; ++x) {
                const auto X = static_cast<float>((block.iLeft + x) * view.iZoomFactor);
                const auto Y = static_cast<float>((block.iTop + y) * view.iZoomFactor);
                sDrop += from(0, 1) == 0 ? '0' : '1';
                sLifted += static_cast<char>('0' + ReadPixel(memory, view, X, Y));
                WritePixel(cleared, view, X, Y, 0);
                WritePixel(dropped, view, X, Y, sDrop.back() == '1' ? 1 : 0);
            }
        }
        EXPECT_EQ(LiftBlock(memory, view, block), sLifted);
        std::vector<std::uint8_t> result = memory;
        ClearBlock(result, view, block);
        EXPECT_EQ(result, cleared);
        DropBlock(memory, view, block, sDrop);
        EXPECT_EQ(memory, dropped);
        ASSERT_FALSE(HasFailure()) << "round " << round << ", mode " << view.iMode;
    }
}

} // namespace
} // namespace lumrake
