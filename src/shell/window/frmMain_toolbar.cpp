// The toolbar with its co-ordinates panel.

#include "assistant/rules/help_numbers.h"
#include "base/numbers.h"
#include "base/twips.h"
#include "controls/drawing_box.h"
#include "controls/spoken.h"
#include "controls/toolbar.h"
#include "controls/watch.h"
#include "disk/texts.h"
#include "shell/window/frmMain.h"
#include "snapshot/frmSnapshot.h"

#include <QAction>
#include <QFrame>
#include <QLabel>

#include <utility>

namespace lumrake {

namespace {

// clang-format off
/// The co-ordinates panel, in twips of the toolbar and of the panel.
constexpr int kCoordsWidth = 2535, kCoordsHeight = 375;
constexpr int kCoordsFromRight = 2715; ///< its left edge, counted back from the window's outer right edge
constexpr int kIconLeft[] = {120, 1320}, kIconTop = 75;
constexpr int kLabelLeft[] = {480, 1650}, kLabelTop = 120, kLabelWidth = 855, kLabelHeight = 255;
constexpr const char* kLabelNames[] = {"Mouse position ", "Size of the selection "}; ///< for screen readers
// clang-format on

} // namespace

void frmMain::CreateCoordsPanel() {
    auto* panel = new QFrame(tbrMain);
    panel->setFrameStyle(QFrame::StyledPanel | QFrame::Sunken);
    panel->setGeometry(0, (tbrMain->height() - PixelsFromTwips(kCoordsHeight)) / 2,
                       PixelsFromTwips(kCoordsWidth), PixelsFromTwips(kCoordsHeight));
    picCoords = panel;
    const char* const pictures[] = {"coords/position.svg", "coords/size.svg"};
    constexpr QSize kIconSize(16, 16);
    for (std::size_t i = 0; i < std::size(pictures); ++i) {
        (new DrawingBox(Latin(pictures[i]), kIconSize, picCoords))
            ->move(PixelsFromTwips(kIconLeft[i]), PixelsFromTwips(kIconTop));
        auto* label = lblCoords[i] = new QLabel(QStringLiteral("0,0"), picCoords);
        label->setAlignment(Qt::AlignLeft | Qt::AlignTop);
        label->setGeometry(PixelsFromTwips(kLabelLeft[i]), PixelsFromTwips(kLabelTop) - 1,
                           PixelsFromTwips(kLabelWidth), PixelsFromTwips(kLabelHeight));
        SetSpoken(label, {.role = QAccessible::StaticText,
                          .name = [label, name = kLabelNames[i]] { return Latin(name) + label->text(); }});
    }
    QList<QWidget*> controls = picCoords->findChildren<QWidget*>();
    controls.push_back(picCoords);
    for (QWidget* control : std::as_const(controls)) {
        SetHelp(control, kHelpCoords);
    }
}

int frmMain::LeastToolbarWidth() const {
    // Narrower, the co-ordinates panel would lie over the buttons when all of them show.
    return tbrMain->sizeHint().width() + PixelsFromTwips(kCoordsFromRight) + 8;
}

void frmMain::PlaceCoordsPanel() {
    picCoords->move(PixelsFromTwips(PlaceInTwips().lWidth - kCoordsFromRight), picCoords->y());
}

void frmMain::ArrangeToolbars() {
    tbrMain->ShowGroups(Settings.bToolbarVisible);
    picCoords->setVisible(Settings.bToolbarVisible[5] != 0);
}

void frmMain::menu_toolbar_Click(int Index) {
    Settings.bToolbarVisible[static_cast<std::size_t>(Index - 1)] =
        Entry(Menu::menu_toolbar, Index)->isChecked() ? -1 : 0;
    ArrangeToolbars();
}

void frmMain::ShowCoords(std::int16_t iIndex, double x, double y) {
    if (iIndex == 0 || iIndex == 1) {
        lblCoords[iIndex]->setText(QString::fromStdString(TextOfNumber(x) + "," + TextOfNumber(y)));
    }
}

void frmMain::ChooseTool(std::int16_t iTool) {
    if (QAction* button = Entry(Menu::tbrMain, iTool); tbrMain->actions().contains(button)) {
        button->trigger();
    }
}

void frmMain::tbrMain_ButtonClick(int Tool) {
    iCurrentTool = static_cast<std::int16_t>(Tool);
    frmSnapshot* snapshot = ActiveSnapshot();
    if (Tool != kToolNet) { // the others end a selection
        EnableNetCommands(false);
        if (snapshot != nullptr) {
            snapshot->ClearNet();
        }
    }
    if (snapshot != nullptr) {
        snapshot->TellPicture();
    }
}

} // namespace lumrake
