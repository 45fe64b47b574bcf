// Keys and the wheel. On the picture a cell cursor stands for the mouse: whatever it does goes the way of the mouse's
// events, so that the tools know nothing of keys. snapshot/rules/cell.h says where it stands.
#include "snapshot/frmSnapshot.h"

#include "base/numbers.h"
#include "controls/colour_button.h"
#include "controls/spin_bar.h"
#include "controls/value_box.h"
#include "controls/watch.h"
#include "controls/whole_pixels.h"
#include "shell/shell.h"
#include "snapshot/rules/view_limits.h"

#include <QCoreApplication>
#include <QFocusEvent>
#include <QKeyEvent>
#include <QPainter>
#include <QPushButton>
#include <QRegion>
#include <QWheelEvent>

#include <algorithm>
#include <cstdlib>
#include <initializer_list>
#include <utility>

namespace lumrake {

namespace {

constexpr int kLongStep = 8;
constexpr int kPanStep = 32;                  // of an arrow key, in logical pixels
constexpr int kPanAngle = 15, kPanPixels = 8; // of a wheel that turns sideways
constexpr int kFirstWheelRow = 4;             // behind the value boxes, for WheelSteps
constexpr int kCellFrame = 2; // lines round the cell, one dark and one light, in logical pixels

/// Across and down; 0 for what is no arrow.
std::pair<int, int> ArrowOf(int key) {
    switch (key) {
    case Qt::Key_Left: return {-1, 0};
    case Qt::Key_Right: return {1, 0};
    case Qt::Key_Up: return {0, -1};
    case Qt::Key_Down: return {0, 1};
    default: return {0, 0};
    }
}

constexpr std::pair<int, Tool> kToolKeys[] = {
    {Qt::Key_D, kToolDraw}, {Qt::Key_Z, kToolMagnify}, {Qt::Key_S, kToolNet}, {Qt::Key_P, kToolPan}};

/// The mouse button that a key stands for; 0 for none.
std::int16_t ButtonOf(int key) {
    return key == Qt::Key_Space ? kLeftButton : key == Qt::Key_Backspace ? kRightButton : std::int16_t{0};
}

} // namespace

void frmSnapshot::ConnectKeys() {
    for (QWidget* control :
         std::initializer_list<QWidget*>{picImage, picContainer, scrAddr, txtScroll, cmdScroll}) {
        control->installEventFilter(this);
    }
    for (int i = 0; i < static_cast<int>(txtValue.size()); ++i) {
        txtValue[i]->installEventFilter(this);
        scrValue[i]->installEventFilter(this);
    }
    for (int i = 0; i < static_cast<int>(cmdColour.size()); ++i) {
        cmdColour[i]->installEventFilter(this);
        Watch(cmdColour[i]).MouseUp = [this, i](const MouseArgs& args) {
            const QPointF at(args.X, args.Y);
            if (args.Button == kRightButton && QRectF(cmdColour[i]->rect()).contains(at)) {
                cmdColour_Click(i, true);
            }
        };
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
        const auto z = static_cast<float>(view.iZoomFactor);
        args.X = static_cast<float>(x) * z;
        args.Y = static_cast<float>(y) * z;
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
    cell.bMouseOver = true;
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
    ShowByte();
    if (frame == cellFrame) {
        return;
    }
    const QRegion touched = QRegion(cellFrame) + frame;
    cellFrame = frame;
    picImage->UpdateArea(touched.translated(-picImage->pos()));
    picContainer->update(touched); // what reaches over the picture's edges
}

void frmSnapshot::PaintCell(QPainter& painter, const QRect& exposed, const QPoint& corner) const {
    if (const QRect outer = cellFrame.translated(-corner); outer.intersects(exposed)) {
        FillFrame(painter, outer, 1, Qt::black, Line::NoThicker);
        FillFrame(painter, outer.adjusted(1, 1, -1, -1), 1, Qt::white, Line::NoThicker);
    }
}

/// What a key does on the picture; false for one that it has no use for.
bool frmSnapshot::picImage_KeyDown(const QKeyEvent& key, bool bLong) {
    const int step = bLong ? kLongStep : 1;
    if (const auto [across, down] = ArrowOf(key.key()); across != 0 || down != 0) {
        MoveCell(Cell().x + across * step, Cell().y + down * step);
        return true;
    }
    switch (key.key()) {
    case Qt::Key_Home: MoveCell(0, Cell().y); return true;
    case Qt::Key_End: MoveCell(view.PictureWidth(), Cell().y); return true;
    default: break;
    }
    if (bLong || key.isAutoRepeat()) {
        return !bLong && ButtonOf(key.key()) != 0;
    }
    switch (key.key()) {
    case Qt::Key_Space:
    case Qt::Key_Backspace: PressAtCell(ButtonOf(key.key())); return true;
    case Qt::Key_Return:
    case Qt::Key_Enter:
        if (const auto at = CellAddress()) {
            txtValue[kOffsetValue]->Write(QString::number(at->lAddress));
            PlaceScrollThumb();
        }
        return true;
    case Qt::Key_G: ToggleGrid(); return true;
    default: break;
    }
    for (const auto& [letter, tool] : kToolKeys) {
        if (key.key() == letter && cell.iButtons == 0 && !picImage->IsPressed()) {
            Shell().ChooseTool(tool);
            return true;
        }
    }
    return false;
}

bool frmSnapshot::LetBlockGo() {
    const bool bHung = placing.window != nullptr;
    if (bHung) {
        placing.window->EndPlacing();
    }
    return bHung;
}

void frmSnapshot::PanBy(int across, int down) {
    SetPosition(PannedBy(picImage->x(), across, picImage->width(), picContainer->width()),
                PannedBy(picImage->y(), down, picImage->height(), picContainer->height()));
}

/// A key on one of the controls; true when that is all it does.
bool frmSnapshot::KeyDown(const QObject* control, QKeyEvent& key) {
    const Qt::KeyboardModifiers with = key.modifiers() & ~Qt::KeypadModifier;
    if (control == picImage && (with == Qt::NoModifier || with == Qt::ControlModifier) &&
        picImage_KeyDown(key, with == Qt::ControlModifier)) {
        return true;
    }
    const auto [across, down] = ArrowOf(key.key());
    const bool bPage = key.key() == Qt::Key_PageUp || key.key() == Qt::Key_PageDown;
    if (with != Qt::NoModifier) {
        return false;
    }
    if (control != scrAddr && (bPage || (control == cmdScroll && down != 0))) {
        QCoreApplication::sendEvent(scrAddr, &key);
        return true;
    }
    if (control == picContainer && (across != 0 || down != 0)) {
        PanBy(-across * kPanStep, -down * kPanStep);
        return true;
    }
    if (const auto box = std::ranges::find(txtValue, control); box != txtValue.end() && down != 0) {
        if (view.iMode != kText) { // no key reaches a box there
            StepValue(static_cast<int>(box - txtValue.begin()), down < 0);
            (*box)->selectAll();
        }
        return true;
    }
    const auto button = std::ranges::find(cmdColour, control);
    if (button != cmdColour.end() && key.key() == Qt::Key_Backspace) {
        cmdColour_Click(static_cast<int>(button - cmdColour.begin()), true);
        return true;
    }
    return false;
}

/// The wheel over the picture, its ground, track or thumb: what a step upwards or downwards does with these keys.
struct frmSnapshot::WheelRow {
    Qt::KeyboardModifiers with;
    void (*turn)(frmSnapshot& form, bool bUp, const MouseArgs& at);
};

// clang-format off
const frmSnapshot::WheelRow frmSnapshot::kWheel[] = {
    {Qt::NoModifier,                         [](frmSnapshot& form, bool bUp, const MouseArgs&) { form.scrAddr_Change(form.scrAddr->value() + (bUp ? -1 : 1)); }},
    {Qt::ShiftModifier,                      [](frmSnapshot& form, bool bUp, const MouseArgs&) { form.StepValue(kOffsetValue, !bUp); }},
    {Qt::ControlModifier | Qt::ShiftModifier, [](frmSnapshot& form, bool bUp, const MouseArgs&) { form.StepValue(kWidthValue, bUp); }},
    {Qt::ControlModifier,                    [](frmSnapshot& form, bool bUp, const MouseArgs& at) { form.MagnifyAbout({bUp ? kLeftButton : kRightButton, at.X, at.Y}); }},
};
// clang-format on

void frmSnapshot::Turned(const QObject* control, const QWheelEvent& turn) {
    if (turn.buttons() != Qt::NoButton || cell.iButtons != 0) {
        return;
    }
    const Qt::KeyboardModifiers with = turn.modifiers() & (Qt::ControlModifier | Qt::ShiftModifier);
    QPoint angle = turn.angleDelta();
    if (with.testFlag(Qt::ShiftModifier) && angle.y() == 0) {
        angle = angle.transposed(); // some systems turn it so themselves
    }
    for (int i = 0; i < static_cast<int>(txtValue.size()); ++i) {
        if (control == txtValue[i] || control == scrValue[i]) {
            const int steps = wheel.Add(angle.y(), i);
            for (int step = 0; step < std::abs(steps) && (control != txtValue[i] || view.iMode != kText);
                 ++step) {
                StepValue(i, steps > 0);
            }
            return;
        }
    }
    const auto inPicture = [&] {
        const QPoint place = picContainer->mapFromGlobal(turn.globalPosition().toPoint());
        const QPoint held(std::clamp(place.x(), 0, picContainer->width()),
                          std::clamp(place.y(), 0, picContainer->height()));
        return MouseArgs{0, static_cast<float>(held.x() - picImage->x()),
                         static_cast<float>(held.y() - picImage->y())};
    };
    if (with == Qt::NoModifier && angle.x() != 0) {
        PanBy(sideWheel.Add(angle.x(), 0, kPanAngle) * kPanPixels, 0);
    }
    const auto* row = std::ranges::find(kWheel, with, &WheelRow::with);
    const int steps = wheel.Add(angle.y(), kFirstWheelRow + static_cast<int>(row - kWheel));
    for (int step = 0; step < std::abs(steps); ++step) {
        row->turn(*this, steps > 0, inPicture());
    }
    if (picImage->underMouse()) {
        picImage->MouseMove(inPicture()); // another pixel lies under it now
    }
}

bool frmSnapshot::eventFilter(QObject* control, QEvent* event) {
    const bool bPicture = control == picImage;
    switch (event->type()) {
    case QEvent::Wheel:
        if (control == cmdColour[0] || control == cmdColour[1]) {
            return false;
        }
        Turned(control, static_cast<QWheelEvent&>(*event));
        event->accept();
        return true;
    case QEvent::KeyPress: return KeyDown(control, static_cast<QKeyEvent&>(*event));
    case QEvent::KeyRelease:
        if (const auto& key = static_cast<QKeyEvent&>(*event); bPicture && !key.isAutoRepeat()) {
            ReleaseAtCell(ButtonOf(key.key()));
        }
        return false;
    case QEvent::FocusIn:
    case QEvent::FocusOut:
        if (bPicture || control == picContainer) {
            FocusMoved(static_cast<QFocusEvent&>(*event));
        }
        return false;
    case QEvent::Leave:
        if (bPicture) {
            cell.bMouseOver = false;
            ShowCell();
        }
        return false;
    case QEvent::Paint:
        if (control == picContainer && !picImage->geometry().contains(cellFrame)) {
            QPainter painter(picContainer);
            PaintCell(painter, cellFrame, {});
        }
        return false;
    default: return false;
    }
}

void frmSnapshot::keyPressEvent(QKeyEvent* event) {
    if (event->key() != Qt::Key_Escape || !LetBlockGo()) {
        QWidget::keyPressEvent(event);
    }
}

/// To or from the picture or its ground. The frame round them shows where the keys go.
void frmSnapshot::FocusMoved(const QFocusEvent& event) {
    ReleaseAtCell(kLeftButton); // their keys may be let go elsewhere
    ReleaseAtCell(kRightButton);
    if (event.gotFocus() &&
        (event.reason() == Qt::TabFocusReason || event.reason() == Qt::BacktabFocusReason)) {
        cell.pixel = Cell();
        cell.bByKeys = true;
    }
    update();
    ShowCell();
}

} // namespace lumrake
