#include "assistant/rules/help_numbers.h"
#include "controls/control_table.h"
#include "controls/tab_strip.h"
#include "controls/watch.h"
#include "disk/texts.h"
#include "preferences/colour_swatch.h"
#include "preferences/digit_box.h"
#include "preferences/frmPrefs.h"
#include "shell/shell.h"

#include <QCheckBox>
#include <QEvent>
#include <QGroupBox>
#include <QLabel>
#include <QMenu>
#include <QPushButton>
#include <QRadioButton>
#include <QSlider>
#include <QWheelEvent>

namespace lumrake {

namespace {

/// A slider that the wheel turns only while it has the focus: what it changes is changed for good, and a turn that
/// was meant for something else must not do that.
class PaletteSlider : public QSlider {
  public:
    explicit PaletteSlider(QWidget* parent) : QSlider(Qt::Horizontal, parent) {
        setRange(0, 255);
        setPageStep(16);
    }

  protected:
    void wheelEvent(QWheelEvent* event) override {
        if (hasFocus()) {
            QSlider::wheelEvent(event);
        } else {
            event->ignore();
        }
    }
};

constexpr QSize kFormSize(346, 300);
constexpr QRect kStrip(8, 8, 330, 252);
constexpr unsigned kMove = kOnMove, kFocus = kOnFocus, kBoth = kOnMove | kOnFocus;

// clang-format off
const std::vector<Tab> kTabs = {
    {QStringLiteral("General"),      2, 51, kHelpGeneralTab,    51},
    {QStringLiteral("Defaults"),    53, 52, kHelpDefaultsTab,   52},
    {QStringLiteral("Navigation"), 105, 66, kHelpNavigationTab, 66},
    {QStringLiteral("Palette"),    171, 45, kHelpPaletteTab,    46},
};

constexpr auto kDefaults = "frmPrefs(1)", kPaletteFrame = "frmPrefs(4)";

constexpr ControlRow kControls[] = {
    // class         name   index      inside   x   y    w    h   caption, tool tip, tag, prompt
    {New<QGroupBox>, "frmPrefs", 0,    "0",    10, 50, 306, 169, "Settings",     "", "", kHelpNone, kMove},
    {New<QGroupBox>, "frmPrefs", 1,    "1",    10, 50, 306, 169, "Settings",     "", "", kHelpNone, kMove},
    {New<QGroupBox>, "frmPrefs", 2,    "2",    10, 50, 148, 169, "Small change", "", "", kHelpNone, kMove},
    {New<QGroupBox>, "frmPrefs", 3,    "2",   168, 50, 148, 169, "Large change", "", "", kHelpNone, kMove},
    {New<QGroupBox>, "frmPrefs", 4,    "3",    10, 50, 306, 169, "Settings",     "", "", kHelpNone, kMove},
    {New<QLabel>,    "imgPrefs", 0,    "0",    10, 10,  32,  32, "dialogs/prefs_general.svg", "", "", kHelpNone, kMove},
    {New<QLabel>,    "imgPrefs", 1,    "1",    10, 10,  32,  32, "dialogs/prefs_defaults.svg", "", "", kHelpNone, kMove},
    {New<QLabel>,    "imgPrefs", 2,    "2",    10, 10,  32,  32, "dialogs/prefs_navigation.svg", "", "", kHelpNone, kMove},
    {New<QLabel>,    "imgPrefs", 3,    "3",    10, 10,  32,  32, "dialogs/prefs_palette.svg", "", "", kHelpNone, kMove},

    {New<QLabel>, "lblPrefs", 0,    "0", 52, 10, 264, 32, "Alter general application settings to make LMK more to your liking.",     "", "", kHelpNone, kMove},
    {New<QLabel>, "lblPrefs", 1,    "1", 52, 10, 264, 32, "Specify the default properties for a newly opened snapshot",              "", "", kHelpNone, kMove},
    {New<QLabel>, "lblPrefs", 2,    "2", 52, 10, 264, 32, "Fine tune the snapshot navigation values to your liking",                 "", "", kHelpNone, kMove},
    {New<QLabel>, "lblPrefs", 3,    "3", 52, 10, 264, 32, "Alter the standard Spectrum palette to view images any colour you like.", "", "", kHelpNone, kMove},
    {New<QLabel>, "lblPrefs", 4,    kDefaults,     14,  26, 60, 21, "Offset",    "", "", kHelpNone, kMove},
    {New<QLabel>, "lblPrefs", 5,    kDefaults,     14,  53, 60, 21, "Width",     "", "", kHelpNone, kMove},
    {New<QLabel>, "lblPrefs", 6,    kDefaults,     14,  80, 60, 21, "Lines",     "", "", kHelpNone, kMove},
    {New<QLabel>, "lblPrefs", 7,    kDefaults,     14, 107, 60, 21, "Columns",   "", "", kHelpNone, kMove},
    {New<QLabel>, "lblPrefs", 8,    kDefaults,     14, 134, 60, 21, "Attribute", "", "", kHelpNone, kMove},
    {New<QLabel>, "lblPrefs", 9,    kPaletteFrame, 14,  24, 88, 16, "Normal",    "", "", kHelpNone, kMove},
    {New<QLabel>, "lblPrefs", 10,   kPaletteFrame, 14,  94, 88, 16, "Bright",    "", "", kHelpNone, kMove},

    {New<QCheckBox>, "chkGeneral", 0,    "frmPrefs(0)", 14, 26, 278, 21, "Prompt to save changes",   "Tick to enable a warning before changes are lost", "", kHelpPromptSave, kBoth},
    {New<QCheckBox>, "chkGeneral", 1,    "frmPrefs(0)", 14, 53, 278, 21, "Autoload last used files", "Tick to make LMK remember which files are in use", "", kHelpAutoload,   kBoth},

    {New<DigitBox>, "txtDefault", 0,    kDefaults, 78,  26, 56, 21, "Offset",    "Default file offset",       "",      kHelpDefaultOffset,    kBoth, 5},
    {New<DigitBox>, "txtDefault", 1,    kDefaults, 78,  53, 56, 21, "Width",     "Default width in bytes",    "",      kHelpDefaultWidth,     kBoth, 3},
    {New<DigitBox>, "txtDefault", 2,    kDefaults, 78,  80, 56, 21, "Lines",     "Default lines in pixels",   "LINES", kHelpDefaultLines,     kBoth, 3},
    {New<DigitBox>, "txtDefault", 3,    kDefaults, 78, 107, 56, 21, "Columns",   "Default columns",           "",      kHelpDefaultColumns,   kBoth, 2},
    {New<DigitBox>, "txtDefault", 4,    kDefaults, 78, 134, 56, 21, "Attribute", "Default attribute setting", "",      kHelpDefaultAttribute, kBoth, 3},
    {New<QPushButton>, "cmdPrefs", 4,   kDefaults, 138, 132, 28, 25, "dialogs/attribute.svg", "Click here to show attribute selection", "ATTRIBUTE", kHelpDefaultColours, kBoth},
};

constexpr ControlRow kFurtherControls[] = {
    {New<QRadioButton>, "optSmall", 0,    "frmPrefs(2)", 14,  26, 120, 21, "1 line",   "Scroll 1 line at a time",    "1", kHelpFirstSmallChange,     kBoth},
    {New<QRadioButton>, "optSmall", 1,    "frmPrefs(2)", 14,  53, 120, 21, "2 lines",  "Scroll 2 lines at a time",   "2", kHelpFirstSmallChange + 1, kBoth},
    {New<QRadioButton>, "optSmall", 2,    "frmPrefs(2)", 14,  80, 120, 21, "4 lines",  "Scroll 4 lines at a time",   "4", kHelpFirstSmallChange + 2, kBoth},
    {New<QRadioButton>, "optSmall", 3,    "frmPrefs(2)", 14, 107, 120, 21, "8 lines",  "Scroll 8 lines at a time",   "8", kHelpFirstSmallChange + 3, kBoth},
    {New<QRadioButton>, "optLarge", 0,    "frmPrefs(3)", 14,  26, 120, 21, "1 page",   "Scroll 1 whole page",        "1", kHelpFirstLargeChange,     kBoth},
    {New<QRadioButton>, "optLarge", 1,    "frmPrefs(3)", 14,  53, 120, 21, "1/2 page", "Scroll half a page",         "2", kHelpFirstLargeChange + 1, kBoth},
    {New<QRadioButton>, "optLarge", 2,    "frmPrefs(3)", 14,  80, 120, 21, "1/4 page", "Scroll a quarter of a page", "4", kHelpFirstLargeChange + 2, kBoth},
    {New<QRadioButton>, "optLarge", 3,    "frmPrefs(3)", 14, 107, 120, 21, "1/8 page", "Scroll an eigth of a page",  "8", kHelpFirstLargeChange + 3, kBoth},

    {New<SwatchMarker>,  "shpMarker", kAlone, kPaletteFrame, 0, 0, 18, 18, "", "", "", kHelpNone, 0},
    {New<PaletteSlider>, "scrCol", 0,    kPaletteFrame, 118,  42, 136, 21, "Red",   "", "", kHelpRed,   kFocus},
    {New<PaletteSlider>, "scrCol", 1,    kPaletteFrame, 118,  69, 136, 21, "Green", "", "", kHelpGreen, kFocus},
    {New<PaletteSlider>, "scrCol", 2,    kPaletteFrame, 118,  96, 136, 21, "Blue",  "", "", kHelpBlue,  kFocus},
    {New<QLabel>,        "lblCol", 0,    kPaletteFrame, 264,  42,  28, 21, "", "", "", kHelpNone, kMove},
    {New<QLabel>,        "lblCol", 1,    kPaletteFrame, 264,  69,  28, 21, "", "", "", kHelpNone, kMove},
    {New<QLabel>,        "lblCol", 2,    kPaletteFrame, 264,  96,  28, 21, "", "", "", kHelpNone, kMove},
    {New<QPushButton>, "cmdPrefs", 2,    kPaletteFrame, 264, 130,  28, 25, "dialogs/palette.svg", "Click here to show palette tools", "POPUP", kHelpPaletteTools, kBoth},

    {New<QPushButton>, "cmdPrefs", 1,    "", 170, 268, 80, 24, "&Cancel", "Cancel without saving changes", "CANCEL", kHelpCancel, kBoth},
    {New<QPushButton>, "cmdPrefs", 0,    "", 258, 268, 80, 24, "&Okay",   "Save preferences and quit",     "OKAY",   kHelpOkay,   kBoth},
};

/// What a screen reader calls the swatches.
constexpr const char* kColours[] = {
    "black",        "blue",        "red",        "magenta",        "green",        "cyan",        "yellow",        "white",
    "Bright black", "Bright blue", "Bright red", "Bright magenta", "Bright green", "Bright cyan", "Bright yellow", "Bright white"};

constexpr const char* kMenu[] = {"Set to &default", "Copy &normal to bright", "Copy &bright to normal",
                                 "S&pread normal",  "Sp&read bright"};
// clang-format on

std::vector<ControlRow> ModeRows() {
    std::vector<ControlRow> rows;
    rows.reserve(lmk::kModes.size());
    const int step = 135 / static_cast<int>(lmk::kModes.size()); // pixels: the frame has room for all
    for (int i = 0; const lmk::ModeRow& mode : lmk::kModes) {
        rows.push_back({New<QRadioButton>, "optMode", i, kDefaults, 196, 26 + step * i, 100, 21, mode.Caption,
                        mode.ToolTipText, "", mode.help, kBoth});
        ++i;
    }
    return rows;
}

/// Two halves of two rows of four.
std::vector<ControlRow> SwatchRows() {
    std::vector<ControlRow> rows;
    rows.reserve(std::size(kColours));
    for (int i = 0; i < static_cast<int>(std::size(kColours)); ++i) {
        rows.push_back({New<ColourSwatch>, "lblPalette", i, kPaletteFrame, 14 + i % 4 * 24,
                        44 + i / 4 % 2 * 24 + i / 8 * 70, 16, 16, kColours[i], "", "", kHelpPalette, kMove});
    }
    return rows;
}

} // namespace

void frmPrefs::CreateControls() {
    setWindowTitle(QStringLiteral("LMK Preferences"));
    setFixedSize(kFormSize);
    SetHelp(this, kHelpNone);
    SSTab1 = new TabStrip(kTabs, this);
    SSTab1->setObjectName(QStringLiteral("SSTab1"));
    SSTab1->setGeometry(kStrip);

    lumrake::CreateControls(*this, SSTab1, kControls);
    lumrake::CreateControls(*this, SSTab1, ModeRows());
    lumrake::CreateControls(*this, SSTab1, kFurtherControls);
    lumrake::CreateControls(*this, SSTab1, SwatchRows());
    Bind(*this, "cmdPrefs", cmdPrefs);
    Bind(*this, "chkGeneral", chkGeneral);
    Bind(*this, "txtDefault", txtDefault);
    Bind(*this, "optMode", optMode);
    Bind(*this, "optSmall", optSmall);
    Bind(*this, "optLarge", optLarge);
    Bind(*this, "lblPalette", lblPalette);
    Bind(*this, "scrCol", scrCol);
    Bind(*this, "lblCol", lblCol);
    shpMarker = Find<SwatchMarker>(*this, "shpMarker");
    shpMarker->raise(); // its line is whole where it shares a device pixel with the swatch

    for (int i = 0; auto* label = Find<QLabel>(*this, "lblPrefs", i); ++i) {
        label->setWordWrap(true);
    }
    for (QLabel* number : lblCol) {
        number->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    }
    cmdPrefs[0]->setDefault(true);
    menu_palettetop = new QMenu(QStringLiteral("palette"), this);
    menu_palettetop->setObjectName(QStringLiteral("menu_palettetop"));
    for (const char* entry : kMenu) {
        menu_palettetop->addAction(Latin(entry));
    }
    ColourNumbers();
}

void frmPrefs::ColourNumbers() {
    // Pure red, green and blue can't be read on a dark ground, nor pure green on a light one.
    static const QColor onLight[3] = {QColor(192, 0, 0), QColor(0, 112, 0), QColor(0, 0, 208)};
    static const QColor onDark[3] = {QColor(255, 120, 120), QColor(96, 220, 96), QColor(140, 170, 255)};
    const bool dark = palette().color(QPalette::Window).lightness() < 128;
    for (std::size_t i = 0; i < lblCol.size(); ++i) {
        QPalette colours;
        colours.setColor(QPalette::WindowText, dark ? onDark[i] : onLight[i]);
        lblCol[i]->setPalette(colours);
    }
}

void frmPrefs::changeEvent(QEvent* event) {
    QDialog::changeEvent(event);
    if (event->type() == QEvent::PaletteChange && lblCol[0] != nullptr) {
        ColourNumbers();
    }
}

void frmPrefs::showEvent(QShowEvent* event) {
    QDialog::showEvent(event);
    if (!event->spontaneous()) {
        // The first focus comes with the window and would not be told otherwise.
        chkGeneral[0]->setFocus();
        Shell().ShowPrompt(kHelpPromptSave);
    }
}

} // namespace lumrake
