/// Any text as a number: what is read is what the C library reads, it stays inside the field it goes to, and the
/// texts that pass the tests of the setup dialog hold numbers in their limits. The lines of the input are the fields of a
/// dialog.
#include "animation/setup_rules.h"
#include "fuzz/require.h"
#include "platform/numbers.h"
#include "preferences/prefs_rules.h"

#include <algorithm>
#include <array>
#include <sstream>
#include <string>

using namespace lumrake;

namespace {

template <class Field> void CheckField(const std::string& text, double value) {
    using Limits = std::numeric_limits<Field>;
    const double held = WholeNumberFromText<Field>(text);
    Require(std::fabs(held - std::clamp<double>(value, Limits::min(), Limits::max())) <= 0.5);
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
        // Other characters begin what is a number to the C library alone.
        if (text.find_first_not_of("0123456789+-.eE ,;") == std::string::npos) {
            const double expected = std::strtod(text.c_str(), nullptr);
            // What is too small for a double is 0 here and a last denormal number there.
            Require(value == expected || (value == 0 && std::fabs(expected) < 1e-300));
        }
        CheckField<std::int16_t>(text, value);
        CheckField<std::int32_t>(text, value);
        TextOfNumber(value);
    }
    const SetupTexts setup{"x", lines[0], lines[1], lines[2], lines[3], lines[4], lines[5], 1};
    if (!ValidateSettings(setup, 49179)) {
        AnimationRecord record;
        record.lOffset = WholeNumberFromText<std::int32_t>(setup.sOffset);
        record.iWidth = WholeNumberFromText<std::int16_t>(setup.sWidth);
        record.iLines = WholeNumberFromText<std::int16_t>(setup.sLines);
        record.iFrames = WholeNumberFromText<std::int16_t>(setup.sFrames);
        record.lStep = WholeNumberFromText<std::int32_t>(setup.sStep);
        record.iPause = WholeNumberFromText<std::int16_t>(setup.sPause);
        record.iZoom = 1;
        record.lFileLength = 49179;
        Require(HeldForUse(record, 49179) == record);
    }
    ProposedStep(lines[0], lines[1], kListedModes[size % kListedModes.size()]);
    TextModeLines(lines[0]);
    Require(NotesOnScreen(NotesInRecord(lines[0])).find('\r') == std::string::npos);
    return 0;
}
