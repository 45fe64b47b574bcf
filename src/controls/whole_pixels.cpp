#include "controls/whole_pixels.h"

#include <QPainter>
#include <QTransform>

#include <algorithm>

namespace lumrake {

void FillFrame(QPainter& painter, const QRect& frame, int thickness, const QBrush& upperLeft,
               const QBrush& lowerRight, Line rounding) {
    const QTransform toDevice = painter.deviceTransform();
    const QRect outer = toDevice.mapRect(QRectF(frame)).toRect(); // rounded as the toolkit rounds its clips
    const double exact = thickness * toDevice.m11();
    const int line = std::max(1, rounding == Line::Nearest ? qRound(exact) : static_cast<int>(exact));
    const QRect inner = outer.adjusted(line, line, -line, -line);
    const auto fill = [&painter, line](const QRect& side, QBrush brush) {
        brush.setTransform(QTransform::fromScale(line, line));
        painter.fillRect(side, brush);
    };
    painter.save();
    painter.setWorldTransform(toDevice.inverted() * painter.worldTransform()); // counts in device pixels
    painter.setRenderHint(QPainter::NonCosmeticBrushPatterns); // lets patterns take part in the scale
    fill({outer.left(), outer.top(), outer.width() - line, line}, upperLeft);
    fill({outer.left(), inner.top(), line, inner.height()}, upperLeft);
    fill({inner.right() + 1, outer.top(), line, outer.height() - line}, lowerRight);
    fill({outer.left(), inner.bottom() + 1, outer.width(), line}, lowerRight);
    painter.restore();
}

void FillFrame(QPainter& painter, const QRect& frame, int thickness, const QBrush& all, Line rounding) {
    FillFrame(painter, frame, thickness, all, all, rounding);
}

} // namespace lumrake
