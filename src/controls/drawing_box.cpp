#include "controls/drawing_box.h"

#include "controls/pictures.h"

#include <QPainter>

namespace lumrake {

DrawingBox::DrawingBox(const QString& name, QSize size, QWidget* parent, Qt::WindowFlags flags)
    : QWidget(parent, flags), name_(name) {
    setFixedSize(size);
    setMouseTracking(true);
}

void DrawingBox::paintEvent(QPaintEvent*) {
    if (drawn_.isNull() || drawn_.devicePixelRatio() != devicePixelRatioF()) {
        drawn_ = LoadPicture(name_, size(), devicePixelRatioF());
    }
    QPainter(this).drawPixmap(0, 0, drawn_);
}

} // namespace lumrake
