#include "controls/watch.h"

#include <QMouseEvent>
#include <QPointer>
#include <QWidget>

#include <utility>

namespace lumrake {

namespace {

void (*receiver)(std::int32_t) = nullptr;

/// The move that was spoken on last. The toolkit hands a move that a control has no use for to what lies under it.
struct SpokenMove {
    QPointer<const QWidget> by;
    quint64 timestamp = 0;
    QPointF place;
} spoken;

bool WasSpokenAbove(const QWidget& control, const QMouseEvent& event) {
    return spoken.by && spoken.by != &control && control.isAncestorOf(spoken.by) &&
           spoken.timestamp == event.timestamp() && spoken.place == event.globalPosition();
}

void Speak(std::int32_t number) {
    if (receiver != nullptr) {
        receiver(number);
    }
}

} // namespace

Watcher::Watcher(QWidget* control) : QObject(control) {
    control->setMouseTracking(true);
    control->installEventFilter(this);
}

bool Watcher::eventFilter(QObject* control, QEvent* event) {
    const auto hand = [event](const MouseHandler& handler) {
        const auto& mouse = static_cast<const QMouseEvent&>(*event);
        if (handler && IsKnownButton(mouse)) {
            handler(MouseArgsOf(mouse, static_cast<int>(mouse.button())));
        }
    };
    switch (event->type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick: hand(MouseDown); return false;
    case QEvent::MouseButtonRelease:
        hand(MouseUp);
        if ((speaksOn & kOnRelease) != 0) {
            Speak(help);
        }
        return false;
    case QEvent::MouseMove: return Moved(static_cast<QWidget&>(*control), static_cast<QMouseEvent&>(*event));
    case QEvent::FocusIn:
    case QEvent::FocusOut: {
        const bool in = event->type() == QEvent::FocusIn;
        const auto& handler = in ? GotFocus : LostFocus;
        const bool speaks = in && (speaksOn & kOnFocus) != 0;
        if (!(handler || speaks) || !IsMoveOfFocus(static_cast<QFocusEvent*>(event)->reason()) ||
            !static_cast<QWidget*>(control)->isVisible()) { // then its form is closed, and may be half gone
            return false;
        }
        const QPointer<Watcher> here(this);
        control->event(event);
        if (here && in) {
            TellFocus();
        } else if (here) {
            LostFocus();
        }
        return true;
    }
    default: return false;
    }
}

bool Watcher::Moved(QWidget& control, QMouseEvent& event) {
    const bool counts = HelpAt || speaksOn != 0;
    if (counts && WasSpokenAbove(control, event)) {
        event.accept();
        return true;
    }
    if (counts && !control.isEnabled() && (speaksOn & kDisabledAsWell) == 0) {
        event.ignore(); // a disabled button of the toolkit would swallow it
        return true;
    }
    if (MouseMove) {
        MouseMove(MouseArgsOf(event, static_cast<int>(event.buttons())));
    }
    if (counts) {
        spoken = {&control, event.timestamp(), event.globalPosition()};
    }
    if (HelpAt || (speaksOn & kOnMove) != 0) {
        Speak(HelpAt ? HelpAt(event.position().toPoint()) : help);
    }
    return false;
}

void Watcher::TellFocus() {
    const bool speaks = (speaksOn & kOnFocus) != 0;
    const std::int32_t number = help;
    if (GotFocus) {
        GotFocus();
    }
    if (speaks) {
        Speak(number);
    }
}

Watcher& Watch(QWidget* control) {
    for (QObject* child : control->children()) {
        if (auto* watcher = dynamic_cast<Watcher*>(child)) {
            return *watcher;
        }
    }
    return *new Watcher(control);
}

void SetHelp(QWidget* control, std::int32_t number, unsigned speaksOn) {
    Watch(control).help = number;
    Watch(control).speaksOn = speaksOn;
}

void SetHelpAt(QWidget* control, std::function<std::int32_t(QPoint)> helpAt) {
    Watch(control).HelpAt = std::move(helpAt);
}

void SetHelpReceiver(void (*newReceiver)(std::int32_t)) {
    receiver = newReceiver;
}

} // namespace lumrake
