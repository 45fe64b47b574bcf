#pragma once

namespace lumrake {

class frmMain;

/// From now on an end that comes from outside loses nothing. Told to end by a signal, the program keeps what no
/// document has saved for the next start, writes the settings and ends, without a question and whatever box is open;
/// a second signal ends it at once. When the session is to end the changed documents ask first, where the system and
/// the preferences let them, and Cancel stops the end of the session; the program ends when it is told to. Called
/// once, when the toolkit is set up; `mainWindow` gives null before there is one.
void WatchForOutsideEnd(frmMain* (*mainWindow)());

} // namespace lumrake
