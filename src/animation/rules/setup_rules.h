#pragma once

#include "animation/rules/animation_record.h"
#include "base/number_field.h"
#include "display/modes.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <optional>
#include <string>

namespace lumrake {

/// The fields of the setup dialog: its boxes for texts by their place in txtAnimSetup, and what else is tested.
enum SetupField : std::size_t {
    kSnapFileField,
    kTitleField,
    kOffsetField,
    kWidthField,
    kLinesField,
    kFramesField,
    kStepField,
    kPauseField,
    kTextFields,
    kRepeatField
};

/// What stands in the dialog, as far as it is tested. Texts are UTF-8, as typed.
struct SetupTexts {
    std::array<std::string, kTextFields> fields;
    int iRepeatIndex = -1;     ///< place in the list of repeat types, -1 for none
    bool bSnapFileCut = false; ///< the file name is what the field took of a longer name
};

/// The number that a box stands for.
struct SetupNumber {
    SetupField field;
    NumberPlace<AnimationRecord> place;
};
inline constexpr SetupNumber kSetupNumbers[] = {
    {kOffsetField, &AnimationRecord::lOffset}, {kWidthField, &AnimationRecord::iWidth},
    {kLinesField, &AnimationRecord::iLines},   {kFramesField, &AnimationRecord::iFrames},
    {kStepField, &AnimationRecord::lStep},     {kPauseField, &AnimationRecord::iPause},
};

/// The first fault found, and what the user is told about it.
struct SetupFault {
    SetupField field;
    std::string sMessage;
};

/// Tests the fields from the file name to the pause and gives the first fault, or nothing when all is well.
/// `lSnapLength` is the length in bytes of the file that the dialog names, nothing when there is no such file.
/// A text that does not begin with a number counts as 0; numbers are rounded to whole ones, a half to the
/// even neighbour. A number that passes fits its field of the record.
std::optional<SetupFault> ValidateSettings(const SetupTexts& texts, std::optional<std::int64_t> lSnapLength);

/// The step to propose when width or lines were left: that of frames which stand close together.
std::string ProposedStep(const std::string& sWidth, const std::string& sLines, std::int16_t iMode);

/// Modes in the order of the dialog's list, and the place of a mode in it, -1 for a mode without one.
inline constexpr auto kListedModeCount = static_cast<std::size_t>(std::count_if(
    lmk::kModes.begin(), lmk::kModes.end(), [](const lmk::ModeRow& mode) { return mode.playable; }));
constexpr std::array<std::int16_t, kListedModeCount> ListedModes() {
    std::array<std::int16_t, kListedModeCount> listed{};
    std::size_t place = 0;
    for (std::int16_t iMode = 0; place < listed.size(); ++iMode) {
        if (lmk::RowOf(iMode).playable) {
            listed[place++] = iMode;
        }
    }
    return listed;
}
inline constexpr auto kListedModes = ListedModes();
int ModeIndex(std::int16_t iMode);

/// Notes with the line breaks of the screen (LF) from those of the record: CR LF; a CR or LF alone counts as one
/// too.
std::string NotesOnScreen(std::string_view record);
/// Notes of the screen as the record takes them, with CR LF. Where they do not fit so, and came out of a record
/// (`old`, as it is read) that has shorter line breaks, they get LF alone.
std::string NotesInRecord(std::string_view screen, std::string_view old);

} // namespace lumrake
