// The selection net. The rectangle shpNet alone is the selection: every command that works on the net reads
// its four numbers. iNetX, iNetY, iNetWidth and iNetHeight are the drag that shaped it.
//
//               press with Net (StartNet)            release (EndNet)
//     no net ------------------------> dragging ---------------------> net lies
//       ^                               | ^  ^                            |  |
//       |              each move (DragNet)+  |   press with Net (StartNet)|  |
//       |                                    +----------------------------+  |
//       +--------------------------------------------------------------------+
//                Draw, Magnify or Pan chosen (ClearNet, called by the main window)
//
// Paste turns the shape into the frame of its block: see frmSnapshot_clipboard.cpp.
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
    SetShape(shpNet.At(NetFromDrag(iNetX, iNetY, iNetWidth, iNetHeight)));
}

void frmSnapshot::ClearNet() {
    Shape shape = shpNet;
    shape.Visible = false;
    SetShape(shape);
}

/// A press leaves a net of one screen pixel, whatever lay there before. A block that another tool has left hanging
/// there goes: its frame and a net are one shape.
void frmSnapshot::StartNet(const MouseArgs& args) {
    if (!imgClip->isHidden()) {
        LetGoOfBlock();
    }
    iNetWidth = iNetHeight = 1;
    iNetX = SnapToPixel(args.X, view.iZoomFactor);
    iNetY = SnapToPixel(args.Y, view.iZoomFactor);
    SetShape({NetFromDrag(iNetX, iNetY, iNetWidth, iNetHeight), true});
}

void frmSnapshot::DragNet(const MouseArgs& args) {
    const std::int32_t z = view.iZoomFactor;
    iNetWidth = SnapToPixel(args.X - static_cast<float>(iNetX), z);
    iNetHeight = SnapToPixel(args.Y - static_cast<float>(iNetY), z);
    SetNetPosition();
    const std::int32_t columns = iNetWidth / z, rows = iNetHeight / z; // whole pixels, without a remainder
    ShowCoords(1, columns, rows);
}

void frmSnapshot::EndNet() {
    Shape shape = shpNet;
    shape.Dotted = true;
    SetShape(shape);
    ShowCoords(1, 0, 0);
    // A window that opened under the drag has the commands now, and no net of this one. The area may know of no
    // active window while another program is in front.
    const auto* frame = qobject_cast<QMdiSubWindow*>(ChildFrame(this));
    const QMdiSubWindow* active = frame == nullptr ? nullptr : frame->mdiArea()->currentSubWindow();
    if (active == nullptr || active == frame) {
        EnableNetCommands(HasNet());
    }
}

void frmSnapshot::ScaleNet(std::int32_t iOldFactor) {
    NetRect net = ScaledNet(shpNet, iOldFactor, view.iZoomFactor);
    if (!imgClip->isHidden()) {
        const NetRect block = ScaledNet(ClipPlace(), iOldFactor, view.iZoomFactor);
        imgClip->SetFactor(view.iZoomFactor);
        imgClip->setGeometry(Rectangle(block));
        net = FrameOf(block);
    }
    SetShape(shpNet.At(net));
}

void frmSnapshot::SetShape(const Shape& shape) {
    const Shape before = shpNet;
    shpNet = shape;
    UpdateNet(before);
}

void frmSnapshot::UpdateNet(const Shape& before) {
    QRegion lines;
    for (const Shape* shape : {&before, static_cast<const Shape*>(&shpNet)}) {
        if (shape->Visible) {
            for (const NetRect& line : BorderOf(*shape)) {
                lines += Rectangle(line);
            }
        }
    }
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
