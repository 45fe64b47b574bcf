// The mouse over the picture. One tool is in force for the whole program; a press, a move and a release are
// handed to it. The net is told in frmSnapshot_net.cpp, the block of a paste in frmSnapshot_clipboard.cpp.
#include "snapshot/frmSnapshot.h"

#include "assistant/rules/help_numbers.h"
#include "base/numbers.h"
#include "controls/pictures.h"
#include "controls/watch.h"
#include "shell/shell.h"

#include <algorithm>
#include <cmath>

namespace lumrake {

namespace {

/// Property of picImage: the number, as text, of the tool whose cursor is loaded. Nothing reads as 0.
const char* const kTag = "Tag";

} // namespace

void frmSnapshot::ConnectTools() {
    picImage->MouseDown = [this](const MouseArgs& args) {
        ReleaseAtCell(kLeftButton); // one hand at a time
        ReleaseAtCell(kRightButton);
        MouseComes(args);
        picImage_MouseDown(args);
    };
    picImage->MouseMove = [this](const MouseArgs& args) {
        MouseComes(args);
        picImage_MouseMove(args);
    };
    picImage->MouseUp = [this](const MouseArgs& args) { picImage_MouseUp(args); };
    picImage->Overlay = [this](QPainter& painter, const QRect& exposed) {
        PaintGrid(painter, exposed);
        PaintNet(painter, exposed);
        PaintCell(painter, exposed, picImage->pos());
    };
    imgClip->MouseDown = [this](const MouseArgs& args) { imgClip_MouseDown(args); };
    imgClip->MouseMove = [this](const MouseArgs& args) { imgClip_MouseMove(args); };
    SetHelp(picImage, kHelpPicture);
    SetHelp(imgClip, kHelpPicture);
}

void frmSnapshot::picImage_MouseDown(const MouseArgs& args) {
    switch (iCurrentTool) {
    case kToolDraw: picImage_MouseMove(args); break; // a press alone plots the first pixel
    case kToolMagnify: MagnifyAbout(args); break;
    case kToolNet:
        EndPlacing(); // of a block that another tool has left: its frame and a net are one shape
        SetShape(Net::Started(args.X, args.Y, view.iZoomFactor));
        break;
    case kToolPan: pan.Start(args.X, args.Y); break;
    default: break;
    }
}

void frmSnapshot::picImage_MouseMove(const MouseArgs& args) {
    const auto z = static_cast<float>(view.iZoomFactor);
    Shell().ShowCoords(0, std::floor(args.X / z), std::floor(args.Y / z));
    if (args.Button > 0) {
        DragTool(args);
    } else {
        HoverTool(args);
    }
    sngMouseX = args.X;
    sngMouseY = args.Y;
    ShowCell();
}

void frmSnapshot::picImage_MouseUp(const MouseArgs&) {
    if (iCurrentTool == kToolNet) {
        EndNet();
    } else if (iCurrentTool == kToolPan) {
        pan.End();
    }
}

/// Doubles or halves the zoom; the point that was clicked stays where it was inside the container.
void frmSnapshot::MagnifyAbout(const MouseArgs& args) {
    double iLeft = picImage->x(), iTop = picImage->y();
    std::int16_t iNew = view.iZoom;
    if (args.Button == kLeftButton && view.iZoom < lmk::kMostZoom) {
        ++iNew;
        iLeft -= args.X;
        iTop -= args.Y;
    } else if (args.Button == kRightButton && view.iZoom > 1) {
        --iNew;
        iLeft += args.X / 2.0;
        iTop += args.Y / 2.0;
    } else {
        return;
    }
    SetPosition(std::min(HeldTo<std::int32_t>(iLeft), 0), std::min(HeldTo<std::int32_t>(iTop), 0));
    SetZoom(iNew);
}

/// A move with a button held.
void frmSnapshot::DragTool(const MouseArgs& args) {
    switch (iCurrentTool) {
    case kToolDraw:
        // The left button alone gives 1 and sets; the right one and all others give less and clear.
        WritePixel(args.X, args.Y, static_cast<std::int16_t>(2 - args.Button), true);
        break;
    case kToolNet: DragNet(args); break;
    case kToolPan:
        // X and Y count from the picture that has just moved, so the grabbed point stays under the mouse.
        pan.MoveTo(args.X, args.Y, picImage->x(), picImage->y());
        SetPosition(HeldTo<std::int32_t>(pan.sngPanLeft), HeldTo<std::int32_t>(pan.sngPanTop));
        break;
    default: break;
    }
}

/// A move without a button.
void frmSnapshot::HoverTool(const MouseArgs& args) {
    if (IsPlacing() && placing.IsHanging()) {
        placing.MoveTo(args.X, args.Y, view.iZoomFactor);
        PlaceClip();
        SetShape(shpNet.Around(placing.block));
    } else if (IsPlacing()) {
        // Another tool was chosen while the block hung on the mouse. With Net its frame stays till the next
        // press.
        const Net frame = shpNet;
        EndPlacing();
        if (iCurrentTool == kToolNet) {
            SetShape(frame);
        }
    }
    if (picImage->property(kTag).toString().toInt() != iCurrentTool) {
        picImage->setProperty(kTag, QString::number(iCurrentTool));
        picImage->setCursor(DrawCursor(iCurrentTool, devicePixelRatioF()));
    }
}

} // namespace lumrake
