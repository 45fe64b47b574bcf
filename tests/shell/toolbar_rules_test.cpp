#include "shell/toolbar_rules.h"

#include <gtest/gtest.h>

#include <array>

namespace lumrake {
namespace {

// A separator of 120 twips, two buttons of 360, a hidden group, one more button.
constexpr std::array<std::int32_t, 6> kWidths = {120, 360, 360, 0, 0, 360};

TEST(ToolbarHit, CountsWidthsFromTheLeftEdge) {
    const std::pair<double, int> cases[] = {
        {-15, -1},   {0, -1},    {0.4, -1},
        {15, 1},     {105, 1},   {120, -1}, // the exact boundary belongs to neither
        {135, 2},    {480, -1},  {480.4, -1},
        {480.6, 3},  {840, -1}, // two boundaries in one place: what is hidden is never hit
        {855, 6},    {1199, 6},  {1200, -1},
        {40000, -1}, {-1e9, -1},
    };
    for (const auto& [X, hit] : cases) {
        EXPECT_EQ(ButtonAtX(X, kWidths), hit) << X;
    }
}

} // namespace
} // namespace lumrake
