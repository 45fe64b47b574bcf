#pragma once

#include <QBrush>
#include <QRect>

class QPainter;

namespace lumrake {

/// How thick a line becomes that is no whole number of device pixels: as near as possible, or no thicker, so that
/// what lies inside a frame of one logical pixel does not cover it.
enum class Line { Nearest, NoThicker };

/// Fills a frame along the inner edge of `frame`: the upper and the left side in one brush, the lower and the
/// right one, which have the corners that they share with the others, in another. Places and `thickness` are in
/// logical pixels. The lines are of whole device pixels, at least one, and equally thick on all sides; the frame of
/// a whole widget reaches just to its edges. (Lines of a pen lie astride the edges of their logical pixels, so
/// that on a dense screen some are thin, some thick, and some fall outside the widget.) A brush with a pattern has
/// dots as large as the line is thick.
void FillFrame(QPainter& painter, const QRect& frame, int thickness, const QBrush& upperLeft,
               const QBrush& lowerRight, Line line = Line::Nearest);
void FillFrame(QPainter& painter, const QRect& frame, int thickness, const QBrush& all,
               Line line = Line::Nearest);

} // namespace lumrake
