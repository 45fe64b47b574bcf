#pragma once

namespace lumrake {

/// Asks about each document that a program which has ended kept without saving it, and brings back those that the user
/// wants, each in a window of its own. Called once the main window is shown; nothing happens where nothing was kept.
void OfferRecoveries();

} // namespace lumrake
