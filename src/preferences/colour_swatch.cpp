#include "preferences/colour_swatch.h"

#include "controls/screen_colour.h"
#include "controls/spoken.h"
#include "controls/whole_pixels.h"

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
