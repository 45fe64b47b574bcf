#pragma once

#include "controls/picture_box.h"

#include <QFocusEvent>
#include <QObject>

#include <cstdint>
#include <functional>

namespace lumrake {

/// False for the focus that merely comes back with the window, or went to one of its own lists: the user did
/// not move to or from the control then.
inline bool IsMoveOfFocus(Qt::FocusReason reason) {
    return reason != Qt::ActiveWindowFocusReason && reason != Qt::PopupFocusReason;
}

/// The events on which a control hands its help number on.
enum SpeaksOn : unsigned {
    kOnMove = 1, ///< of the mouse over it, with or without a button held
    kOnFocus = 2,
    kOnRelease = 4,     ///< of a mouse button
    kDisabledAsWell = 8 ///< else a disabled control lets the moves through to what lies under it
};

/// What a form wants to know of a control beside what the control does itself; nobody needs a class of control for
/// it. A move of the mouse over a control that speaks at all counts for nothing under it, whether the control uses it
/// or not. One that speaks on moves, or has a handler for them, gets those without a button as well. Side buttons of the
/// mouse are left out.
class Watcher : public QObject {
  public:
    explicit Watcher(QWidget* control);

    MouseHandler MouseDown, MouseMove, MouseUp; ///< before the control's own part
    std::function<void()> GotFocus, LostFocus;  ///< after the control's own part
    std::int32_t help = 0;
    unsigned speaksOn = 0; ///< SpeaksOn
    /// For a control of several parts: the help number at a place, in logical pixels of the control.
    std::function<std::int32_t(QPoint)> HelpAt;

    /// Does what the focus does when it comes, for one that comes without a word of its own: with its window.
    void TellFocus();

    bool eventFilter(QObject* control, QEvent* event) override;

  private:
    bool Moved(QWidget& control, QMouseEvent& event);
};

/// The one watcher of a control, which lives as long as the control.
Watcher& Watch(QWidget* control);

/// The control hands this help number on; 0 empties the assistant's bubble.
void SetHelp(QWidget* control, std::int32_t number, unsigned speaksOn = kOnMove);
/// The same for a control whose parts have numbers of their own.
void SetHelpAt(QWidget* control, std::function<std::int32_t(QPoint)> helpAt);

/// Who gets the help numbers; nobody at first.
void SetHelpReceiver(void (*receiver)(std::int32_t number));

} // namespace lumrake
