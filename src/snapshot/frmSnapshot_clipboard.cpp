// Cut, Copy, Delete and Paste, and the placing of a pasted block. While a block is being placed the tool is
// 1 for all windows; placingWindow is the one window whose imgClip hangs on the mouse and whose iSavedTool
// holds the tool to go back to.
//
//                  Paste (HangBlock)
//     not placing --------------------> placing ----+  moves (MoveBlock)
//         ^                              |   ^      |  zoom (ScaleNet): scales block and frame
//         |                              |   +------+  Paste again: keeps the tool saved first
//         +------------------------------+             Copy in another window: the new block hangs on the mouse
//
// The ways out of placing:
//     the tool comes back (EndPlacing)       left press on the block: drops it (imgClip_MouseDown)
//                                            the window closes
//                                            a Copy elsewhere leaves the clipboard empty
//     the tool goes on to another window     Paste there: takes over iSavedTool (LetGoOfBlock here)
//     another tool is in force; iSavedTool   tool button: the block goes with the next move over the picture
//     isn't used                             (HoverTool), or with a press on it, which drops nothing
//
// While another child is active the block stays where it is and goes on following once the mouse is back.
#include "snapshot/frmSnapshot.h"

#include "shell/shell.h"
#include "snapshot/frmClip.h"
#include "snapshot/rules/block.h"

#include <algorithm>
#include <utility>

namespace lumrake {

void frmSnapshot::Copy(bool iCut) {
    const PixelBlock block = BlockUnder(shpNet, view.iZoomFactor);
    frmClip& clip = frmClip::Instance();
    clip.picClip.CopyArea(picImage->hDC().Picture(),
                          {block.iLeft, block.iTop, block.iWidth, block.iHeight}); // before a Cut clears it
    if (!ShowProgress(true)) {
        return;
    }
    std::string sData = LiftBlock(byMemory.Bytes(), view, block, ProgressOfRows());
    if (iCut && !block.IsEmpty()) {
        ClearBlock(byMemory.Bytes(), view, block);
        bChanged = -1;
    }
    clip.SetData(std::move(sData));
    const bool bOpen = ShowProgress(false);
    EnableFunction(kGroupPaste, true);
    if (placingWindow != nullptr && iCurrentTool == kToolPlacing && clip.IsEmpty() == 0) {
        placingWindow->HangBlock();
    } else if (placingWindow != nullptr) {
        placingWindow->EndPlacing(); // nothing is left to hang, or another tool has ended it already
    }
    if (bOpen) {
        ShowMem();
    }
}

void frmSnapshot::Delete() {
    const PixelBlock block = BlockUnder(shpNet, view.iZoomFactor);
    if (!ShowProgress(true)) {
        return;
    }
    ClearBlock(byMemory.Bytes(), view, block, ProgressOfRows());
    if (!block.IsEmpty()) {
        bChanged = -1;
    }
    ShowProgress(false);
    ShowMem();
}

void frmSnapshot::Paste() {
    if (frmClip::Instance().IsEmpty() != 0) {
        return;
    }
    std::int16_t iTool = iCurrentTool;
    if (placingWindow != nullptr) {
        if (iCurrentTool == kToolPlacing) {
            iTool = placingWindow->iSavedTool;
        }
        placingWindow->LetGoOfBlock();
    }
    placingWindow = this;
    HangBlock();
    iSavedTool = iTool;
    iCurrentTool = kToolPlacing;
    picImage_MouseMove({0, 0, sngMouseX, sngMouseY});
    EnableNetCommands(false);
}

RowProgress frmSnapshot::ProgressOfRows() {
    SetProgress(0);
    return [this, shown = 0](std::int32_t iRow, std::int32_t iRows) mutable {
        const std::int32_t value = std::min(100 * iRow / iRows, 100);
        if (value != shown) {
            shown = value;
            SetProgress(value);
        }
    };
}

NetRect frmSnapshot::ClipPlace() const {
    return {imgClip->x(), imgClip->y(), imgClip->width(), imgClip->height()};
}

void frmSnapshot::HangBlock() {
    const lmk::BitPicture& picClip = frmClip::Instance().picClip;
    const int z = view.iZoomFactor;
    imgClip->SetPicture(picClip);
    imgClip->SetFactor(z);
    imgClip->resize(picClip.Width() * z, picClip.Height() * z);
    imgClip->update();
    imgClip->show();
    Shape shape = shpNet.At(FrameOf(ClipPlace()));
    shape.Visible = shape.Frame = true;
    SetShape(shape);
}

void frmSnapshot::MoveBlock(float X, float Y) {
    imgClip->move(HungAt(X, imgClip->width(), view.iZoomFactor),
                  HungAt(Y, imgClip->height(), view.iZoomFactor));
    if (!imgClip->isHidden()) { // else another window places, and a net may lie here
        SetShape(shpNet.At(FrameOf(ClipPlace())));
    }
}

void frmSnapshot::LetGoOfBlock() {
    imgClip->hide();
    if (shpNet.Frame) {
        ClearNet();
    }
    if (placingWindow == this) {
        placingWindow = nullptr;
    }
    iSavedTool = 0;
}

void frmSnapshot::EndPlacing() {
    if (placingWindow != this) {
        return;
    }
    if (iCurrentTool == kToolPlacing) {
        iCurrentTool = iSavedTool;
    }
    LetGoOfBlock();
}

void frmSnapshot::imgClip_MouseMove(const MouseArgs& args) {
    // The press that dropped the block may still hold the mouse: a block that is gone hears nothing more.
    if (imgClip->isHidden()) {
        return;
    }
    MouseArgs onPicture = args;
    onPicture.X += static_cast<float>(imgClip->x());
    onPicture.Y += static_cast<float>(imgClip->y());
    picImage_MouseMove(onPicture);
}

void frmSnapshot::imgClip_MouseDown(const MouseArgs& args) {
    if (args.Button != 1) {
        return;
    }
    if (iCurrentTool != kToolPlacing || placingWindow != this) {
        LetGoOfBlock();
        return;
    }
    const PixelBlock block = BlockUnder(ClipPlace(), view.iZoomFactor);
    DropBlock(byMemory.Bytes(), view, block, frmClip::Instance().GetData());
    bChanged = -1;
    EndPlacing();
    ShowMem();
}

} // namespace lumrake
