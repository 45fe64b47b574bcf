#include "shell/rules/settings.h"

#include <gtest/gtest.h>

namespace lumrake {
namespace {

TEST(Settings, DefaultsLieWhereTheTableSays) {
    SettingsRecord settings;
    SetDefaultSettings(settings, "2.00", {1, 2, 3, 0x01020304});
    const auto bytes = EncodeSettings(settings);
    const std::pair<std::size_t, std::vector<std::uint8_t>> table[] = {
        {0, {'2', '.', '0', '0', ' ', ' ', ' ', ' ', ' ', ' ', 1, 0, 0, 0}},
        {22, {4, 3, 2, 1, 0xFF, 0xFF}},
        {36, {0xFF, 0xFF, ' ', ' '}},
        {437, {' ', 0, 0, 1, 0, 0, 0, 0, 0, 0, 1, 192, 0, 1, 0, 15, 0, 0, 0, 1, 0, 1, 0}},
        {464, {0, 0, 208, 0, 208, 0, 0, 0}},      // blue, red
        {460 + 14 * 4, {255, 255, 0, 0}},         // bright yellow
        {460 + 15 * 4, {255, 255, 255, 0, 0, 0}}, // bright white, the assistant
    };
    for (const auto& [offset, part] : table) {
        EXPECT_TRUE(std::equal(part.begin(), part.end(), bytes.begin() + offset)) << offset;
    }
}

} // namespace
} // namespace lumrake
