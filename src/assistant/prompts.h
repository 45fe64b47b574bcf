#pragma once

#include <QString>

#include <cstdint>

namespace lumrake {

class frmHelp;

/// What the assistant says to a help number of 1 and more: the prompt in LMKHELP.DAT of the program's
/// directory, which is opened, searched and closed at each call; words of his own when the file is missing or
/// can't be read, and when the number is not in it.
QString HelpPrompt(std::int32_t number);

/// Lets the assistant say the prompt of a help number; 0 and less empties his bubble. While he is off nothing
/// is read and nothing changes.
void ShowHelpPrompt(frmHelp& assistant, bool assistantOn, std::int32_t number);

} // namespace lumrake
