#include "snapshot/navigation.h"
#include "snapshot/view_limits.h"

#include <gtest/gtest.h>

namespace lumrake {
namespace {

constexpr std::int32_t kLongest = 2147483647;

// In a bar of 248 pixels, which lets the thumb travel 200.
TEST(Thumb, LiesWhereTheOffsetSaysAndIsDragged) {
    const std::int32_t places[][3] = {
        {2, 600, 0}, {3, 600, 1}, {599, 600, 199}, {kLongest - 1, kLongest, 200}, {0, 1, 0}, {1, 2, 100}};
    for (const auto& [offset, length, place] : places) {
        EXPECT_EQ(ThumbPlace(offset, length, 248), place) << offset << " of " << length;
    }
    EXPECT_EQ(ThumbPlace(10, 100, 10), 0) << "no room to travel";

    // gripped by row 5: the thumb's top, the mouse, the file's length, and where both go
    const std::int32_t drags[][5] = {{16, 20, 600, 31, 0}, // the offset trails the thumb by one event
                                     {31, 6, 600, 32, 45},
                                     {216, 5, 600, 216, 599},
                                     {216, 6, kLongest, 216, kLongest - 1}};
    for (const auto& [top, mouse, length, newTop, offset] : drags) {
        const DraggedThumb dragged = DragThumb(top, mouse, 5, length, 248);
        EXPECT_EQ(std::pair(dragged.iTop, dragged.lOffset), std::pair(newTop, offset));
    }
}

TEST(ScrolledOffset, MovesByLinesAndPages) {
    struct Case {
        std::int32_t offset;
        std::int16_t width, lines, small, large;
        std::int32_t value, result;
    };
    // clang-format off
    const Case cases[] = { // in a file of 49179 bytes, the bar at rest at 50
        { 1000, 256, 192, 2, 1, 51,  1064},
        { 1000, 256, 192, 2, 1, 49,   936},
        { 1000, 256, 192, 1, 4, 52,  2536},
        { 1000,   8,  10, 1, 4, 48,   998}, // 2.5 lines are 2
        { 1000,   8,  14, 1, 4, 52,  1004}, // 3.5 are 4
        {   30, 256, 192, 1, 1, 49,     0},
        {49178, 256, 192, 1, 1, 52, 49178},
        { 1000, 256, 192, 1, 1, 53,  1000}, // a jump is no step
        { 1000, 256, 192, 0, 0, 52,  7144}, // amounts below 1 count as 1
    };
    // clang-format on
    for (const Case& one : cases) {
        ViewNumbers view;
        view.lFileLength = 49179;
        view.lOffset = one.offset;
        view.iWidth = one.width;
        view.iLines = one.lines;
        EXPECT_EQ(ScrolledOffset(view, 50, one.value, one.small, one.large), one.result);
    }
}

TEST(DefaultView, IsBroughtIntoTheLimits) {
    // offset, width, lines, columns, mode of the settings, length of the file, and what becomes of them
    // clang-format off
    const int cases[][11] = {
        { 99,  13,   1, 16,  4, 100,  99,   8,   1, 16, 4},
        {100,   0,   0,  0,  5, 100,  99,   8,   1,  1, 0},
        { -7, 300, 600, 99, -1,   1,   0, 256, 512, 16, 0},
    };
    // clang-format on
    for (const auto& [offset, width, lines, columns, mode, length, o, w, l, c, m] : cases) {
        SettingsRecord settings;
        settings.lDefaultOffset = offset;
        settings.iDefaultWidth = static_cast<std::int16_t>(width);
        settings.iDefaultLines = static_cast<std::int16_t>(lines);
        settings.iDefaultColumns = static_cast<std::int16_t>(columns);
        settings.iDefaultMode = static_cast<std::int16_t>(mode);
        const ViewNumbers view = DefaultView(settings, length);
        EXPECT_EQ(std::tuple(view.lOffset, view.iWidth, view.iLines, view.iColumns, view.iMode),
                  std::tuple(o, w, l, c, m));
    }
}

TEST(NextAttribute, StepsOneColourAndDropsBit7) {
    EXPECT_EQ(NextAttribute(199, 0), 64);
    EXPECT_EQ(NextAttribute(199, 1), 64 + 8 + 7);
    EXPECT_EQ(NextAttribute(56 + 3, 1), 3);
}

} // namespace
} // namespace lumrake
