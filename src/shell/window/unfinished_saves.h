#pragma once

namespace lumrake {

/// Brings to an end what saves of dead runs left: their temporary files go, and a save in place that was cut short is
/// offered to be finished. Called once the main window is shown, before anything is saved.
void FinishSaves();

/// The same for the settings, unasked, for they are the program's own. Called before they are read. Where that fails
/// FinishSaves offers it.
void FinishSavingSettings();

} // namespace lumrake
