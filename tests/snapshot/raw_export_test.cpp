#include "snapshot/raw_export.h"

#include <gtest/gtest.h>

#include <numeric>
#include <vector>

namespace lumrake {
namespace {

using Bytes = std::vector<std::uint8_t>;

struct Case {
    std::int16_t iMode, iWidth, iLines, iColumns;
    Bytes head; // first bytes of the export where byte n of the memory is n
};

// clang-format off
const Case kCases[] = {
    {kGraphics,   16,   2,  2, {0, 1, 4,  5, 2, 3,  6,  7}},
    {kLineMasks,  16,   2,  2, {0, 1, 8,  9, 4, 5, 12, 13}},
    {kByteMasks,  16,   2,  2, {0, 2, 8, 10, 4, 6, 12, 14}},
    {kText,       16,  16,  1, {0, 8, 1, 9, 2, 10, 3, 11, 4, 12, 5, 13, 6, 14, 7, 15, 16, 24}},
    {kScreen,    256, 192,  1, {0, 1, 2}},
    {kGraphics,    8,  13, 16, {0, 13, 26}},
    {kByteMasks, 256, 512, 16, {0, 2, 4}},
};
// clang-format on

ViewNumbers View(const Case& c, std::size_t memorySize, std::int32_t lOffset) {
    ViewNumbers view;
    view.iMode = c.iMode;
    view.iWidth = c.iWidth;
    view.iLines = c.iLines;
    view.iColumns = c.iColumns;
    view.lFileLength = static_cast<std::int32_t>(memorySize);
    view.lOffset = lOffset;
    view.iZoom = 3;
    view.iZoomFactor = 4;
    view.iUpsideDown = 1; // neither zoom nor flip plays a part
    return view;
}

Bytes AllBytes(const RawExport& rows) {
    Bytes bytes;
    for (std::int32_t row = 0; row < rows.Rows(); ++row) {
        bytes.insert(bytes.end(), rows.Row(row).begin(), rows.Row(row).end());
    }
    return bytes;
}

TEST(RawExport, BringsEveryLayoutIntoRows) {
    Bytes memory(7000);
    std::iota(memory.begin(), memory.end(), std::uint8_t{0});
    for (const Case& c : kCases) {
        const Bytes bytes = AllBytes(RawExport(memory, View(c, memory.size(), 0)));
        EXPECT_EQ(static_cast<int>(bytes.size()), c.iWidth / 8 * c.iColumns * c.iLines);
        EXPECT_EQ(Bytes(bytes.begin(), bytes.begin() + static_cast<std::ptrdiff_t>(c.head.size())), c.head)
            << "mode " << c.iMode;
    }
}

/// The law: bit by bit, row n is what ReadPixel finds on line n of the unflipped view.
TEST(RawExport, HoldsThePixelsOfTheView) {
    Bytes memory(6300);
    std::uint32_t state = 5;
    for (std::uint8_t& byte : memory) {
        byte = static_cast<std::uint8_t>((state = state * 1664525 + 1013904223) >> 24);
    }
    for (const Case& c : kCases) {
        for (const std::int32_t lOffset : {0, 1, 150, 6299}) { // the views run past the end of the memory
            ViewNumbers view = View(c, memory.size(), lOffset);
            const RawExport rows(memory, view);
            view.iUpsideDown = 0;
            for (std::int32_t y = 0; y < rows.Rows(); ++y) {
                for (std::int32_t x = 0; x < 8 * rows.RowBytes(); ++x) {
                    const int bit = rows.Row(y)[static_cast<std::size_t>(x / 8)] >> (7 - x % 8) & 1;
                    ASSERT_EQ(bit,
                              ReadPixel(memory, view, static_cast<float>(4 * x), static_cast<float>(4 * y)))
                        << "mode " << c.iMode << " offset " << lOffset << " at " << x << "," << y;
                }
            }
        }
    }
}

} // namespace
} // namespace lumrake
