#include "platform/colour_button.h"

#include <QPainter>

namespace lumrake {

ColourButton::ColourButton(QWidget* parent) : QToolButton(parent) {
    setFocusPolicy(Qt::StrongFocus);
}

void ColourButton::SetColour(const QColor& colour) {
    colour_ = colour;
    update();
}

void ColourButton::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.fillRect(rect(), colour_);
    painter.setPen(palette().color(isDown() ? QPalette::Dark : QPalette::Mid));
    painter.drawRect(rect().adjusted(0, 0, -1, -1));
    if (hasFocus()) {
        const QRect mark = rect().adjusted(1, 1, -2, -2);
        painter.setPen(Qt::white);
        painter.drawRect(mark);
        painter.setPen(QPen(Qt::black, 1, Qt::DotLine));
        painter.drawRect(mark);
    }
}

} // namespace lumrake
