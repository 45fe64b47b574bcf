// The toolbar with its co-ordinates panel, and which commands can be given at a time.

#include "base/numbers.h"
#include "base/twips.h"
#include "controls/drawing_box.h"
#include "controls/toolbar.h"
#include "disk/texts.h"
#include "shell/rules/toolbar_rules.h"
#include "shell/window/frmMain.h"
#include "snapshot/frmClip.h"
#include "snapshot/frmSnapshot.h"

#include <QAction>
#include <QFrame>
#include <QLabel>
#include <QShortcut>

#include <span>
#include <utility>

namespace lumrake {

namespace {

struct ButtonRow {
    const char* Key; ///< null for a separator
    ButtonStyle Style;
    const char* Picture;
    const char* ToolTipText;
};

// clang-format off
/// The buttons in order; the first is number 1.
constexpr ButtonRow kButtons[] = {
    {nullptr,     ButtonStyle::Separator, nullptr,                 nullptr},
    {"OPEN",      ButtonStyle::Plain,     "toolbar/open.svg",      "Open snapshot"},
    {"SAVE",      ButtonStyle::Plain,     "toolbar/save.svg",      "Save snapshot"},
    {"EXPORT",    ButtonStyle::Plain,     "toolbar/export.svg",    "Export to DAT file"},
    {nullptr,     ButtonStyle::Separator, nullptr,                 nullptr},
    {"CUT",       ButtonStyle::Plain,     "toolbar/cut.svg",       "Cut"},
    {"COPY",      ButtonStyle::Plain,     "toolbar/copy.svg",      "Copy"},
    {"PASTE",     ButtonStyle::Plain,     "toolbar/paste.svg",     "Paste"},
    {nullptr,     ButtonStyle::Separator, nullptr,                 nullptr},
    {"DRAW",      ButtonStyle::Group,     "toolbar/draw.svg",      "Draw"},
    {"MAGNIFY",   ButtonStyle::Group,     "toolbar/zoom.svg",      "Zoom"},
    {"NET",       ButtonStyle::Group,     "toolbar/select.svg",    "Select"},
    {"PAN",       ButtonStyle::Group,     "toolbar/pan.svg",       "Pan"},
    {nullptr,     ButtonStyle::Separator, nullptr,                 nullptr},
    {"TOANIM",    ButtonStyle::Plain,     "toolbar/toanim.svg",    "Create animation"},
    {"TOPLEFT",   ButtonStyle::Plain,     "toolbar/topleft.svg",   "Position image at top left"},
    {nullptr,     ButtonStyle::Separator, nullptr,                 nullptr},
    {"ANIM_NEW",  ButtonStyle::Plain,     "toolbar/anim_new.svg",  "New animation"},
    {"ANIM_OPEN", ButtonStyle::Plain,     "toolbar/anim_open.svg", "Open animation"},
    {"ANIM_SAVE", ButtonStyle::Plain,     "toolbar/anim_save.svg", "Save animation"},
};

/// The groups that can be hidden, in the order of bToolbarVisible: first button (a separator) and last one.
struct ButtonGroup { int first; int last; };
constexpr ButtonGroup kButtonGroups[] = {{1, 4}, {5, 8}, {9, 13}, {14, 16}, {17, 20}};

/// What EnableFunction switches, by group from 1. Button 0 is none.
struct FunctionRow { int Button; Menu name; int Index; };
constexpr FunctionRow kFunctions[] = {
    {6, Menu::menu_edit,         1},
    {7, Menu::menu_edit,         2},
    {8, Menu::menu_edit,         3},
    {0, Menu::menu_edit,         4},
    {0, Menu::menu_exportselect, 0},
};

/// What follows the kind of the active child.
struct KindEntry { Menu name; int first; int last; };
constexpr KindEntry kSnapshotEntries[] = {
    {Menu::menu_save,           0, 0},
    {Menu::menu_saveas,         0, 0},
    {Menu::menu_mode,           0, 4},
    {Menu::menu_snapshot,       0, 3},
    {Menu::menu_exportviews,    0, 0},
};
constexpr KindEntry kAnimationEntries[] = {
    {Menu::menu_animationtogif, 0, 0},
    {Menu::menu_animation,      3, 4},
};
constexpr int kSnapshotButtons[] = {3, 4, 10, 11, 12, 13, 15, 16};
constexpr int kAnimationButtons[] = {20};

/// The tools; all but the net itself end a selection.
struct ToolRow { const char* Key; Tool tool; bool bEndsSelection; };
constexpr ToolRow kTools[] = {
    {"DRAW",    kToolDraw,    true},
    {"MAGNIFY", kToolMagnify, true},
    {"NET",     kToolNet,     false},
    {"PAN",     kToolPan,     true},
};

/// The co-ordinates panel, in twips of the toolbar and of the panel.
constexpr int kCoordsWidth = 2535, kCoordsHeight = 375;
constexpr int kCoordsFromRight = 2715; ///< its left edge, counted back from the window's outer right edge
constexpr int kIconLeft[] = {120, 1320}, kIconTop = 75;
constexpr int kLabelLeft[] = {480, 1650}, kLabelTop = 120, kLabelWidth = 855, kLabelHeight = 255;
// clang-format on

} // namespace

void frmMain::CreateToolbar() {
    for (const ButtonRow& row : kButtons) {
        tbrMain->AddButton({Latin(row.Key), row.Style, Latin(row.Picture), Latin(row.ToolTipText)});
    }
    tbrMain->PressButton(10);
    tbrMain->ButtonClick = [this](int Button) { tbrMain_ButtonClick(Button); };
    tbrMain->MouseMove = [this](double x) { tbrMain_MouseMove(x * kTwipsPerPixel); };
    CreateCoordsPanel();
    // The tools have no menu entry, so this is how they are chosen without a mouse.
    connect(new QShortcut(Qt::Key_F6, this), &QShortcut::activated, tbrMain, &Toolbar::TakeKeys);
}

void frmMain::CreateCoordsPanel() {
    auto* panel = new QFrame(tbrMain);
    panel->setFrameStyle(QFrame::StyledPanel | QFrame::Sunken);
    panel->setGeometry(0, (tbrMain->height() - PixelsFromTwips(kCoordsHeight)) / 2,
                       PixelsFromTwips(kCoordsWidth), PixelsFromTwips(kCoordsHeight));
    picCoords = panel;
    const char* const names[] = {"Mouse position", "Size of the selection"};
    const char* const pictures[] = {"coords/position.svg", "coords/size.svg"};
    constexpr QSize kIconSize(16, 16);
    for (std::size_t i = 0; i < std::size(pictures); ++i) {
        imgCoords[i] = new DrawingBox(Latin(pictures[i]), kIconSize, picCoords);
        imgCoords[i]->move(PixelsFromTwips(kIconLeft[i]), PixelsFromTwips(kIconTop));
        lblCoords[i] = new QLabel(QStringLiteral("0,0"), picCoords);
        lblCoords[i]->setAlignment(Qt::AlignLeft | Qt::AlignTop);
        lblCoords[i]->setGeometry(PixelsFromTwips(kLabelLeft[i]), PixelsFromTwips(kLabelTop) - 1,
                                  PixelsFromTwips(kLabelWidth), PixelsFromTwips(kLabelHeight));
        lblCoords[i]->setAccessibleName(Latin(names[i]));
    }
    QList<QWidget*> controls = picCoords->findChildren<QWidget*>();
    controls.push_back(picCoords);
    for (QWidget* control : std::as_const(controls)) {
        control->setMouseTracking(true);
        control->installEventFilter(this);
    }
}

int frmMain::LeastToolbarWidth() const {
    // Narrower, the co-ordinates panel would lie over the buttons.
    return tbrMain->FullWidth() + PixelsFromTwips(kCoordsFromRight) + 8;
}

void frmMain::PlaceCoordsPanel() {
    picCoords->move(PixelsFromTwips(PlaceInTwips().lWidth - kCoordsFromRight), picCoords->y());
}

void frmMain::EnableFunction(std::int16_t iGroup, bool bEnable) {
    if (iGroup < 1 || iGroup > static_cast<int>(std::size(kFunctions))) {
        return;
    }
    const FunctionRow& row = kFunctions[iGroup - 1];
    if (row.Button != 0) {
        tbrMain->SetButtonEnabled(row.Button, bEnable);
    }
    Entry(row.name, row.Index)->setEnabled(bEnable);
}

void frmMain::UpdateToolbars(const QString& sKind, bool bEnable) {
    const auto follow = [this, bEnable](std::span<const KindEntry> entries, std::span<const int> buttons) {
        for (const KindEntry& row : entries) {
            for (int Index = row.first; Index <= row.last; ++Index) {
                Entry(row.name, Index)->setEnabled(bEnable);
            }
        }
        for (const int Button : buttons) {
            tbrMain->SetButtonEnabled(Button, bEnable);
        }
    };
    if (sKind == QLatin1String("SNAPSHOT")) {
        follow(kSnapshotEntries, kSnapshotButtons);
    } else if (sKind == QLatin1String("ANIMATION")) {
        follow(kAnimationEntries, kAnimationButtons);
    }
    const bool bAnyChild = iSnapshotCount + iAnimationCount != 0;
    Entry(Menu::menu_zoomopt)->setEnabled(bAnyChild);
    if (bAnyChild) {
        EnableFunction(kGroupPaste, frmClip::Instance().IsEmpty() == 0);
    } else {
        for (std::int16_t iGroup = kGroupCut; iGroup <= kGroupExportSelection; ++iGroup) {
            EnableFunction(iGroup, false);
        }
        ShowNoDocument();
    }
}

void frmMain::ArrangeToolbars() {
    for (std::size_t group = 0; group < std::size(kButtonGroups); ++group) {
        const bool f = Settings.bToolbarVisible[group] != 0;
        const auto [first, last] = kButtonGroups[group];
        // A hidden separator is made plain so that it takes no room.
        tbrMain->SetButtonStyle(first, f ? ButtonStyle::Separator : ButtonStyle::Plain);
        for (int Button = first; Button <= last; ++Button) {
            tbrMain->SetButtonVisible(Button, f);
        }
    }
    picCoords->setVisible(Settings.bToolbarVisible[5] != 0);
}

void frmMain::ShowSettingsTicks() {
    for (int i = 1; i <= 6; ++i) {
        Entry(Menu::menu_toolbar, i)
            ->setChecked(Settings.bToolbarVisible[static_cast<std::size_t>(i - 1)] != 0);
    }
    Entry(Menu::menu_fizzlet)->setChecked(Settings.bAssistantOn != 0);
}

void frmMain::menu_toolbar_Click(int Index) {
    Settings.bToolbarVisible[static_cast<std::size_t>(Index - 1)] =
        Entry(Menu::menu_toolbar, Index)->isChecked() ? -1 : 0;
    ArrangeToolbars();
}

void frmMain::ShowCoords(std::int16_t iIndex, double x, double y) {
    if (iIndex == 0 || iIndex == 1) {
        lblCoords[static_cast<std::size_t>(iIndex)]->setText(
            QString::fromStdString(TextOfNumber(x) + "," + TextOfNumber(y)));
    }
}

void frmMain::tbrMain_ButtonClick(int Button) {
    const QString Key = tbrMain->KeyOf(Button);
    for (const ToolRow& row : kTools) {
        if (Key == QLatin1String(row.Key)) {
            ChooseTool(row.tool, row.bEndsSelection);
        }
    }
    // clang-format off
    struct CommandRow { const char* Key; void (frmMain::*Click)(int Index); int Index; };
    static constexpr CommandRow kCommands[] = {
        {"OPEN",      &frmMain::menu_open_Click,       0},
        {"SAVE",      &frmMain::menu_save_Click,       0},
        {"EXPORT",    &frmMain::menu_exportview_Click, 2},
        {"CUT",       &frmMain::menu_edit_Click,       1},
        {"COPY",      &frmMain::menu_edit_Click,       2},
        {"PASTE",     &frmMain::menu_edit_Click,       3},
        {"TOANIM",    &frmMain::menu_snapshot_Click,   1},
        {"TOPLEFT",   &frmMain::menu_snapshot_Click,   3},
        {"ANIM_NEW",  &frmMain::menu_animation_Click,  1},
        {"ANIM_OPEN", &frmMain::menu_animation_Click,  2},
        {"ANIM_SAVE", &frmMain::menu_animation_Click,  3},
    };
    // clang-format on
    for (const CommandRow& row : kCommands) {
        if (Key == QLatin1String(row.Key)) {
            (this->*row.Click)(row.Index);
        }
    }
}

void frmMain::ChooseTool(Tool tool, bool bEndsSelection) {
    iCurrentTool = tool;
    if (bEndsSelection) {
        EnableNetCommands(false);
        if (frmSnapshot* snapshot = ActiveSnapshot()) {
            snapshot->ClearNet();
        }
    }
}

void frmMain::tbrMain_MouseMove(double X) {
    std::vector<std::int32_t> widths;
    for (int Button = 1; Button <= tbrMain->ButtonCount(); ++Button) {
        widths.push_back(TwipsFromPixels(tbrMain->ButtonWidth(Button)));
    }
    ShowPrompt(PromptOfButton(ButtonAtX(X, widths)));
}

} // namespace lumrake
