#include "controls/mouse_filter.h"

#include <QMouseEvent>

namespace lumrake {

MouseFilter::MouseFilter(QWidget* watched) : QObject(watched) {
    watched->setMouseTracking(true);
    watched->installEventFilter(this);
}

bool MouseFilter::eventFilter(QObject*, QEvent* event) {
    const auto hand = [event](const MouseHandler& handler, bool held) {
        const auto* mouse = static_cast<const QMouseEvent*>(event);
        if (handler && (held || IsKnownButton(*mouse))) {
            handler(MouseArgsOf(*mouse, static_cast<int>(held ? mouse->buttons() : mouse->button())));
        }
    };
    switch (event->type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick: hand(MouseDown, false); break;
    case QEvent::MouseMove: hand(MouseMove, true); break;
    case QEvent::MouseButtonRelease: hand(MouseUp, false); break;
    default: break;
    }
    return false;
}

} // namespace lumrake
