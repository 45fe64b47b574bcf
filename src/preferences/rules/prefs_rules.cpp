#include "preferences/rules/prefs_rules.h"

#include "display/modes.h"

#include <limits>

namespace lumrake {

namespace {

constexpr double kNoLimit = std::numeric_limits<double>::infinity();

// clang-format off
constexpr NumberTest kTests[kDefaultFields] = {
    {"Please enter default offset",    0, kNoLimit, "Invalid default offset"},
    {"Please enter width",             lmk::kLeastWidth, lmk::kMostWidth, "Width must be between 8 and 256", nullptr, 8, "Width must be divisible by 8"},
    {"Please enter number of lines",   1, lmk::kScreenLines, "Lines must be between 1 and 192"},
    {"Please enter number of columns", 1, lmk::kMostColumns, "Columns must be between 1 and 16"},
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

std::array<SizeFieldRule, 3> SizeFieldRules(std::int16_t iMode) {
    const lmk::ModeRow& mode = lmk::RowOf(iMode);
    const auto rule = [](int fixed) {
        return fixed == 0 ? SizeFieldRule() : SizeFieldRule{std::to_string(fixed), false};
    };
    return {rule(mode.fixedWidth), rule(mode.fixedLines), rule(mode.manyColumns ? 0 : 1)};
}

std::string LinesFieldInMode(std::int16_t iMode, std::string_view text) {
    return lmk::RowOf(iMode).linesUnit == 1
               ? std::string(text)
               : std::to_string(lmk::LinesInMode(iMode, WholeNumberFromText<std::int16_t>(text)));
}

} // namespace lumrake
