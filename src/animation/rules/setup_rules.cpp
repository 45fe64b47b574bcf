#include "animation/rules/setup_rules.h"

#include "base/numbers.h"
#include "base/text_codec.h"

#include <algorithm>
#include <limits>

namespace lumrake {

namespace {

constexpr double kMost16 = std::numeric_limits<std::int16_t>::max();
constexpr double kMost32 = std::numeric_limits<std::int32_t>::max();

struct FieldTest {
    SetupField field;
    NumberTest test;
};

// clang-format off
// The fields that go by 16 or 32 bits take what fits; their messages about too small a number say "greater than",
// yet 1 passes for step and pause, as the proposed step of the smallest frame is 1. The list of repeat types is tested
// between step and pause.
constexpr FieldTest kTests[] = {
    {kWidthField,  {"Please enter width",            lmk::kLeastWidth, lmk::kMostWidth, "Width must be between 8 and 256", nullptr, 8, "Width must be divisible by 8", true}},
    {kLinesField,  {"Please enter number of lines",  1, lmk::kScreenLines, "Lines must be between 1 and 192", nullptr,                             0, "", true}},
    {kFramesField, {"Please enter number of frames", 2, kMost16, "Frames must be greater than 1",   "Frames must be between 2 and 32767",    0, "", true}},
    {kStepField,   {"Please enter frame step",       1, kMost32, "Step must be greater than 1",     "Step must be between 1 and 2147483647", 0, "", true}},
    {kRepeatField, {}},
    {kPauseField,  {"Please enter frame pause",      1, kMost16, "Pause must be greater than 1",    "Pause must be between 1 and 32767",     0, "", true}},
};
// clang-format on

std::string_view FaultOfSnapFile(const SetupTexts& texts, const std::optional<std::int64_t>& lSnapLength) {
    constexpr std::string_view kTooLong = "Snapshot filename must not be longer than 100 characters";
    const std::string& sFile = texts.fields[kSnapFileField];
    if (sFile.empty()) {
        return "Snapshot filename must be entered";
    }
    if (!lSnapLength) {
        return texts.bSnapFileCut ? kTooLong : "Cannot find specified file";
    }
    // What the field would give back has to be the same path, or another file would be opened next time.
    return FixedString<100>::Fits(TrimBlanks(sFile)) ? std::string_view() : kTooLong;
}

std::string FaultOfOffset(std::string_view sOffset, std::int64_t lSnapLength) {
    const std::int64_t last =
        std::min<std::int64_t>(lSnapLength - 1, std::numeric_limits<std::int32_t>::max());
    const std::string sOutside =
        "Address must be between 0 and length of specified file -1 (" + std::to_string(last) + ")";
    return std::string(FaultOf(sOffset, {.missing = "Please enter file offset",
                                         .least = 0,
                                         .most = static_cast<double>(last),
                                         .outside = sOutside.c_str(),
                                         .rounded = true}));
}

} // namespace

std::optional<SetupFault> ValidateSettings(const SetupTexts& texts, std::optional<std::int64_t> lSnapLength) {
    if (const auto fault = FaultOfSnapFile(texts, lSnapLength); !fault.empty()) {
        return SetupFault{kSnapFileField, std::string(fault)};
    }
    if (std::string fault = FaultOfOffset(texts.fields[kOffsetField], lSnapLength.value_or(0));
        !fault.empty()) {
        return SetupFault{kOffsetField, std::move(fault)};
    }
    for (const FieldTest& each : kTests) {
        const std::string_view unlisted = texts.iRepeatIndex < 0 ? "Select repeat type" : "";
        const auto fault =
            each.field == kRepeatField ? unlisted : FaultOf(texts.fields[each.field], each.test);
        if (!fault.empty()) {
            return SetupFault{each.field, std::string(fault)};
        }
    }
    return std::nullopt;
}

std::string ProposedStep(const std::string& sWidth, const std::string& sLines, std::int16_t iMode) {
    return TextOfNumber(static_cast<double>(FrameBytes(iMode, WholeNumberFromText<std::int16_t>(sWidth),
                                                       WholeNumberFromText<std::int16_t>(sLines))));
}

int ModeIndex(std::int16_t iMode) {
    const auto place = std::find(kListedModes.begin(), kListedModes.end(), iMode);
    return place == kListedModes.end() ? -1 : static_cast<int>(place - kListedModes.begin());
}

std::string NotesOnScreen(std::string_view record) {
    std::string screen;
    for (std::size_t i = 0; i < record.size(); ++i) {
        const bool pair = record[i] == '\r' && i + 1 < record.size() && record[i + 1] == '\n';
        if (!pair) {
            screen.push_back(record[i] == '\r' ? '\n' : record[i]);
        }
    }
    return screen;
}

std::string NotesInRecord(std::string_view screen, std::string_view old) {
    const auto withBothCodes = [](std::string_view text) {
        std::string record;
        for (const char character : text) {
            record.append(character == '\n' ? 1 : 0, '\r').push_back(character);
        }
        return record;
    };
    std::string record = withBothCodes(screen);
    const bool shorter = withBothCodes(NotesOnScreen(old)) != old;
    return shorter && !decltype(AnimationRecord::sNotes)::Fits(record) ? std::string(screen) : record;
}

} // namespace lumrake
