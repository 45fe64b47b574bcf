#include "base/twips.h"
#include "controls/pictures.h"
#include "controls/tab_strip.h"
#include "controls/watched.h"
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
#include <QMouseEvent>
#include <QPushButton>
#include <QRadioButton>
#include <QSlider>
#include <QWheelEvent>

#include <type_traits>

namespace lumrake {

/// When a control hands its help key to ShowPrompt.
enum class Prompt { OnMove, OnFocus, OnBoth };

/// One control of an array. Its place is in logical pixels of its container.
struct ControlRow {
    int container; ///< kForm, a page (0 to 3) or kFrame + the number of a frame
    const char* caption;
    const char* tag;
    const char* toolTip;
    std::int32_t helpKey; ///< 0 empties the bubble
    int x, y, w, h;
};

namespace {

/// A slider that the wheel turns only while it has the focus: what it changes is changed for good, and a turn that
/// was meant for something else must not do that.
class PaletteSlider : public Watched<QSlider> {
  public:
    using Watched<QSlider>::Watched;

  protected:
    void wheelEvent(QWheelEvent* event) override {
        if (hasFocus()) {
            QSlider::wheelEvent(event);
        } else {
            event->ignore();
        }
    }
};

constexpr int kForm = -1;
constexpr int kFrame = 10;
constexpr int kNoControl = -2; ///< a gap in the numbers of an array

constexpr QSize kFormSize(346, 300);
constexpr QRect kStrip(8, 8, 330, 252);
constexpr QSize kIcon(16, 16);

// clang-format off
const std::vector<Tab> kTabs = {
    {QStringLiteral("General"),      2, 51},
    {QStringLiteral("Defaults"),    53, 52},
    {QStringLiteral("Navigation"), 105, 66},
    {QStringLiteral("Palette"),    171, 45},
};

/// The tabs as the prompts see them, in twips of the strip; a shared bound belongs to the later row.
constexpr struct { std::int32_t left, right, helpKey; } kTabPrompts[] = {
    {  30,  795, 69},
    { 795, 1575, 70},
    {1575, 2565, 71},
    {2565, 3240, 72},
};
constexpr std::int32_t kTabTop = 45, kTabBottom = 270;

constexpr const char* kPictures[4] = {"dialogs/prefs_general.svg",    "dialogs/prefs_defaults.svg",
                                      "dialogs/prefs_navigation.svg", "dialogs/prefs_palette.svg"};

constexpr ControlRow kImgPrefs[] = {
    // page caption tag tip key    x   y   w   h
    {0,     "",     "", "", 0,    10, 10, 32, 32},
    {1,     "",     "", "", 0,    10, 10, 32, 32},
    {2,     "",     "", "", 0,    10, 10, 32, 32},
    {3,     "",     "", "", 0,    10, 10, 32, 32},
};

constexpr ControlRow kFrames[] = {
    {0, "Settings",     "", "", 0,    10,  50, 306, 169},
    {1, "Settings",     "", "", 0,    10,  50, 306, 169},
    {2, "Small change", "", "", 0,    10,  50, 148, 169},
    {2, "Large change", "", "", 0,   168,  50, 148, 169},
    {3, "Settings",     "", "", 0,    10,  50, 306, 169},
};

constexpr ControlRow kLabels[] = {
    {0, "Alter general application settings to make LMK more to your liking.",       "", "", 0,  52, 10, 264, 32},
    {1, "Specify the default properties for a newly opened snapshot",                "", "", 0,  52, 10, 264, 32},
    {2, "Fine tune the snapshot navigation values to your liking",                   "", "", 0,  52, 10, 264, 32},
    {3, "Alter the standard Spectrum palette to view images any colour you like.",   "", "", 0,  52, 10, 264, 32},
    {kFrame + 1, "Offset",    "", "", 0,   14,  26, 60, 21},
    {kFrame + 1, "Width",     "", "", 0,   14,  53, 60, 21},
    {kFrame + 1, "Lines",     "", "", 0,   14,  80, 60, 21},
    {kFrame + 1, "Columns",   "", "", 0,   14, 107, 60, 21},
    {kFrame + 1, "Attribute", "", "", 0,   14, 134, 60, 21},
    {kFrame + 4, "Normal",    "", "", 0,   14,  24, 88, 16},
    {kFrame + 4, "Bright",    "", "", 0,   14,  94, 88, 16},
};

constexpr ControlRow kGeneral[] = {
    {kFrame + 0, "Prompt to save changes",   "", "Tick to enable a warning before changes are lost", 73, 14, 26, 278, 21},
    {kFrame + 0, "Autoload last used files", "", "Tick to make LMK remember which files are in use", 74, 14, 53, 278, 21},
};

constexpr ControlRow kDefault[] = {
    {kFrame + 1, "Offset",    "",      "Default file offset",       75, 78,  26, 56, 21},
    {kFrame + 1, "Width",     "",      "Default width in bytes",    76, 78,  53, 56, 21},
    {kFrame + 1, "Lines",     "LINES", "Default lines in pixels",   77, 78,  80, 56, 21},
    {kFrame + 1, "Columns",   "",      "Default columns",           78, 78, 107, 56, 21},
    {kFrame + 1, "Attribute", "",      "Default attribute setting", 79, 78, 134, 56, 21},
};
constexpr int kDefaultLength[kDefaultFields] = {5, 3, 3, 2, 3};

constexpr ControlRow kMode[] = {
    {kFrame + 1, "Graphics",  "", "Set default mode to graphics",  80, 196,  26, 100, 21},
    {kFrame + 1, "Screen",    "", "Set default mode to screen",    81, 196,  53, 100, 21},
    {kFrame + 1, "Text",      "", "Set default mode to text",      82, 196,  80, 100, 21},
    {kFrame + 1, "Line mask", "", "Set default mode to interlace", 83, 196, 107, 100, 21},
    {kFrame + 1, "Byte mask", "", "Set default mode to interlace", 84, 196, 134, 100, 21},
};

constexpr ControlRow kSmall[] = {
    {kFrame + 2, "1 line",   "1", "Scroll 1 line at a time",    86, 14,  26, 120, 21},
    {kFrame + 2, "2 lines",  "2", "Scroll 2 lines at a time",   87, 14,  53, 120, 21},
    {kFrame + 2, "4 lines",  "4", "Scroll 4 lines at a time",   88, 14,  80, 120, 21},
    {kFrame + 2, "8 lines",  "8", "Scroll 8 lines at a time",   89, 14, 107, 120, 21},
};

constexpr ControlRow kLarge[] = {
    {kFrame + 3, "1 page",   "1", "Scroll 1 whole page",        90, 14,  26, 120, 21},
    {kFrame + 3, "1/2 page", "2", "Scroll half a page",         91, 14,  53, 120, 21},
    {kFrame + 3, "1/4 page", "4", "Scroll a quarter of a page", 92, 14,  80, 120, 21},
    {kFrame + 3, "1/8 page", "8", "Scroll an eigth of a page",  93, 14, 107, 120, 21},
};

constexpr ControlRow kButtons[] = {
    {kForm,      "&Okay",   "OKAY",      "Save preferences and quit",              61, 258, 268, 80, 24},
    {kForm,      "&Cancel", "CANCEL",    "Cancel without saving changes",          62, 170, 268, 80, 24},
    {kFrame + 4, "",        "POPUP",     "Click here to show palette tools",       94, 264, 130, 28, 25},
    {kNoControl, "",        "",          "",                                        0,   0,   0,  0,  0},
    {kFrame + 1, "",        "ATTRIBUTE", "Click here to show attribute selection", 85, 138, 132, 28, 25},
};
constexpr const char* kButtonIcons[] = {"", "", "dialogs/palette.svg", "", "dialogs/attribute.svg"};

constexpr ControlRow kSliders[] = {
    {kFrame + 4, "Red",   "", "", 95, 118,  42, 136, 21},
    {kFrame + 4, "Green", "", "", 96, 118,  69, 136, 21},
    {kFrame + 4, "Blue",  "", "", 97, 118,  96, 136, 21},
};

constexpr ControlRow kNumbers[] = {
    {kFrame + 4, "",  "", "", 0, 264,  42, 28, 21},
    {kFrame + 4, "",  "", "", 0, 264,  69, 28, 21},
    {kFrame + 4, "",  "", "", 0, 264,  96, 28, 21},
};

constexpr ControlRow kSwatches[] = {
    {kFrame + 4, "", "", "", 98, 14,  44, 16, 16}, {kFrame + 4, "", "", "", 98, 38,  44, 16, 16},
    {kFrame + 4, "", "", "", 98, 62,  44, 16, 16}, {kFrame + 4, "", "", "", 98, 86,  44, 16, 16},
    {kFrame + 4, "", "", "", 98, 14,  68, 16, 16}, {kFrame + 4, "", "", "", 98, 38,  68, 16, 16},
    {kFrame + 4, "", "", "", 98, 62,  68, 16, 16}, {kFrame + 4, "", "", "", 98, 86,  68, 16, 16},
    {kFrame + 4, "", "", "", 98, 14, 114, 16, 16}, {kFrame + 4, "", "", "", 98, 38, 114, 16, 16},
    {kFrame + 4, "", "", "", 98, 62, 114, 16, 16}, {kFrame + 4, "", "", "", 98, 86, 114, 16, 16},
    {kFrame + 4, "", "", "", 98, 14, 138, 16, 16}, {kFrame + 4, "", "", "", 98, 38, 138, 16, 16},
    {kFrame + 4, "", "", "", 98, 62, 138, 16, 16}, {kFrame + 4, "", "", "", 98, 86, 138, 16, 16},
};

/// What a screen reader calls the swatches.
constexpr const char* kColours[] = {"black", "blue", "red", "magenta", "green", "cyan", "yellow", "white"};

constexpr const char* kMenu[] = {"Set to &default", "Copy &normal to bright", "Copy &bright to normal",
                                 "S&pread normal",  "Sp&read bright"};
// clang-format on

constexpr QSize kMarker(18, 18);

/// What the toolkit calls the caption; a box or a slider has none and lends it to screen readers.
template <class Control> void SetCaption(Control& control, const QString& caption) {
    if constexpr (std::is_base_of_v<QGroupBox, Control>) {
        control.setTitle(caption);
    } else if constexpr (std::is_base_of_v<QLabel, Control> || std::is_base_of_v<QAbstractButton, Control>) {
        control.setText(caption);
    } else {
        control.setAccessibleName(caption);
    }
}

} // namespace

template <class Made, class Shown, std::size_t N>
void frmPrefs::CreateArray(std::array<Shown*, N>& controls, const char* name, const ControlRow (&rows)[N],
                           Prompt prompt) {
    for (std::size_t i = 0; i < N; ++i) {
        const ControlRow& row = rows[i];
        if (row.container == kNoControl) {
            continue;
        }
        auto* control = new Made(Container(row.container));
        controls[i] = control;
        control->setObjectName(QStringLiteral("%1(%2)").arg(Latin(name)).arg(i));
        control->setProperty("Tag", Latin(row.tag));
        control->setToolTip(Latin(row.toolTip));
        control->setGeometry(row.x, row.y, row.w, row.h);
        SetCaption(*control, Latin(row.caption));
        const auto show = [key = row.helpKey] { ShowPrompt(key); };
        if (prompt != Prompt::OnFocus) {
            control->MouseMove = show;
        }
        if (prompt != Prompt::OnMove) {
            control->GotFocus = show;
        }
    }
}

QWidget* frmPrefs::Container(int number) {
    if (number >= kFrame) {
        return frmPrefs_[static_cast<std::size_t>(number - kFrame)];
    }
    return number == kForm ? this : SSTab1->Page(number);
}

void frmPrefs::CreateControls() {
    setWindowTitle(QStringLiteral("LMK Preferences"));
    setFixedSize(kFormSize);
    setMouseTracking(true);
    SSTab1 = new TabStrip(kTabs, this);
    SSTab1->setObjectName(QStringLiteral("SSTab1"));
    SSTab1->setGeometry(kStrip);

    CreateArray<Watched<QGroupBox>>(frmPrefs_, "frmPrefs", kFrames, Prompt::OnMove);
    CreateArray<Watched<QLabel>>(imgPrefs, "imgPrefs", kImgPrefs, Prompt::OnMove);
    CreateArray<Watched<QLabel>>(lblPrefs, "lblPrefs", kLabels, Prompt::OnMove);
    CreateArray<Watched<QCheckBox>>(chkGeneral, "chkGeneral", kGeneral, Prompt::OnBoth);
    CreateArray<DigitBox>(txtDefault, "txtDefault", kDefault, Prompt::OnBoth);
    CreateArray<Watched<QRadioButton>>(optMode, "optMode", kMode, Prompt::OnBoth);
    CreateArray<Watched<QRadioButton>>(optSmall, "optSmall", kSmall, Prompt::OnBoth);
    CreateArray<Watched<QRadioButton>>(optLarge, "optLarge", kLarge, Prompt::OnBoth);
    shpMarker = new SwatchMarker(Container(kFrame + 4));
    shpMarker->setObjectName(QStringLiteral("shpMarker"));
    shpMarker->resize(kMarker);
    CreateArray<ColourSwatch>(lblPalette, "lblPalette", kSwatches, Prompt::OnMove);
    for (std::size_t i = 0; i < lblPalette.size(); ++i) {
        lblPalette[i]->setAccessibleName(
            Latin(i < kBrightStart ? "%1" : "Bright %1").arg(Latin(kColours[i % kBrightStart])));
    }
    shpMarker->raise(); // its line is whole where it shares a device pixel with the swatch
    CreateArray<PaletteSlider>(scrCol, "scrCol", kSliders, Prompt::OnFocus);
    CreateArray<Watched<QLabel>>(lblCol, "lblCol", kNumbers, Prompt::OnMove);
    CreateArray<Watched<QPushButton>>(cmdPrefs, "cmdPrefs", kButtons, Prompt::OnBoth);

    for (std::size_t i = 0; i < txtDefault.size(); ++i) {
        txtDefault[i]->SetLimit(kDefaultLength[i]);
        txtDefault[i]->LostFocus = [this, i] { txtDefault_LostFocus(static_cast<int>(i)); };
    }
    for (QLabel* label : lblPrefs) {
        label->setWordWrap(true);
    }
    for (QSlider* slider : scrCol) {
        slider->setOrientation(Qt::Horizontal);
        slider->setRange(0, 255);
        slider->setPageStep(16);
    }
    for (QLabel* number : lblCol) {
        number->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    }
    cmdPrefs[0]->setDefault(true);
    CreatePictures();
    CreateMenu();
    ColourNumbers();
    ChainTabOrder();
}

void frmPrefs::CreatePictures() {
    for (std::size_t i = 0; i < imgPrefs.size(); ++i) {
        imgPrefs[i]->setPixmap(LoadPicture(Latin(kPictures[i]), imgPrefs[i]->size(), devicePixelRatioF()));
    }
    for (std::size_t i = 0; i < cmdPrefs.size(); ++i) {
        if (*kButtonIcons[i] != '\0') {
            cmdPrefs[i]->setIcon(LoadIcon(Latin(kButtonIcons[i]), kIcon));
            cmdPrefs[i]->setIconSize(kIcon);
            cmdPrefs[i]->setAccessibleName(cmdPrefs[i]->toolTip());
        }
    }
}

void frmPrefs::CreateMenu() {
    menu_palettetop = new QMenu(QStringLiteral("palette"), this);
    menu_palettetop->setObjectName(QStringLiteral("menu_palettetop"));
    for (const char* entry : kMenu) {
        menu_palettetop->addAction(Latin(entry));
    }
}

void frmPrefs::ChainTabOrder() const {
    std::vector<QWidget*> chain(chkGeneral.begin(), chkGeneral.end());
    chain.insert(chain.end(), txtDefault.begin(), txtDefault.end());
    chain.push_back(cmdPrefs[4]);
    chain.insert(chain.end(), optMode.begin(), optMode.end());
    chain.insert(chain.end(), optSmall.begin(), optSmall.end());
    chain.insert(chain.end(), optLarge.begin(), optLarge.end());
    chain.insert(chain.end(), scrCol.begin(), scrCol.end());
    chain.insert(chain.end(), {cmdPrefs[2], cmdPrefs[1], cmdPrefs[0]});
    for (std::size_t i = 1; i < chain.size(); ++i) {
        setTabOrder(chain[i - 1], chain[i]);
    }
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
        ShowPrompt(kGeneral[0].helpKey);
    }
}

void frmPrefs::mouseMoveEvent(QMouseEvent*) {
    ShowPrompt(0);
}

void frmPrefs::SSTab1_MouseMove(int x, int y) {
    const std::int32_t left = TwipsFromPixels(x), top = TwipsFromPixels(y);
    std::int32_t helpKey = 0;
    if (top >= kTabTop && top <= kTabBottom) {
        for (const auto& tab : kTabPrompts) {
            if (left >= tab.left && left <= tab.right) {
                helpKey = tab.helpKey;
            }
        }
    }
    ShowPrompt(helpKey);
}

} // namespace lumrake
