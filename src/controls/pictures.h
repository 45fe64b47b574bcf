#pragma once

#include <QCursor>
#include <QIcon>
#include <QPixmap>
#include <QSize>
#include <QString>

namespace lumrake {

/// A drawing from the program's resources ("toolbar/open.svg"), sharp at 1x and on the finest screen.
/// `size` is in logical pixels.
QIcon LoadIcon(const QString& name, QSize size);

/// The same as one picture at the given device pixel ratio. On Linux the drawing itself is drawn at that size; on
/// Windows, where the toolkit is built without its part for drawings, the next larger of the sizes that were drawn
/// while building (1, 1.5, 2, 3 and 4 times) is scaled down to it.
QPixmap LoadPicture(const QString& name, QSize size, qreal devicePixelRatio);

/// The mouse cursor of a tool (1 to 5), 32 x 32 with its hot spot in the middle.
QCursor DrawCursor(int tool, qreal devicePixelRatio);

} // namespace lumrake
