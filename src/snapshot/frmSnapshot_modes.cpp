// Display mode, flip and attribute.
#include "controls/colour_button.h"
#include "controls/screen_colour.h"
#include "controls/spin_bar.h"
#include "controls/value_box.h"
#include "display/attribute.h"
#include "shell/shell.h"
#include "snapshot/frmSnapshot.h"
#include "snapshot/rules/view_limits.h"

namespace lumrake {

void frmSnapshot::SetMode(std::int16_t iNewMode, bool iRefresh) {
    // The fields come before the boxes: each box that changes draws, and Screen mode is not drawn at less
    // than its full size.
    FitToMode(view, iNewMode);
    const auto enable = [this](int Index, bool bEnable) {
        txtValue[Index]->setEnabled(bEnable);
        scrValue[Index]->setEnabled(bEnable);
    };
    const lmk::ModeRow& mode = lmk::RowOf(iNewMode);
    const bool bTyped = mode.linesUnit == 1; // whole units of lines are left to the spin buttons
    if (!mode.manyColumns) {
        txtValue[kWidthValue]->Write(QString::number(view.iWidth));
        txtValue[kLinesValue]->Write(QString::number(view.iLines));
        txtValue[kColumnsValue]->Write(QStringLiteral("1")); // reaches its field through the box
    }
    if (bTyped) { // Text mode leaves width and lines as the mode before it left them
        enable(kWidthValue, mode.fixedWidth == 0);
        enable(kLinesValue, mode.fixedLines == 0);
    }
    enable(kColumnsValue, mode.manyColumns);
    for (ValueBox* box : txtValue) {
        box->setReadOnly(!bTyped || box == txtValue[kWidthValue]); // the width has only steps
    }
    if (iRefresh) {
        ShowMem();
    }
}

void frmSnapshot::SetFlip(std::int16_t NewFlip) {
    view.iUpsideDown = NewFlip != 0 ? std::int16_t{1} : std::int16_t{0};
    ShowMem();
}

void frmSnapshot::SetAttribute(std::int16_t iNewAttribute, bool iRefresh) {
    iAttribute = iNewAttribute;
    cmdColour[0]->SetColour(ScreenColour(AttributeColour(iNewAttribute, "FORE")));
    cmdColour[1]->SetColour(ScreenColour(AttributeColour(iNewAttribute, "BACK")));
    cmdColour[0]->setAccessibleDescription(QStringLiteral("Colour %1").arg(lmk::Ink(iNewAttribute)));
    cmdColour[1]->setAccessibleDescription(QStringLiteral("Colour %1").arg(lmk::Paper(iNewAttribute)));
    if (iRefresh) {
        ShowMem();
    }
}

void frmSnapshot::cmdColour_Click(int Index, bool bBack) {
    SetAttribute(NextAttribute(iAttribute, Index, bBack), true);
    scrAddr->setFocus(); // the arrow keys go on scrolling
}

} // namespace lumrake
