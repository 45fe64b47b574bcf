// The selection net on the picture. shpNet alone is the selection: every command that works on the net reads its four
// numbers; snapshot/rules/net.h has its states.
#include "snapshot/frmSnapshot.h"

#include "shell/shell.h"

#include <QMdiArea>
#include <QMdiSubWindow>
#include <QPainter>
#include <QRegion>

namespace lumrake {

namespace {

QRect Rectangle(const NetRect& net) {
    return {net.Left, net.Top, net.Width, net.Height};
}

} // namespace

void frmSnapshot::SetNetPosition() {
    SetShape(shpNet.At(shpNet.Place()));
}

void frmSnapshot::ClearNet() {
    SetShape(shpNet.Hidden());
}

void frmSnapshot::DragNet(const MouseArgs& args) {
    SetShape(shpNet.Dragged(args.X, args.Y, view.iZoomFactor));
    const std::int32_t columns = shpNet.iNetWidth / view.iZoomFactor; // whole pixels, without a remainder
    const std::int32_t rows = shpNet.iNetHeight / view.iZoomFactor;
    Shell().ShowCoords(1, columns, rows);
}

void frmSnapshot::EndNet() {
    SetShape(shpNet.Ended());
    Shell().ShowCoords(1, 0, 0);
    // A window that opened under the drag has the commands now, and no net of this one. The area may know of no
    // active window while another program is in front.
    const auto* frame = qobject_cast<QMdiSubWindow*>(ChildFrame(this));
    const QMdiSubWindow* active = frame == nullptr ? nullptr : frame->mdiArea()->currentSubWindow();
    if (active == nullptr || active == frame) {
        Shell().EnableNetCommands(shpNet.IsSelection());
    }
}

void frmSnapshot::ScaleNet(std::int32_t iOldFactor) {
    NetRect place = ScaledNet(shpNet, iOldFactor, view.iZoomFactor);
    if (IsPlacing()) {
        placing.block = ScaledNet(placing.block, iOldFactor, view.iZoomFactor);
        PlaceClip();
        place = FrameOf(placing.block);
    }
    SetShape(shpNet.At(place));
}

void frmSnapshot::PlaceClip() {
    imgClip->SetFactor(view.iZoomFactor);
    imgClip->setGeometry(Rectangle(placing.block));
}

void frmSnapshot::SetShape(const Net& shape) {
    QRegion lines;
    for (const Net* each : {&shape, static_cast<const Net*>(&shpNet)}) {
        if (each->Visible) {
            for (const NetRect& line : BorderOf(*each)) {
                lines += Rectangle(line);
            }
        }
    }
    shpNet = shape;
    picImage->UpdateArea(lines);
}

/// Inverts what lies under the border.
void frmSnapshot::PaintNet(QPainter& painter, const QRect& exposed) const {
    if (!shpNet.Visible) {
        return;
    }
    painter.setCompositionMode(QPainter::CompositionMode_Difference);
    painter.setRenderHint(QPainter::NonCosmeticBrushPatterns); // dots as large as the line is thick
    const QBrush white(Qt::white, shpNet.Dotted ? Qt::Dense4Pattern : Qt::SolidPattern);
    for (const NetRect& line : BorderOf(shpNet)) {
        painter.fillRect(Rectangle(line) & exposed, white);
    }
    painter.setCompositionMode(QPainter::CompositionMode_SourceOver);
}

} // namespace lumrake
