#pragma once

#include <QString>

namespace lumrake {

class frmMain;

// The run: how the program comes up and how it goes down.
//
//   Starting   the splash is up unless bSkipSplash; the main window is loaded and hidden; Settings are valid
//              once LoadSettings has run
//   Running    the main window is shown, everything happens in events
//   Closing    the children are asked one by one; a Cancel leads back to Running, else ShutDown ends the
//              process

/// The start procedure. `sCommandLine` is the whole command line behind the program's name; exactly "REHEARS"
/// leaves out the splash and its three seconds, everything else means nothing. Returns when the main window
/// is shown.
void Main(const QString& sCommandLine);

/// Sets the program-wide variables, loads the main window without showing it, reads the settings and brings
/// the window into line with them. Has no way of failing.
void Initialise();

/// The main window between Initialise and its destruction, else null.
frmMain* MainWindow();

/// The process: sets the toolkit up, runs Main and then the events.
int RunProgram(int argc, char** argv);

} // namespace lumrake
