/// Any text as a number: what is read is what the C library reads from the prefix that counts, it stays inside
/// the field it goes to, and the texts that pass the tests of a dialog hold numbers in their limits. The lines of
/// the input are the fields of a dialog.
#include "animation/rules/setup_rules.h"
#include "base/numbers.h"
#include "fuzz/require.h"
#include "preferences/rules/prefs_rules.h"

#include <array>
#include <regex>
#include <sstream>
#include <string>

using namespace lumrake;

namespace {

/// The longest prefix that is a decimal number, behind the blanks.
std::string NumericPrefix(const std::string& text) {
    static const std::regex number("^ *([+-]?([0-9]+\\.?[0-9]*|\\.[0-9]+)([eE][+-]?[0-9]+)?)");
    std::smatch match;
    return std::regex_search(text, match, number) ? match[1].str() : std::string();
}

template <class Field> void CheckField(const std::string& text, double value) {
    const Field held = WholeNumberFromText<Field>(text);
    const auto low = static_cast<double>(std::numeric_limits<Field>::min());
    const auto high = static_cast<double>(std::numeric_limits<Field>::max());
    Require(value <= low    ? held == std::numeric_limits<Field>::min()
            : value >= high ? held == std::numeric_limits<Field>::max()
                            : std::fabs(static_cast<double>(held) - value) <= 0.5);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    std::array<std::string, 8> lines;
    std::istringstream input({reinterpret_cast<const char*>(data), size});
    for (std::string& line : lines) {
        std::getline(input, line);
    }
    for (const std::string& text : lines) {
        const double value = NumberFromText(text);
        const std::string prefix = NumericPrefix(text);
        const double expected = prefix.empty() ? 0 : std::strtod(prefix.c_str(), nullptr);
        // What is too small for a double is 0 here and a last denormal number there.
        Require(value == expected || (value == 0 && std::fabs(expected) < 1e-300));
        CheckField<std::int16_t>(text, value);
        CheckField<std::int32_t>(text, value);
        TextOfNumber(value);
    }
    const DefaultTexts defaults = {lines[0], lines[1], lines[2], lines[3], lines[4]};
    if (FirstFault(defaults).empty()) {
        Require(NumberFromText(lines[kOffset]) >= 0);
        Require(WholeNumberFromText<std::int16_t>(lines[kWidth]) % 8 == 0);
        Require(NumberFromText(lines[kLines]) >= 1 && NumberFromText(lines[kLines]) <= 192);
        Require(NumberFromText(lines[kColumns]) >= 1 && NumberFromText(lines[kColumns]) <= 16);
        Require(NumberFromText(lines[kAttribute]) >= 0 && NumberFromText(lines[kAttribute]) <= 127);
    }
    const SetupTexts setup{{"x", "", lines[0], lines[1], lines[2], lines[3], lines[4], lines[5]}, 1};
    if (!ValidateSettings(setup, 49179)) {
        AnimationRecord record;
        for (const SetupNumber& number : kSetupNumbers) {
            SetNumberAt(record, number.place, setup.fields[number.field]);
        }
        record.iZoom = 1;
        record.lFileLength = 49179;
        Require(HeldForUse(record, 49179) == record);
    }
    ProposedStep(lines[0], lines[1], kListedModes[size % kListedModes.size()]);
    LinesFieldInMode(lmk::kText, lines[0]);
    Require(NotesOnScreen(NotesInRecord(lines[0], lines[1])).find('\r') == std::string::npos);
    return 0;
}
