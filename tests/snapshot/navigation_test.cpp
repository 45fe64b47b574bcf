#include "snapshot/rules/cell.h"
#include "snapshot/rules/navigation.h"
#include "snapshot/rules/view_limits.h"

#include <gtest/gtest.h>

namespace lumrake {
namespace {

constexpr std::int32_t kLongest = 2147483647;

TEST(Thumb, LiesWhereTheOffsetSaysAndIsDragged) {
    EXPECT_EQ(ThumbPlace(kLongest - 1, kLongest, 248), 200);
    EXPECT_EQ(ThumbPlace(10, 100, 10), 0) << "no room to travel";
    // gripped by row 5 and dragged past the end
    const DraggedThumb dragged = DragThumb(216, 6, 5, kLongest, 248);
    EXPECT_EQ(std::pair(dragged.iTop, dragged.lOffset), std::pair(216, kLongest - 1));
}

TEST(ScrolledOffset, MovesByLinesAndPages) {
    // offset, width, lines, small and large change, value of the bar at rest at 50, offset in 49179 bytes
    // clang-format off
    const std::tuple<std::int32_t, std::int16_t, std::int16_t, std::int16_t, std::int16_t, std::int32_t, std::int32_t> cases[] = {
        { 1000, 256, 192, 2, 1, 49,   936},
        { 1000,   8,  10, 1, 4, 48,   998}, // 2.5 lines are 2
        { 1000,   8,  14, 1, 4, 52,  1004}, // 3.5 are 4
        {   30, 256, 192, 1, 1, 49,     0},
        {49178, 256, 192, 1, 1, 52, 49178},
        { 1000, 256, 192, 1, 1, 53,  1000}, // a jump is no step
        { 1000, 256, 192, 0, 0, 52,  7144}, // amounts below 1 count as 1
    };
    // clang-format on
    for (const auto& [offset, width, lines, small, large, value, result] : cases) {
        const ViewNumbers view{49179, offset, width, lines};
        EXPECT_EQ(ScrolledOffset(view, 50, value, small, large), result);
    }
}

TEST(ByteUnder, IsToldInThreeLines) {
    const std::uint8_t bytes[] = {0, 165};
    const ViewNumbers view{2, 1, 8, 2, 1};
    EXPECT_EQ(LinesOf(ByteAt(bytes, view, {4, 0})),
              (std::array<std::string, 3>{"1 bit 3", "0x1", "value 165"}));
    EXPECT_EQ(LinesOf({2147483647, 0, -1}),
              (std::array<std::string, 3>{"2147483647 bit 0", "0x7FFFFFFF", "past the end"}));
    EXPECT_EQ(ByteAt(bytes, view, {0, 1}).iValue, -1);
}

} // namespace
} // namespace lumrake
