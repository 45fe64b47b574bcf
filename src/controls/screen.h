#pragma once

class QWidget;

namespace lumrake {

/// Shows the hourglass while it lives, on every road out of a procedure. May be nested.
class HourglassScope {
  public:
    HourglassScope();
    ~HourglassScope();
    HourglassScope(const HourglassScope&) = delete;
    HourglassScope& operator=(const HourglassScope&) = delete;
};

enum class Events {
    Everything,  ///< painting, timers and the user's input
    NoUserInput, ///< painting and timers; keys and mouse wait, so that no command starts inside a command
};

/// Lets the pending events run once and comes back.
void DoEvents(Events which);

/// The window that a box or dialog belongs to and stays in front of: the active one. None is active while
/// another program is in front and just after a dialog closed: then the open modal dialog or, without one, the
/// main window. Null before the main window shows.
QWidget* DialogOwner();

// The frame of a window is not known before it shows. Both of these take the frame of the window that it belongs to
// for its own until then, and look again when it first becomes active.

/// Puts a window, its frame included, into the middle of the whole screen it is on.
void CentreOnScreen(QWidget& window);

/// Moves a window, its frame included, into what its screen has free, and makes it as small as it may get where it
/// does not fit. One that is too large even then loses its right and lower edge.
void HoldOnScreen(QWidget& window);

/// Fixes the look that the forms are laid out for: the widget style and the font, in logical pixels; and that a control
/// that moved is painted anew. Before the first window.
void PinLook();

} // namespace lumrake
