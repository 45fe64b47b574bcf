// Moving over the file and reshaping the view.
//
// The address bar and the spin buttons are only sources of steps; they never hold the number that they move.
// Every change ends in a write to a value box, and txtValue_Change is the one place where a number of the
// view changes and the picture is redrawn. A write of the same text raises nothing, so that an operation at
// a limit draws nothing. A correction inside txtValue_Change writes to the box and so runs it once more,
// inside itself: the inner run finds a legal number and draws, the outer one draws again.
#include "assistant/rules/help_numbers.h"
#include "base/numbers.h"
#include "controls/message_box.h"
#include "controls/spin_bar.h"
#include "controls/value_box.h"
#include "controls/watch.h"
#include "disk/texts.h"
#include "shell/shell.h"
#include "snapshot/frmSnapshot.h"
#include "snapshot/rules/navigation.h"
#include "snapshot/rules/view_limits.h"

#include <QPointer>
#include <QPushButton>
#include <algorithm>
#include <cstdint>

namespace lumrake {

namespace {

std::int32_t NumberIn(const ValueBox& box) {
    return WholeNumberFromText<std::int32_t>(box.text().toStdString());
}

} // namespace

void frmSnapshot::ConnectNavigation() {
    for (int i = 0; i < static_cast<int>(txtValue.size()); ++i) {
        txtValue[i]->Change = [this, i] { txtValue_Change(i); };
        scrValue[i]->Change = [this, i](int newValue) { scrValue_Change(i, newValue); };
    }
    scrAddr->Change = [this](int newValue) { scrAddr_Change(newValue); };
    SetHelp(cmdScroll, kHelpThumb);
    Watcher& thumb = Watch(cmdScroll);
    thumb.MouseDown = [this](const MouseArgs& args) { cmdScroll_MouseDown(args); };
    thumb.MouseMove = [this](const MouseArgs& args) { cmdScroll_MouseMove(args); };
    thumb.MouseUp = [this](const MouseArgs& args) { cmdScroll_MouseUp(args); };
    Watch(txtScroll).MouseDown = [this](const MouseArgs& args) {
        if (args.Button == 1) { // a click beside the thumb is a page
            const bool bAbove = args.Y < static_cast<float>(cmdScroll->y() - txtScroll->y());
            scrAddr->triggerAction(bAbove ? SpinBar::SliderPageStepSub : SpinBar::SliderPageStepAdd);
        }
    };
}

void frmSnapshot::PlaceScrollThumb() {
    const std::int32_t place = ThumbPlace(view.lOffset, view.lFileLength, scrAddr->height());
    cmdScroll->move(cmdScroll->x(), scrAddr->y() + kArrowHeight + place);
    RestAddressBar();
}

void frmSnapshot::RestAddressBar() {
    scrAddr->setValue(cmdScroll->y() - scrAddr->y() - kArrowHeight);
}

void frmSnapshot::scrAddr_Change(int newValue) {
    const std::int32_t lNewOffset =
        ScrolledOffset(view, scrAddr->value(), newValue, Settings.iSmallChange, Settings.iLargeChange);
    txtValue[kOffsetValue]->Write(QString::number(lNewOffset)); // which takes it on
    PlaceScrollThumb();
}

void frmSnapshot::scrValue_Change(int Index, int newValue) {
    const auto at = static_cast<std::size_t>(Index);
    const ValueLimits limits{lValueMin[at], lValueMax[at], lValueStep[at]};
    const std::int32_t n = SpinTo(NumberIn(*txtValue[at]), newValue > scrValue[at]->value(), limits);
    txtValue[at]->Write(QString::number(n));
    PlaceScrollThumb();
}

void frmSnapshot::StepValue(int Index, bool bUp) {
    if (scrValue[Index]->isEnabled()) {
        scrValue_Change(Index, scrValue[Index]->value() + (bUp ? 1 : -1));
    }
}

void frmSnapshot::txtValue_Change(int Index) {
    ValueBox& box = *txtValue[Index];
    const struct {
        const char* name;
        std::int32_t least, most; // what may be typed; a width is never typed
    } limits[] = {{"Offset", 0, view.lFileLength - 1},
                  {"Width", INT32_MIN, INT32_MAX},
                  {"Lines", 1, lmk::kMostLines},
                  {"Columns", 1, lmk::kMostColumns}};
    const auto& [name, least, most] = limits[Index];
    const bool bCounts = Index == kLinesValue || Index == kColumnsValue;
    const std::int32_t lTyped = bCounts && box.text().trimmed().isEmpty() ? 1 : NumberIn(box);
    const std::int32_t lValue = std::clamp(lTyped, least, most);
    // The number reaches its field only when it is legal: a message box lets other events in.
    if (lValue != lTyped) {
        const QPointer<frmSnapshot> alive(this);
        MsgBox(QStringLiteral("%1 must be between %2 and %3!").arg(Latin(name)).arg(least).arg(most),
               BoxButtons::Ok, BoxIcon::Exclamation, QStringLiteral("Snapshot"));
        if (alive.isNull()) {
            return; // the message outlived the window
        }
    }
    switch (Index) {
    case kOffsetValue: view.lOffset = lValue; break;
    case kWidthValue: view.iWidth = static_cast<std::int16_t>(lValue); break;
    case kLinesValue: view.iLines = static_cast<std::int16_t>(lValue); break;
    default: view.iColumns = static_cast<std::int16_t>(lValue); break;
    }
    if (lValue != lTyped) {
        box.Write(QString::number(lValue));
        box.setCursorPosition(static_cast<int>(box.text().size()));
        PlaceScrollThumb();
    }
    picImage->hDC().Clear();
    ShowMem();
}

void frmSnapshot::cmdScroll_MouseDown(const MouseArgs& args) {
    if (args.Button == 1) {
        lScrollGrabY = HeldTo<std::int32_t>(double{args.Y});
    }
}

void frmSnapshot::cmdScroll_MouseMove(const MouseArgs& args) {
    if ((args.Button & 1) == 0) {
        return;
    }
    const DraggedThumb dragged =
        DragThumb(cmdScroll->y() - scrAddr->y(), HeldTo<std::int32_t>(double{args.Y}), lScrollGrabY,
                  view.lFileLength, scrAddr->height());
    cmdScroll->move(cmdScroll->x(), scrAddr->y() + dragged.iTop);
    txtValue[kOffsetValue]->Write(QString::number(dragged.lOffset));
}

void frmSnapshot::cmdScroll_MouseUp(const MouseArgs&) {
    RestAddressBar();
}

} // namespace lumrake
