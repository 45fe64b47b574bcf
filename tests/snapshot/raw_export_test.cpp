#include "snapshot/raw_export.h"

#include <gtest/gtest.h>

#include <numeric>
#include <vector>

namespace lumrake {
namespace {

/// The law: bit by bit, row n is what ReadPixel finds on line n of the view at 1:1 and not flipped.
TEST(RawExport, HoldsThePixelsOfTheViewInRows) {
    // clang-format off
    const std::int16_t cases[][4] = { // mode, width, lines, columns
        {kGraphics, 16, 2, 2}, {kLineMasks, 16, 2, 2}, {kByteMasks, 16, 2, 2}, {kText, 16, 16, 1},
        {kScreen, 256, 192, 1}, {kByteMasks, 256, 512, 16},
    };
    // clang-format on
    std::vector<std::uint8_t> memory(6300);
    std::iota(memory.begin(), memory.end(), std::uint8_t{0});
    for (const auto& [iMode, iWidth, iLines, iColumns] : cases) {
        for (const std::int32_t lOffset : {0, 1, 6299}) { // most views run past the end of the memory
            ViewNumbers view{0, lOffset, iWidth, iLines, iColumns, iMode, 3, 4, 1};
            const RawExport rows(memory, view);
            ASSERT_EQ(rows.Rows(), iLines);
            ASSERT_EQ(rows.RowBytes(), iWidth / 8 * iColumns);
            view.iZoomFactor = 1;
            view.iUpsideDown = 0;
            for (std::int32_t y = 0; y < rows.Rows(); ++y) {
                for (std::int32_t x = 0; x < 8 * rows.RowBytes(); ++x) {
                    const int bit = rows.Row(y)[static_cast<std::size_t>(x / 8)] >> (7 - x % 8) & 1;
                    ASSERT_EQ(bit, ReadPixel(memory, view, static_cast<float>(x), static_cast<float>(y)))
                        << "mode " << iMode << " offset " << lOffset << " at " << x << "," << y;
                }
            }
        }
    }
}

} // namespace
} // namespace lumrake
