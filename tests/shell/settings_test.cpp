#include "shell/settings.h"

#include <gtest/gtest.h>

#include <numeric>
#include <string>

namespace lumrake {
namespace {

TEST(Settings, DefaultsLieWhereTheTableSays) {
    SettingsRecord settings;
    SetDefaultSettings(settings, "2.00", {1, 2, 3, 0x01020304});
    const auto bytes = EncodeSettings(settings);
    const auto at = [&bytes](std::size_t offset, std::size_t count) {
        return std::vector<int>(bytes.begin() + static_cast<std::ptrdiff_t>(offset),
                                bytes.begin() + static_cast<std::ptrdiff_t>(offset + count));
    };
    EXPECT_EQ(std::string(bytes.begin(), bytes.begin() + 10), "2.00      ");
    EXPECT_EQ(at(10, 4), (std::vector{1, 0, 0, 0}));
    EXPECT_EQ(at(22, 4), (std::vector{4, 3, 2, 1}));
    EXPECT_EQ(at(26, 12), std::vector(12, 0xFF));
    EXPECT_EQ(at(38, 400), std::vector(400, 0x20));
    EXPECT_EQ(at(438, 22),
              (std::vector{0, 0, 1, 0, 0, 0, 0, 0, 0, 1, 192, 0, 1, 0, 15, 0, 0, 0, 1, 0, 1, 0}));
    EXPECT_EQ(at(464, 8), (std::vector{0, 0, 208, 0, 208, 0, 0, 0})); // blue, red
    EXPECT_EQ(at(460 + 14 * 4, 4), (std::vector{255, 255, 0, 0}));    // bright yellow
    EXPECT_EQ(at(524, 2), (std::vector{0, 0}));
}

TEST(Settings, ARecordOfAnyBytesIsWrittenBackAsItWasRead) {
    std::array<std::uint8_t, kSettingsBytes> bytes{};
    for (std::size_t i = 0; i < bytes.size(); ++i) {
        bytes[i] = static_cast<std::uint8_t>(i * 37 + i / 256);
    }
    EXPECT_EQ(EncodeSettings(DecodeSettings(bytes)), bytes);
}

TEST(Settings, AttributesNameTheirColours) {
    SettingsRecord settings;
    std::iota(settings.lPalette.begin(), settings.lPalette.end(), 0); // each entry holds its own number
    EXPECT_EQ(AttributeColour(settings, 15, "FORE"), 7);
    EXPECT_EQ(AttributeColour(settings, 15, "BACK"), 1);
    EXPECT_EQ(AttributeColour(settings, 71, "FORE"), 15);
    EXPECT_EQ(AttributeColour(settings, 71, "BACK"), 8);
    EXPECT_EQ(AttributeColour(settings, 71, "fore"), 8);
    EXPECT_EQ(AttributeColour(settings, -1, "BACK"), 15);
}

} // namespace
} // namespace lumrake
