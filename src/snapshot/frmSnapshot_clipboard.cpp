// Cut, Copy, Delete and Paste, and the block that hangs on the mouse: snapshot/rules/placing.h has its states.
#include "snapshot/frmSnapshot.h"

#include "shell/shell.h"
#include "snapshot/frmClip.h"
#include "snapshot/rules/block.h"

#include <QProgressBar>

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
    std::string sData = LiftBlock(document.Bytes(), view, block, ProgressOfRows());
    if (iCut) {
        document.ClearBlock(block);
    }
    clip.SetData(std::move(sData));
    const bool bOpen = ShowProgress(false);
    Shell().EnableFunction(kGroupPaste, true);
    if (placing.IsHanging() && clip.IsEmpty() == 0) {
        placing.window->HangBlock();
    } else if (placing.window != nullptr) {
        placing.window->EndPlacing(); // nothing is left to hang, or another tool has ended it already
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
    document.ClearBlock(block, ProgressOfRows());
    ShowProgress(false);
    ShowMem();
}

void frmSnapshot::Paste() {
    if (frmClip::Instance().IsEmpty() != 0) {
        return;
    }
    if (placing.window != nullptr) {
        placing.window->TakeBlockOff();
    }
    placing.Begin(this);
    HangBlock();
    picImage_MouseMove(cell.bByKeys ? AtCell(0) : MouseArgs{0, sngMouseX, sngMouseY});
    Shell().EnableNetCommands(false);
}

RowProgress frmSnapshot::ProgressOfRows() {
    barProgress->setValue(0);
    return [this, shown = 0](std::int32_t iRow, std::int32_t iRows) mutable {
        const std::int32_t value = std::min(100 * iRow / iRows, 100);
        if (value != shown) {
            shown = value;
            barProgress->setValue(value);
        }
    };
}

void frmSnapshot::HangBlock() {
    const lmk::BitPicture& picClip = frmClip::Instance().picClip;
    const int z = view.iZoomFactor;
    placing.block.Width = picClip.Width() * z;
    placing.block.Height = picClip.Height() * z;
    imgClip->SetPicture(picClip);
    PlaceClip();
    imgClip->update();
    imgClip->show();
    SetShape(shpNet.Around(placing.block));
    TellPicture();
}

void frmSnapshot::TakeBlockOff() {
    imgClip->hide();
    if (shpNet.Frame) {
        ClearNet();
    }
}

void frmSnapshot::EndPlacing() {
    if (IsPlacing()) {
        TakeBlockOff();
        placing.End();
        TellPicture();
    }
}

void frmSnapshot::imgClip_MouseMove(const MouseArgs& args) {
    // The press that dropped the block may still hold the mouse: a block that is gone hears nothing more.
    if (!IsPlacing()) {
        return;
    }
    MouseArgs onPicture = args;
    onPicture.X += static_cast<float>(imgClip->x());
    onPicture.Y += static_cast<float>(imgClip->y());
    picImage->MouseMove(onPicture);
}

void frmSnapshot::imgClip_MouseDown(const MouseArgs& args) {
    if (args.Button != 1) {
        return;
    }
    const bool bDrops = IsPlacing() && placing.IsHanging(); // else another tool has left it
    if (bDrops) {
        document.DropBlock(BlockUnder(placing.block, view.iZoomFactor), frmClip::Instance().GetData());
    }
    EndPlacing();
    if (bDrops) {
        ShowMem();
    }
}

} // namespace lumrake
