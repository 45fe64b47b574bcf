#include "snapshot/block.h"

#include <gtest/gtest.h>

#include <random>
#include <vector>

namespace lumrake {
namespace {

ViewNumbers View(std::int16_t iMode, std::int16_t iWidth, std::int16_t iLines, std::int16_t iColumns) {
    ViewNumbers view;
    view.iMode = iMode;
    view.iWidth = iWidth;
    view.iLines = iLines;
    view.iColumns = iColumns;
    return view;
}

/// A view of any mode, zoom and flip, small enough that its edges and the end of the file are met often.
ViewNumbers RandomView(std::mt19937& random, std::int32_t lFileLength) {
    const auto upTo = [&random](int most) {
        return static_cast<std::int16_t>(std::uniform_int_distribution<int>(0, most)(random));
    };
    ViewNumbers view = View(upTo(4), static_cast<std::int16_t>(8 + 8 * upTo(5)),
                            static_cast<std::int16_t>(1 + upTo(20)), static_cast<std::int16_t>(1 + upTo(3)));
    if (view.iMode == kScreen) {
        view.iWidth = 256;
        view.iLines = 192;
    } else if (view.iMode == kText) {
        view.iLines = 16;
    }
    if (view.iMode == kScreen || view.iMode == kText) {
        view.iColumns = 1;
    }
    view.lFileLength = lFileLength;
    view.lOffset = upTo(static_cast<int>(lFileLength) - 1);
    view.iZoom = static_cast<std::int16_t>(1 + upTo(4));
    view.iZoomFactor = static_cast<std::int16_t>(1 << (view.iZoom - 1));
    view.iUpsideDown = upTo(1);
    return view;
}

TEST(Block, CoversThePixelsWhoseCornersLieUnderTheNet) {
    struct Case {
        NetRect net;
        std::int32_t z;
        PixelBlock block;
    };
    // clang-format off
    const Case cases[] = {
        {{  8,   8, 12,  4},  4, { 2,  2, 3, 1}},
        {{-16, -32, 48, 16}, 16, {-1, -2, 3, 1}},
        {{  5,   6,  1,  1},  1, { 5,  6, 1, 1}},
        {{  8,   8,  1,  1},  4, { 2,  2, 1, 0}}, // a press without a move: no row
        {{  8,   8, 12,  0},  4, { 2,  2, 3, 0}},
        {{  8,   8,  0, 12},  4, { 2,  2, 0, 3}},
        {{ 40,  16, 57, 49}, 16, { 2,  1, 4, 3}}, // not on pixel corners: X 40, 56, 72, 88, Y 16, 32, 48
        {{-9000, 0, 18000, 9000}, 1, {-9000, 0, kMaxBlockSide, kMaxBlockSide}},
    };
    // clang-format on
    for (const Case& c : cases) {
        EXPECT_EQ(BlockUnder(c.net, c.z), c.block) << c.net.Left << "," << c.net.Width << " factor " << c.z;
    }
}

TEST(Block, LiftsRowsFromTheTopAsSeen) {
    // Three pixels from the middle of a byte into the next one, two lines: 1 0 1 and 0 1 1.
    std::vector<std::uint8_t> memory{0b00000010, 0b10000000, 0b00000001, 0b10000000};
    ViewNumbers view = View(kGraphics, 16, 2, 1);
    EXPECT_EQ(LiftBlock(memory, view, {6, 0, 3, 2}), "101011");
    view.iUpsideDown = 1;
    EXPECT_EQ(LiftBlock(memory, view, {6, 0, 3, 2}), "011101");
    EXPECT_EQ(LiftBlock(memory, view, {14, 1, 4, 2}), "00000000"); // half of it outside the picture
    EXPECT_EQ(LiftBlock(memory, view, {6, 0, 3, 0}), "");
}

TEST(Block, LeavesMasksAlone) {
    for (const std::int16_t iMode : {kLineMasks, kByteMasks}) {
        std::vector<std::uint8_t> memory(2 * 2 * 8 * 2, 0xff);
        ClearBlock(memory, View(iMode, 16, 8, 2), {-5, -5, 100, 100});
        for (std::size_t i = 0; i < memory.size(); ++i) {
            const bool mask = iMode == kLineMasks ? i / 2 % 2 == 1 : i % 2 == 1;
            EXPECT_EQ(memory[i], mask ? 0xff : 0) << "mode " << iMode << " byte " << i;
        }
    }
}

TEST(Block, ShortDataLeaveTheRowsTheyLack) {
    std::vector<std::uint8_t> memory(3, 0xff);
    DropBlock(memory, View(kGraphics, 8, 3, 1), {0, 0, 8, 3}, "0101010100000000111");
    EXPECT_EQ(memory, (std::vector<std::uint8_t>{0x55, 0x00, 0xff}));
}

TEST(Block, TellsEachRowBeforeIt) {
    std::vector<std::uint8_t> memory(8);
    std::vector<std::int32_t> rows;
    const RowProgress progress = [&rows](std::int32_t iRow, std::int32_t iRows) {
        EXPECT_EQ(iRows, 3);
        rows.push_back(iRow);
    };
    LiftBlock(memory, View(kGraphics, 8, 8, 1), {0, -1, 8, 3}, progress);
    ClearBlock(memory, View(kGraphics, 8, 8, 1), {0, -1, 8, 3}, progress);
    EXPECT_EQ(rows, (std::vector<std::int32_t>{0, 1, 2, 0, 1, 2}));
}

/// The law: a block operation does what one ReadPixel or WritePixel for each pixel does, wherever the block
/// lies, and touches nothing else.
TEST(Block, DoesWhatThePixelRoutinesDo) {
    std::mt19937 random(7);
    for (int round = 0; round < 3000; ++round) {
        std::vector<std::uint8_t> memory(1 + random() % 700);
        for (std::uint8_t& byte : memory) {
            byte = static_cast<std::uint8_t>(random());
        }
        const ViewNumbers view = RandomView(random, static_cast<std::int32_t>(memory.size()));
        const auto near = [&random](std::int32_t size) {
            return std::uniform_int_distribution<std::int32_t>(-8, size + 8)(random);
        };
        const PixelBlock block{near(view.PictureWidth()), near(view.iLines), near(40), near(24)};

        std::vector<std::uint8_t> cleared = memory, dropped = memory;
        std::string sLifted, sDrop;
        for (std::int32_t y = 0; y < block.iHeight; ++y) {
            for (std::int32_t x = 0; x < block.iWidth; ++x) {
                const auto X = static_cast<float>((block.iLeft + x) * view.iZoomFactor);
                const auto Y = static_cast<float>((block.iTop + y) * view.iZoomFactor);
                sDrop += random() % 2 == 0 ? '0' : '1';
                sLifted += static_cast<char>('0' + ReadPixel(memory, view, X, Y));
                WritePixel(cleared, view, X, Y, 0);
                WritePixel(dropped, view, X, Y, sDrop.back() == '1' ? 1 : 0);
            }
        }
        EXPECT_EQ(LiftBlock(memory, view, block), sLifted);
        std::vector<std::uint8_t> result = memory;
        ClearBlock(result, view, block);
        EXPECT_EQ(result, cleared);
        result = memory;
        DropBlock(result, view, block, sDrop);
        EXPECT_EQ(result, dropped);
        ASSERT_FALSE(HasFailure()) << "round " << round << ", mode " << view.iMode;
    }
}

} // namespace
} // namespace lumrake
