// What helps to aim: the lines about the byte under the cell or the mouse, and the grid.

#include "snapshot/frmSnapshot.h"

#include "controls/value_box.h"
#include "snapshot/rules/view_limits.h"

#include <QApplication>
#include <QFontMetrics>
#include <QPainter>
#include <QPushButton>
#include <QTimerEvent>

#include <algorithm>
#include <string>

namespace lumrake {

namespace {

constexpr int kLeastGridFactor = 8;
constexpr int kByteLine = 17, kByteText = 10; // height of a line about a byte, and of its text
constexpr int kByteDelay = 40;                // milliseconds until they are painted

} // namespace

void frmSnapshot::ShowByte() {
    if (!byteDelay.isActive() && PointedByte() != shownByte) { // a stroke asks for this at every pixel
        byteDelay.start(kByteDelay, this);
    }
}

std::optional<ByteUnder> frmSnapshot::PointedByte() const {
    const bool bCell = cell.bByKeys && picImage->hasFocus();
    if (!bCell && (cell.bByKeys || !cell.bMouseOver)) {
        return std::nullopt;
    }
    const MouseArgs mouse{0, static_cast<float>(cell.iMouseLeft - picImage->x()),
                          static_cast<float>(cell.iMouseTop - picImage->y())};
    const auto pixel = bCell ? HeldInside(view, Cell().x, Cell().y) : PixelUnder(view, mouse.X, mouse.Y);
    return pixel ? std::optional(ByteAt(document.Bytes(), view, *pixel)) : std::nullopt;
}

void frmSnapshot::timerEvent(QTimerEvent*) {
    byteDelay.stop();
    shownByte = PointedByte();
    update(ByteLinesPlace());
}

/// Between the columns and the options: as many lines as there is room for.
QRect frmSnapshot::ByteLinesPlace() const {
    const QRect above = txtValue[kColumnsValue]->geometry();
    const int lines = std::clamp((cmdOptions->y() - above.bottom() - 1) / kByteLine, 0, 3);
    return {above.left(), above.bottom() + 1, cmdOptions->width(), lines * kByteLine};
}

void frmSnapshot::PaintByteLines(QPainter& painter) const {
    if (!shownByte) {
        return;
    }
    const QRect place = ByteLinesPlace();
    QRect line(place.topLeft(), QSize(place.width(), kByteLine));
    for (const std::string& text : LinesOf(*shownByte)) {
        const QString shown = QString::fromStdString(text);
        QFont small = font();
        small.setPixelSize(kByteText);
        const int width = std::max(QFontMetrics(small).horizontalAdvance(shown), 1);
        small.setStretch(std::min(100, 100 * line.width() / width)); // numbers of ten digits too
        painter.setFont(small);
        painter.drawText(line, Qt::AlignLeft | Qt::AlignVCenter, place.contains(line) ? shown : QString());
        line.translate(0, kByteLine);
    }
}

/// The grid is one for all windows.
void frmSnapshot::ToggleGrid() {
    bGrid = !bGrid;
    for (QWidget* each : QApplication::allWidgets()) {
        if (auto* picture = dynamic_cast<PictureBox*>(each)) {
            picture->update();
        }
    }
}

void frmSnapshot::PaintGrid(QPainter& painter, const QRect& exposed) const {
    const int z = view.iZoomFactor;
    if (!bGrid || z < kLeastGridFactor) {
        return;
    }
    // A quarter of the way between the two colours: seen on both, and a net that inverts it is seen on the lines.
    const lmk::BitPicture& picture = picImage->hDC().Picture();
    const auto mixed = [](int ink, int paper) { return (ink + 3 * paper) / 4; };
    const QRgb ink = picture.foreColour, paper = picture.backColour;
    const QColor line(mixed(qRed(ink), qRed(paper)), mixed(qGreen(ink), qGreen(paper)),
                      mixed(qBlue(ink), qBlue(paper)));
    const auto thickness = [](int pixel) { return pixel % 8 == 0 ? 2 : 1; };
    for (int x = exposed.left() / z; x * z <= exposed.right(); ++x) {
        painter.fillRect(QRect(x * z, exposed.top(), thickness(x), exposed.height()) & exposed, line);
    }
    for (int y = exposed.top() / z; y * z <= exposed.bottom(); ++y) {
        painter.fillRect(QRect(exposed.left(), y * z, exposed.width(), thickness(y)) & exposed, line);
    }
}

} // namespace lumrake
