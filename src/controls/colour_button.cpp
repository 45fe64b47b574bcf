#include "controls/colour_button.h"

#include "controls/whole_pixels.h"

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
    FillFrame(painter, rect(), 1, isDown() ? palette().dark() : palette().mid());
    if (hasFocus()) {
        const QRect mark = rect().adjusted(1, 1, -1, -1);
        FillFrame(painter, mark, 1, Qt::white);
        FillFrame(painter, mark, 1, QBrush(Qt::black, Qt::Dense4Pattern));
    }
}

} // namespace lumrake
