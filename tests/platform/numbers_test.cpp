#include "platform/numbers.h"
#include "platform/twips.h"

#include <gtest/gtest.h>

namespace lumrake {
namespace {

TEST(Numbers, TextGivesItsNumericPrefix) {
    const std::pair<const char*, double> cases[] = {
        {"", 0},        {"   ", 0},     {"  12 px", 12},
        {"-7", -7},     {"--7", 0},     {".5", 0.5},
        {"1e3x", 1000}, {"1e", 1},      {"1,5", 1},
        {"inf", 0},     {"nan", 0},     {"0x10", 0},
        {"-", 0},       {"1e-999", 0},  {"00012", 12},
        {"5.", 5},      {"1.2.3", 1.2}, {"9999999999", 9999999999.0}};
    for (const auto& [text, value] : cases) {
        EXPECT_EQ(NumberFromText(text), value) << text;
    }
    const std::string zeros(400, '0');
    EXPECT_EQ(NumberFromText("0." + zeros + "1"), 0);
    EXPECT_EQ(NumberFromText("1" + zeros + "e-5"), std::numeric_limits<double>::infinity());
    EXPECT_EQ(NumberFromText("1" + zeros + "e-400"), 1);
    EXPECT_EQ(WholeNumberFromText<std::int16_t>("-1e999"), -32768);
    EXPECT_EQ(WholeNumberFromText<std::int32_t>("2147483648"), 2147483647);
}

TEST(Numbers, HalvesGoToTheEvenNeighbour) {
    const std::pair<double, int> cases[] = {{0.5, 0},   {1.5, 2},     {-0.5, 0},
                                            {-1.5, -2}, {-49.5, -50}, {29.71, 30}};
    for (const auto& [value, rounded] : cases) {
        EXPECT_EQ(HeldTo<std::int32_t>(value), rounded) << value;
    }
    EXPECT_EQ(PixelsFromTwips(280), 19);
    EXPECT_EQ(TextOfNumber(4.5), "4.5");
    EXPECT_EQ(IsDivisible(5, 0), -1);
    EXPECT_EQ(IsDivisible(std::numeric_limits<std::int32_t>::min(), -1), -1);
    EXPECT_EQ(FloorDiv(-1, 4), -1);
    EXPECT_EQ(FloorDiv(-4, 4), -1);
}

} // namespace
} // namespace lumrake
