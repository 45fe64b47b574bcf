#pragma once

#include "base/number_field.h"
#include "shell/rules/settings.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace lumrake {

/// The default view's text fields, in the order of txtDefault.
enum DefaultField : std::size_t { kOffset, kWidth, kLines, kColumns, kAttribute, kDefaultFields };

/// The place of each in the settings.
inline constexpr std::array<NumberPlace<SettingsRecord>, kDefaultFields> kDefaultPlaces = {
    &SettingsRecord::lDefaultOffset, &SettingsRecord::iDefaultWidth, &SettingsRecord::iDefaultLines,
    &SettingsRecord::iDefaultColumns, &SettingsRecord::iDefaultAttribute};

using DefaultTexts = std::array<std::string, kDefaultFields>;

/// Looks at the five texts in order and returns the message of the first fault; empty when all are good.
/// Blanks at both ends do not count. Limits: offset 0 and up, width a multiple of 8 in 8 to 256 pixels, lines
/// 1 to 192, columns 1 to 16, attribute 0 to 127. A number that is no whole one is measured against the
/// limits as it stands.
std::string_view FirstFault(const DefaultTexts& texts);

/// What a mode does to one of the size fields (width, lines, columns).
struct SizeFieldRule {
    std::string text; ///< put into the field; empty leaves the field's text
    bool enabled = true;
};

/// The rules for width, lines and columns in a mode (0 to 4): Screen has the one size of the Spectrum's
/// screen, Text has one column, the other modes leave all to the user.
std::array<SizeFieldRule, 3> SizeFieldRules(std::int16_t iMode);

/// The lines field in a mode: Text, whose characters are 8 lines high, has a multiple of 8, at least 8.
std::string LinesFieldInMode(std::int16_t iMode, std::string_view text);

} // namespace lumrake
