#include "preferences/rules/palette_rules.h"
#include "preferences/rules/prefs_rules.h"

#include <gtest/gtest.h>

#include <vector>

namespace lumrake {
namespace {

TEST(PrefsRules, TheFirstFaultIsTold) {
    // Each case puts one text into a sound set of fields, or leaves the field empty.
    const std::tuple<DefaultField, const char*, const char*> cases[] = {
        // clang-format off
        {kOffset, "-0.4", "Invalid default offset"}, {kOffset, "", "Please enter default offset"},
        {kOffset, "123456789", ""},
        {kWidth, "12", "Width must be divisible by 8"}, {kWidth, "   ", "Please enter width"},
        {kWidth, "0", "Width must be between 8 and 256"}, {kWidth, "264", "Width must be between 8 and 256"},
        {kWidth, " 8 ", ""}, {kWidth, "256", ""}, {kLines, "1", ""}, {kLines, "192", ""},
        {kLines, "0", "Lines must be between 1 and 192"}, {kLines, "193", "Lines must be between 1 and 192"},
        {kLines, "", "Please enter number of lines"}, {kColumns, "", "Please enter number of columns"},
        {kColumns, "x", "Columns must be between 1 and 16"}, {kColumns, "17", "Columns must be between 1 and 16"},
        {kColumns, "1", ""}, {kColumns, "16", ""}, {kAttribute, "0", ""}, {kAttribute, "127", ""},
        {kAttribute, "128", "Attribute must be between 1 and 127"}, {kAttribute, "", "Please enter attribute"},
        // clang-format on
    };
    for (const auto& [field, text, message] : cases) {
        DefaultTexts texts{"0", "256", "192", "1", "15"};
        texts[field] = text;
        EXPECT_EQ(FirstFault(texts), message) << field << ": " << text;
    }
    EXPECT_EQ(FirstFault({"", "3", "0", "0", ""}), "Please enter default offset");
    EXPECT_EQ(FirstFault({"0", "8", "0", "", "999"}), "Lines must be between 1 and 192");
}

/// A row of eight in one component of `first` and `last`, graded.
std::vector<std::int32_t> Graded(std::int32_t first, std::int32_t last) {
    PaletteColours colours{};
    colours[kBrightStart] = ColourOf({0, first, 0});
    colours[kBrightEnd] = ColourOf({0, last, 0});
    SpreadPalette(colours, kBrightStart, kBrightEnd);
    std::vector<std::int32_t> row;
    for (std::size_t i = kBrightStart; i <= kBrightEnd; ++i) {
        EXPECT_EQ(colours[i], ColourOf({0, PartsOf(colours[i])[1], 0})) << "carried into a neighbour";
        row.push_back(PartsOf(colours[i])[1]);
    }
    return row;
}

TEST(PaletteRules, GradingRoundsItsStepOnce) {
    using Row = std::vector<std::int32_t>;
    EXPECT_EQ(Graded(0, 208), (Row{0, 30, 60, 90, 120, 150, 180, 208}));
    EXPECT_EQ(Graded(208, 0), (Row{208, 178, 148, 118, 88, 58, 28, 0}));
    EXPECT_EQ(Graded(10, 13), (Row{10, 10, 10, 10, 10, 10, 10, 13}));
    EXPECT_EQ(Graded(250, 255), (Row{250, 251, 252, 253, 254, 255, 255, 255})); // held at the top
    EXPECT_EQ(Graded(5, 0), (Row{5, 4, 3, 2, 1, 0, 0, 0}));                     // and at the bottom
}

} // namespace
} // namespace lumrake
