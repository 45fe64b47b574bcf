#pragma once

#include <QFocusEvent>
#include <QMouseEvent>

#include <functional>
#include <utility>

namespace lumrake {

/// False for the focus that merely comes back with the window, or went to one of its own lists: the user did
/// not move to or from the control then.
inline bool IsMoveOfFocus(Qt::FocusReason reason) {
    return reason != Qt::ActiveWindowFocusReason && reason != Qt::PopupFocusReason;
}

/// A control of class `Base` that reports what prompts and status texts need. Mouse moves are reported with
/// or without a button held and go no further, so that the form under the control does not take them for its
/// own; a disabled control reports nothing and lets them through.
template <class Base> class Watched : public Base {
  public:
    template <class... Args> explicit Watched(Args&&... args) : Base(std::forward<Args>(args)...) {
        Base::setMouseTracking(true);
    }

    std::function<void()> GotFocus; ///< after the control has done its own part
    std::function<void()> LostFocus;
    std::function<void()> MouseMove;

  protected:
    bool event(QEvent* event) override {
        if (event->type() == QEvent::MouseMove && !Base::isEnabled()) {
            event->ignore(); // a disabled button of the toolkit would swallow it
            return false;
        }
        return Base::event(event);
    }
    void focusInEvent(QFocusEvent* event) override {
        Base::focusInEvent(event);
        if (GotFocus && IsMoveOfFocus(event->reason())) {
            GotFocus();
        }
    }
    void focusOutEvent(QFocusEvent* event) override {
        Base::focusOutEvent(event);
        if (LostFocus && IsMoveOfFocus(event->reason())) {
            LostFocus();
        }
    }
    void mouseMoveEvent(QMouseEvent* event) override {
        Base::mouseMoveEvent(event);
        if (MouseMove) {
            MouseMove();
        }
        event->accept();
    }
};

} // namespace lumrake
