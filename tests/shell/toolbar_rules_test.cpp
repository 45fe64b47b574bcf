#include "shell/toolbar_rules.h"

#include <gtest/gtest.h>

#include <array>

namespace lumrake {
namespace {

// A separator of 120 twips, two buttons of 360, a hidden group, one more button.
constexpr std::array<std::int32_t, 6> kWidths = {120, 360, 360, 0, 0, 360};

TEST(ToolbarHit, CountsWidthsFromTheLeftEdge) {
    struct Case {
        double X;
        int hit;
    };
    const Case cases[] = {
        {-15, -1},   {0, -1},    {0.4, -1},
        {15, 1},     {105, 1},   {120, -1}, // the exact boundary belongs to neither
        {135, 2},    {480, -1},  {480.4, -1},
        {480.6, 3},  {840, -1}, // two boundaries in one place: what is hidden is never hit
        {855, 6},    {1199, 6},  {1200, -1},
        {40000, -1}, {-1e9, -1},
    };
    for (const Case& one : cases) {
        EXPECT_EQ(ButtonAtX(one.X, kWidths), one.hit) << one.X;
    }
}

TEST(ToolbarPrompts, OnlyButtonsThatDoSomethingSpeak) {
    const std::array<std::int32_t, 21> prompts = {0,  0,  20, 21, 22, 0,  24, 25, 26, 0, 28,
                                                  29, 30, 31, 0,  33, 34, 0,  36, 37, 38};
    for (int button = 0; button < 21; ++button) {
        EXPECT_EQ(PromptOfButton(button), prompts[static_cast<std::size_t>(button)]) << button;
    }
    EXPECT_EQ(PromptOfButton(-1), 0);
    EXPECT_EQ(PromptOfButton(21), 0);
}

} // namespace
} // namespace lumrake
