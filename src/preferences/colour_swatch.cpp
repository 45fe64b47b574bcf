#include "preferences/colour_swatch.h"

#include "controls/screen_colour.h"
#include "controls/spoken.h"
#include "controls/whole_pixels.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>

namespace lumrake {

ColourSwatch::ColourSwatch(QWidget* parent) : QWidget(parent) {
    SetSpoken(this, {.role = QAccessible::Button, .actions = {{"Press", [this] { Click(); }}}});
}

void ColourSwatch::SetBackColor(Colour colour) {
    colour_ = colour;
    update();
}

void ColourSwatch::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.fillRect(rect(), ScreenColour(colour_));
    // A line of middle grey keeps white apart from a light ground and black from the marker around it.
    FillFrame(painter, rect(), 1, QColor(128, 128, 128));
    if (hasFocus()) {
        FillFrame(painter, rect(), 2, Qt::white);
        FillFrame(painter, rect(), 2, QBrush(Qt::black, Qt::Dense4Pattern));
    }
}

void ColourSwatch::keyPressEvent(QKeyEvent* event) {
    switch (event->key()) {
    case Qt::Key_Space: Click(); break;
    case Qt::Key_Left: Walk(-1); break;
    case Qt::Key_Right: Walk(1); break;
    case Qt::Key_Up: Walk(-4); break;
    case Qt::Key_Down: Walk(4); break;
    default: QWidget::keyPressEvent(event);
    }
}

void ColourSwatch::mousePressEvent(QMouseEvent* event) {
    event->accept(); // the release comes here only after that
}

void ColourSwatch::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton && rect().contains(event->position().toPoint()) && Click) {
        Click();
    }
}

SwatchMarker::SwatchMarker(QWidget* parent) : QWidget(parent) {
    setAttribute(Qt::WA_TransparentForMouseEvents);
}

void SwatchMarker::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    FillFrame(painter, rect(), 1, palette().windowText());
}

} // namespace lumrake
