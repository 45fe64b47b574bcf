#include "animation/rules/setup_rules.h"

#include "base/numbers.h"
#include "base/text_codec.h"

#include <algorithm>
#include <limits>

namespace lumrake {

namespace {

constexpr double kMost16 = std::numeric_limits<std::int16_t>::max();
constexpr double kMost32 = std::numeric_limits<std::int32_t>::max();

/// A field for a number: what is told when it is empty, which numbers pass and what is told about the others.
struct NumberTest {
    SetupField field;
    std::string SetupTexts::*text;
    const char* empty;
    double least, most;
    const char* outside; ///< below `least`, or above `most` as well when there is no `tooLarge`
    const char* tooLarge;
};

// clang-format off
// The fields that go by 16 or 32 bits take what fits; their messages about too small a number say "greater than",
// yet 1 passes for step and pause, as the proposed step of the smallest frame is 1.
constexpr NumberTest kWidthTest  = {SetupField::Width,  &SetupTexts::sWidth,  "Please enter width",           8, 256,
                                    "Width must be between 8 and 256", nullptr};
constexpr NumberTest kLinesTest  = {SetupField::Lines,  &SetupTexts::sLines,  "Please enter number of lines", 1, 192,
                                    "Lines must be between 1 and 192", nullptr};
constexpr NumberTest kFramesTest = {SetupField::Frames, &SetupTexts::sFrames, "Please enter number of frames", 2, kMost16,
                                    "Frames must be greater than 1", "Frames must be between 2 and 32767"};
constexpr NumberTest kStepTest   = {SetupField::Step,   &SetupTexts::sStep,   "Please enter frame step",      1, kMost32,
                                    "Step must be greater than 1", "Step must be between 1 and 2147483647"};
constexpr NumberTest kPauseTest  = {SetupField::Pause,  &SetupTexts::sPause,  "Please enter frame pause",     1, kMost16,
                                    "Pause must be greater than 1", "Pause must be between 1 and 32767"};
// clang-format on

double Number(const std::string& text) {
    return RoundHalfEven(NumberFromText(TrimBlanks(text)));
}

bool IsEmpty(const std::string& text) {
    return TrimBlanks(text).empty();
}

using Result = std::optional<SetupFault>;

Result TestNumber(const SetupTexts& texts, const NumberTest& test) {
    const std::string& text = texts.*test.text;
    if (IsEmpty(text)) {
        return SetupFault{test.field, test.empty};
    }
    const double value = Number(text);
    if (value < test.least) {
        return SetupFault{test.field, test.outside};
    }
    if (value > test.most) {
        return SetupFault{test.field, test.tooLarge != nullptr ? test.tooLarge : test.outside};
    }
    return std::nullopt;
}

Result TestSnapFile(const SetupTexts& texts, const std::optional<std::int64_t>& lSnapLength) {
    if (texts.sSnapFile.empty()) {
        return SetupFault{SetupField::SnapFile, "Snapshot filename must be entered"};
    }
    const SetupFault tooLong{SetupField::SnapFile,
                             "Snapshot filename must not be longer than 100 characters"};
    if (!lSnapLength) {
        return texts.bSnapFileCut ? tooLong : SetupFault{SetupField::SnapFile, "Cannot find specified file"};
    }
    // What the field would give back has to be the same path, or another file would be opened next time.
    if (!FixedString<100>::Fits(TrimBlanks(texts.sSnapFile))) {
        return tooLong;
    }
    return std::nullopt;
}

Result TestOffset(const SetupTexts& texts, std::int64_t lSnapLength) {
    if (IsEmpty(texts.sOffset)) {
        return SetupFault{SetupField::Offset, "Please enter file offset"};
    }
    const double value = Number(texts.sOffset);
    const std::int64_t last =
        std::min<std::int64_t>(lSnapLength - 1, std::numeric_limits<std::int32_t>::max());
    if (value > static_cast<double>(last) || value < 0) {
        return SetupFault{SetupField::Offset, "Address must be between 0 and length of specified file -1 (" +
                                                  std::to_string(last) + ")"};
    }
    return std::nullopt;
}

Result TestWidth(const SetupTexts& texts) {
    const bool whole = IsDivisible(HeldTo<std::int32_t>(Number(texts.sWidth)), 8) != 0;
    if (!IsEmpty(texts.sWidth) && !whole) {
        return SetupFault{SetupField::Width, "Width must be divisible by 8"};
    }
    return TestNumber(texts, kWidthTest);
}

Result TestRepeat(const SetupTexts& texts) {
    if (texts.iRepeatIndex < 0) {
        return SetupFault{SetupField::Repeat, "Select repeat type"};
    }
    return std::nullopt;
}

} // namespace

std::optional<SetupFault> ValidateSettings(const SetupTexts& texts, std::optional<std::int64_t> lSnapLength) {
    Result fault = TestSnapFile(texts, lSnapLength);
    const auto next = [&fault](Result result) {
        if (!fault) {
            fault = std::move(result);
        }
    };
    next(TestOffset(texts, lSnapLength.value_or(0)));
    next(TestWidth(texts));
    next(TestNumber(texts, kLinesTest));
    next(TestNumber(texts, kFramesTest));
    next(TestNumber(texts, kStepTest));
    next(TestRepeat(texts));
    next(TestNumber(texts, kPauseTest));
    return fault;
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
