#include "snapshot/navigation.h"
#include "snapshot/view_limits.h"

#include <gtest/gtest.h>

namespace lumrake {
namespace {

constexpr std::int32_t kLongest = 2147483647;

TEST(Thumb, LiesWhereTheOffsetSays) {
    struct Case {
        std::int32_t offset, length, barHeight, place;
    };
    const Case cases[] = {
        {0, 600, 248, 0},         {3, 600, 248, 1},
        {2, 600, 248, 0},         {599, 600, 248, 199},
        {0, 1, 248, 0},           {1, 2, 248, 100}, // files shorter than the travel
        {49152, 49179, 248, 199}, {kLongest - 1, kLongest, 248, 200},
        {10, 100, 10, 0}, // no room to travel
    };
    for (const Case& one : cases) {
        EXPECT_EQ(ThumbPlace(one.offset, one.length, one.barHeight), one.place)
            << one.offset << " of " << one.length;
    }
}

TEST(Thumb, IsDragged) {
    struct Case {
        const char* what;
        std::int32_t top, mouse, grab, length, newTop, offset;
    };
    // clang-format off
    const Case cases[] = { // in a bar of 248 pixels, which lets the thumb travel 200
        {"trails by one event",      16, 20,  5,      600,  31,       0},
        {"three bytes a pixel",      31,  6,  5,      600,  32,      45},
        {"resting on the last place",216, 5,  5,      600, 216,     599},
        {"past the upper end",       40, -60, 5,      600,  16,       0},
        {"past the lower end",       40, 400, 5,      600, 216,     599},
        {"a file of one byte",      100,  6,  5,        1, 101,       0},
        {"a file of a few bytes",   116,  5,  5,        8, 116,       4},
        {"the longest file",        215,  6,  5, kLongest, 216, 2136746240},
        {"the longest file, end",   216,  6,  5, kLongest, 216, kLongest - 1},
    };
    // clang-format on
    for (const Case& one : cases) {
        const DraggedThumb dragged = DragThumb(one.top, one.mouse, one.grab, one.length, 248);
        EXPECT_EQ(dragged.iTop, one.newTop) << one.what;
        EXPECT_EQ(dragged.lOffset, one.offset) << one.what;
    }
}

TEST(ScrolledOffset, MovesByLinesAndPages) {
    struct Case {
        const char* what;
        std::int32_t offset;
        std::int16_t width, lines, small, large;
        std::int32_t tag, value, result;
    };
    // clang-format off
    const Case cases[] = { // in a file of 49179 bytes
        {"small step down",          1000, 256, 192, 2, 1,  50, 51,  1064},
        {"small step up",            1000, 256, 192, 2, 1,  50, 49,   936},
        {"large step down",          1000, 256, 192, 1, 4,  50, 52,  2536},
        {"half a line to even",      1000,   8,  10, 1, 4,  50, 48,   998},
        {"half a line up to even",   1000,   8,  14, 1, 4,  50, 52,  1004},
        {"start",                      30, 256, 192, 1, 1,  50, 49,     0},
        {"end",                     49178, 256, 192, 1, 1,  50, 52, 49178},
        {"a jump is no step",        1000, 256, 192, 1, 1,  50, 53,  1000},
        {"at rest",                  1000, 256, 192, 1, 1,  50, 50,  1000},
        {"amounts of nothing",       1000, 256, 192, 0, 0,  50, 52,  7144},
        {"small amount of nothing",  1000, 256, 192, -5, 1, 50, 51,  1032},
    };
    // clang-format on
    for (const Case& one : cases) {
        ViewNumbers view;
        view.lFileLength = 49179;
        view.lOffset = one.offset;
        view.iWidth = one.width;
        view.iLines = one.lines;
        EXPECT_EQ(ScrolledOffset(view, one.tag, one.value, one.small, one.large), one.result) << one.what;
    }
}

TEST(SpinTo, StopsAtTheLimits) {
    const auto limits = SpinLimits(kLongest);
    struct Case {
        int value;
        std::int32_t from;
        bool up;
        std::int32_t to;
    };
    const Case cases[] = {
        {kOffsetValue, kLongest - 1, true, kLongest - 1},
        {kOffsetValue, 0, false, 0},
        {kOffsetValue, kLongest, true, kLongest - 1},
        {kWidthValue, 248, true, 256},
        {kWidthValue, 256, true, 256},
        {kWidthValue, 8, false, 8},
        {kLinesValue, 13, false, 8},
        {kLinesValue, 13, true, 21},
        {kLinesValue, 3, false, 8},
        {kColumnsValue, 16, true, 16},
    };
    for (const Case& one : cases) {
        EXPECT_EQ(SpinTo(one.from, one.up, limits[static_cast<std::size_t>(one.value)]), one.to)
            << one.value << ": " << one.from;
    }
}

TEST(DefaultView, IsBroughtIntoTheLimits) {
    struct Case {
        std::int32_t offset;
        std::int16_t width, lines, columns, mode;
        std::int32_t length, offsetGot;
        int widthGot, linesGot, columnsGot, modeGot;
    };
    // clang-format off
    const Case cases[] = {
        {  0, 256, 192,  1,  0, 100,  0, 256, 192,  1, 0},
        { 99,  13,   1, 16,  4, 100, 99,   8,   1, 16, 4},
        {100,   0,   0,  0,  5, 100, 99,   8,   1,  1, 0},
        {101, 300, 600, 99, -1, 100, 99, 256, 512, 16, 0},
        { -7,  -8,  -1, -1,  3,   1,  0,   8,   1,  1, 3},
    };
    // clang-format on
    for (const Case& one : cases) {
        SettingsRecord settings;
        settings.lDefaultOffset = one.offset;
        settings.iDefaultWidth = one.width;
        settings.iDefaultLines = one.lines;
        settings.iDefaultColumns = one.columns;
        settings.iDefaultMode = one.mode;
        const ViewNumbers view = DefaultView(settings, one.length);
        EXPECT_EQ(view.lOffset, one.offsetGot);
        EXPECT_EQ(view.iWidth, one.widthGot);
        EXPECT_EQ(view.iLines, one.linesGot);
        EXPECT_EQ(view.iColumns, one.columnsGot);
        EXPECT_EQ(view.iMode, one.modeGot);
    }
}

TEST(NextAttribute, StepsOneColourAndDropsBit7) {
    EXPECT_EQ(NextAttribute(199, 0), 64);
    EXPECT_EQ(NextAttribute(199, 1), 64 + 8 + 7);
    EXPECT_EQ(NextAttribute(56 + 3, 1), 3);
    EXPECT_EQ(NextAttribute(15, 0), 8);
    EXPECT_EQ(NextAttribute(-1, 0), 64 + 56);
}

} // namespace
} // namespace lumrake
