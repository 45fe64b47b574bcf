#include "preferences/rules/prefs_rules.h"

#include "base/number_field.h"
#include "snapshot/rules/addressing.h"

#include <algorithm>
#include <limits>

namespace lumrake {

namespace {

constexpr double kNoLimit = std::numeric_limits<double>::infinity();

// clang-format off
constexpr NumberTest kTests[kDefaultFields] = {
    {"Please enter default offset",    0, kNoLimit, "Invalid default offset"},
    {"Please enter width",             8, 256,      "Width must be between 8 and 256", nullptr, 8, "Width must be divisible by 8"},
    {"Please enter number of lines",   1, 192,      "Lines must be between 1 and 192"},
    {"Please enter number of columns", 1, 16,       "Columns must be between 1 and 16"},
    // Black ink on black paper is an attribute like any other, so 0 passes.
    {"Please enter attribute",         0, 127,      "Attribute must be between 1 and 127"},
};
// clang-format on

} // namespace

std::string_view FirstFault(const DefaultTexts& texts) {
    for (std::size_t field = 0; field < texts.size(); ++field) {
        const std::string_view fault = FaultOf(texts[field], kTests[field]);
        if (!fault.empty()) {
            return fault;
        }
    }
    return {};
}

const std::array<SizeFieldRule, 3>& SizeFieldRules(std::int16_t iMode) {
    static constexpr std::array<SizeFieldRule, 3> kAllFree{};
    static constexpr std::array<SizeFieldRule, 3> kOneSize{{{"256", false}, {"192", false}, {"1", false}}};
    static constexpr std::array<SizeFieldRule, 3> kOneColumn{{{"", true}, {"", true}, {"1", false}}};
    switch (iMode) {
    case kScreen: return kOneSize;
    case kText: return kOneColumn;
    default: return kAllFree;
    }
}

std::string TextModeLines(std::string_view text) {
    const int lines = WholeNumberFromText<std::int16_t>(text);
    return std::to_string(std::max(lines / 8 * 8, 8));
}

} // namespace lumrake
