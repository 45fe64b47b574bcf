#pragma once

namespace lumrake {

/// Brings to an end what saves of dead runs left: their temporary files go, and a save in place that was cut short is
/// offered to be finished. Called once the main window is shown, before anything is saved.
void FinishSaves();

} // namespace lumrake
