/// One pixel, a block of pixels and whole rows of them, in the bytes of a file.
#include "snapshot/rules/document.h"
#include "snapshot/rules/raw_export.h"

#include <gtest/gtest.h>

#include <limits>
#include <random>
#include <vector>

namespace lumrake {
namespace {

using Bytes = std::vector<std::uint8_t>;

ViewNumbers View(std::int32_t lOffset, int width, int lines, int columns, int mode, int zoom = 1,
                 int flip = 0) {
    const auto narrow = [](int value) { return static_cast<std::int16_t>(value); };
    return {1 << 20,         lOffset,      narrow(width), narrow(lines),
            narrow(columns), narrow(mode), narrow(zoom),  narrow(lmk::ZoomIndexToFactor(zoom)),
            narrow(flip)};
}

TEST(LocatePixel, ReachesTheFarCornerAndNothingOutside) {
    const ViewNumbers view = View(2147483646, 256, 512, 16, kByteMasks, 5);
    const auto corner = LocatePixel(view, 65535.75F, 8191.75F);
    ASSERT_TRUE(corner.has_value());
    EXPECT_EQ(corner->lAddress, 2147483646LL + 524286);
    EXPECT_EQ(corner->iBit, 0);
    EXPECT_FALSE(LocatePixel(view, 0, 8192).has_value());
    for (const float out : {-1.0F, -0.25F, 65536.0F, std::numeric_limits<float>::quiet_NaN()}) {
        EXPECT_FALSE(LocatePixel(view, out, 0).has_value()) << out;
        EXPECT_FALSE(LocatePixel(view, 0, out).has_value()) << out;
    }
}

TEST(Block, CoversThePixelsWhoseCornersLieUnderTheNet) {
    // clang-format off
    const std::tuple<NetRect, std::int32_t, PixelBlock> cases[] = {
        {{-16, -32, 48, 16}, 16, {-1, -2, 3, 1}},
        {{  8,   8,  1,  1},  4, { 2,  2, 1, 0}}, // a press without a move: no row
        {{ 40,  16, 57, 49}, 16, { 2,  1, 4, 3}}, // not on pixel corners: X 40, 56, 72, 88, Y 16, 32, 48
        {{-9000, 0, 18000, 9000}, 1, {-9000, 0, kMaxBlockSide, kMaxBlockSide}},
    };
    // clang-format on
    for (const auto& [net, z, block] : cases) {
        EXPECT_EQ(BlockUnder(net, z), block) << net.Left << "," << net.Width << " factor " << z;
    }
}

SnapshotDocument Document(const Bytes& memory, const ViewNumbers& view) {
    MemoryBlock block(memory.size());
    std::ranges::copy(memory, block.data());
    SnapshotDocument document;
    document.Open(std::move(block));
    document.view = view;
    return document;
}

/// The laws: what is written to a pixel is then read there; a block operation does what one ReadPixel or
/// WritePixel for each pixel does, top row first, wherever the block lies, and touches nothing else; row n of an export
/// is line n of the view at 1:1 and not flipped.
TEST(Pixels, AreTheSameOneByOneInBlocksAndInRows) {
    std::mt19937 random(7);
    const auto from = [&random](int least, int most) {
        return std::uniform_int_distribution<std::int32_t>(least, most)(random);
    };
    for (int round = 0; round < 3000; ++round) {
        Bytes memory(static_cast<std::size_t>(from(1, round % 2 == 0 ? 700 : 20000)));
        std::generate(memory.begin(), memory.end(),
                      [&random] { return static_cast<std::uint8_t>(random()); });
        const int length = static_cast<int>(memory.size()), mode = from(0, 4);
        // mostly small, so that its edges and the end of the file are met often
        const int width = mode == kScreen ? 256 : 8 * from(1, round % 4 == 0 ? 32 : 6);
        const int lines = mode == kScreen ? 192 : mode == kText ? 8 * from(1, 8) : from(1, 20);
        const int columns = mode == kScreen || mode == kText ? 1 : from(1, 16);
        ViewNumbers view = View(from(0, length - 1), width, lines, columns, mode, from(1, 5), from(0, 1));
        const PixelBlock block{from(-8, width * columns + 8), from(-8, lines + 8), from(-8, 48),
                               from(-8, 32)};

        SnapshotDocument cleared = Document(memory, view), dropped = Document(memory, view),
                         result = Document(memory, view);
        std::string sLifted, sDrop;
        for (std::int32_t y = block.iTop; y < block.iTop + block.iHeight; ++y) {
            for (std::int32_t x = block.iLeft; x < block.iLeft + block.iWidth; ++x) {
                const std::int32_t z = view.iZoomFactor;
                const auto X = static_cast<float>(x * z + from(0, z - 1));
                const auto Y = static_cast<float>(y * z + from(0, z - 1));
                const int bit = ReadPixel(memory, view, X, Y);
                sLifted += static_cast<char>('0' + bit);
                sDrop += static_cast<char>('0' + from(0, 1));
                const auto pixel = PixelUnder(view, X, Y);
                cleared.WritePixel(pixel, 0);
                const std::int16_t drop = sDrop.back() == '1' ? 1 : 0;
                const bool written = dropped.WritePixel(pixel, drop);
                EXPECT_EQ(dropped.ReadPixel(pixel), written ? drop : 0) << "at " << x << ',' << y;
            }
        }
        EXPECT_EQ(LiftBlock(memory, view, block), sLifted);
        result.ClearBlock(block);
        EXPECT_TRUE(std::ranges::equal(result.Bytes(), cleared.Bytes()));
        EXPECT_EQ(result.Changed() == 0, block.IsEmpty());
        result = Document(memory, view);
        result.DropBlock(block, sDrop);
        EXPECT_TRUE(std::ranges::equal(result.Bytes(), dropped.Bytes()));

        const RawExport rows(memory, view);
        view.iZoomFactor = 1;
        view.iUpsideDown = 0;
        const int y = from(0, lines - 1), bits = 8 * rows.RowBytes();
        EXPECT_EQ(std::pair(rows.Rows(), bits), std::pair(lines, width * columns));
        for (int x = 0; x < bits; ++x) {
            EXPECT_EQ(rows.Row(y)[static_cast<std::size_t>(x / 8)] >> (7 - x % 8) & 1,
                      ReadPixel(memory, view, static_cast<float>(x), static_cast<float>(y)));
        }
        ASSERT_FALSE(HasFailure()) << "round " << round << ", mode " << mode << ' ' << width << 'x' << lines
                                   << 'x' << columns;
    }
}

} // namespace
} // namespace lumrake
