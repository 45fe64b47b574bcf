// The picture by keyboard. A cell cursor stands for the mouse: whatever it does goes the way of the mouse's events, so
// that the tools know nothing of keys. snapshot/rules/cell.h says where it stands.
#include "snapshot/frmSnapshot.h"

#include "base/numbers.h"
#include "controls/whole_pixels.h"
#include "shell/shell.h"

#include <QFocusEvent>
#include <QKeyEvent>
#include <QPainter>
#include <QRegion>

#include <tuple>

namespace lumrake {

namespace {

constexpr std::int16_t kLeft = 1, kRight = 2; // mouse buttons
constexpr int kLongStep = 8;
constexpr int kCellFrame = 2; // lines round the cell, one dark and one light, in logical pixels

// clang-format off
constexpr std::tuple<int, int, int> kSteps[] = { // key, across, down
    {Qt::Key_Left, -1, 0}, {Qt::Key_Right, 1, 0}, {Qt::Key_Up, 0, -1}, {Qt::Key_Down, 0, 1},
};
// clang-format on

/// The mouse button that a key stands for; 0 for none.
std::int16_t ButtonOf(int key) {
    return key == Qt::Key_Space ? kLeft : key == Qt::Key_Backspace ? kRight : std::int16_t{0};
}

} // namespace

void frmSnapshot::ConnectKeys() {
    for (QWidget* control : {static_cast<QWidget*>(picImage), picContainer}) {
        control->installEventFilter(this);
    }
}

PicturePixel frmSnapshot::Cell() const {
    const bool bNet = iCurrentTool == kToolNet && cell.iButtons != 0;
    return cell.In(view, picImage->x(), picImage->y(), bNet ? 1 : 0);
}

std::optional<PixelAddress> frmSnapshot::CellAddress() const {
    return AddressIn(byMemory.size(), view, HeldInside(view, Cell().x, Cell().y));
}

MouseArgs frmSnapshot::AtCell(std::int16_t Button) const {
    const auto z = static_cast<float>(view.iZoomFactor);
    return {Button, static_cast<float>(Cell().x) * z, static_cast<float>(Cell().y) * z};
}

bool frmSnapshot::CellPans() const {
    return iCurrentTool == kToolPan && cell.iButtons != 0;
}

void frmSnapshot::MoveCell(std::int32_t x, std::int32_t y) {
    cell.bByKeys = true;
    cell.pixel = {x, y};
    cell.pixel = Cell();
    MouseArgs args = AtCell(cell.iButtons);
    if (CellPans()) { // the mouse goes on beyond the edges, and the picture with it
        args.X = static_cast<float>(x * view.iZoomFactor);
        args.Y = static_cast<float>(y * view.iZoomFactor);
    } else {
        BringCellIntoSight();
    }
    const QPoint before = picImage->pos();
    picImage_MouseMove(args);
    if (CellPans()) { // the pixel that was gripped came along
        const QPoint moved = (picImage->pos() - before) / view.iZoomFactor;
        cell.pixel = {x - moved.x(), y - moved.y()};
    }
    ShowCell();
}

void frmSnapshot::PressAtCell(std::int16_t Button) {
    if ((cell.iButtons & Button) != 0 || picImage->IsPressed()) {
        return;
    }
    MoveCell(Cell().x, Cell().y); // a mouse is there before it presses
    if (IsPlacing()) {            // the block hangs at the cell; what drops it holds nothing
        imgClip_MouseDown(AtCell(Button));
    } else {
        cell.iButtons = static_cast<std::int16_t>(cell.iButtons | Button);
        picImage_MouseDown(AtCell(Button));
    }
    if (!CellPans()) {
        BringCellIntoSight(); // the zoom may have changed
    }
    ShowCell();
}

void frmSnapshot::ReleaseAtCell(std::int16_t Button) {
    if ((cell.iButtons & Button) != 0) {
        cell.iButtons = static_cast<std::int16_t>(cell.iButtons & ~Button);
        picImage_MouseUp(AtCell(Button));
        ShowCell();
    }
}

void frmSnapshot::BringCellIntoSight() {
    const int z = view.iZoomFactor;
    SetPosition(PannedToShow(picImage->x(), Cell().x * z, z, picContainer->width()),
                PannedToShow(picImage->y(), Cell().y * z, z, picContainer->height()));
}

void frmSnapshot::MouseComes(const MouseArgs& args) {
    cell.bByKeys = false;
    cell.iMouseLeft = HeldTo<std::int32_t>(args.X) + picImage->x();
    cell.iMouseTop = HeldTo<std::int32_t>(args.Y) + picImage->y();
    ShowCell();
}

void frmSnapshot::ShowCell() {
    TellPicture();
    const bool bShown = cell.bByKeys && picImage->hasFocus();
    const int z = view.iZoomFactor;
    const QRect frame = bShown ? QRect(picImage->pos() + QPoint(Cell().x, Cell().y) * z, QSize(z, z))
                                     .adjusted(-kCellFrame, -kCellFrame, kCellFrame, kCellFrame)
                               : QRect();
    if (frame == cellFrame) {
        return;
    }
    const QRegion touched = QRegion(cellFrame) + frame;
    cellFrame = frame;
    picImage->UpdateArea(touched.translated(-picImage->pos()));
    picContainer->update(touched); // what reaches over the picture's edges
}

void frmSnapshot::PaintCell(QPainter& painter, const QPoint& corner) const {
    if (!cellFrame.isEmpty()) {
        const QRect outer = cellFrame.translated(-corner);
        FillFrame(painter, outer, 1, Qt::black, Line::NoThicker);
        FillFrame(painter, outer.adjusted(1, 1, -1, -1), 1, Qt::white, Line::NoThicker);
    }
}

/// What a key does on the picture; false for one that it has no use for.
bool frmSnapshot::picImage_KeyDown(const QKeyEvent& key) {
    const Qt::KeyboardModifiers with = key.modifiers() & ~Qt::KeypadModifier;
    const bool bLong = with == Qt::ControlModifier;
    if (with != Qt::NoModifier && !bLong) {
        return false;
    }
    for (const auto& [code, across, down] : kSteps) {
        if (key.key() == code) {
            const int step = bLong ? kLongStep : 1;
            MoveCell(Cell().x + across * step, Cell().y + down * step);
            return true;
        }
    }
    if (key.key() == Qt::Key_Home || key.key() == Qt::Key_End) {
        MoveCell(key.key() == Qt::Key_Home ? 0 : view.PictureWidth(), Cell().y);
        return true;
    }
    if (const std::int16_t Button = ButtonOf(key.key()); Button != 0 && !bLong) {
        if (!key.isAutoRepeat()) {
            PressAtCell(Button);
        }
        return true;
    }
    return false;
}

bool frmSnapshot::eventFilter(QObject* control, QEvent* event) {
    const bool bPicture = control == picImage;
    switch (event->type()) {
    case QEvent::KeyPress: return bPicture && picImage_KeyDown(static_cast<QKeyEvent&>(*event));
    case QEvent::KeyRelease:
        if (const auto& key = static_cast<QKeyEvent&>(*event); bPicture && !key.isAutoRepeat()) {
            ReleaseAtCell(ButtonOf(key.key()));
        }
        return false;
    case QEvent::FocusIn:
    case QEvent::FocusOut: FocusMoved(static_cast<QFocusEvent&>(*event)); return false;
    case QEvent::Paint:
        if (!bPicture && !picImage->geometry().contains(cellFrame)) {
            QPainter painter(picContainer);
            PaintCell(painter, {});
        }
        return false;
    default: return false;
    }
}

/// To or from the picture or its ground. The frame round them shows where the keys go.
void frmSnapshot::FocusMoved(const QFocusEvent& event) {
    ReleaseAtCell(kLeft); // their keys may be let go elsewhere
    ReleaseAtCell(kRight);
    if (event.gotFocus() &&
        (event.reason() == Qt::TabFocusReason || event.reason() == Qt::BacktabFocusReason)) {
        cell.pixel = Cell();
        cell.bByKeys = true;
    }
    update();
    ShowCell();
}

} // namespace lumrake
