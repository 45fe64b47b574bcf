#include "snapshot/frmColours.h"

#include "controls/screen_colour.h"
#include "controls/tab_strip.h"
#include "controls/watched.h"
#include "disk/texts.h"
#include "shell/shell.h"

#include <QAbstractButton>
#include <QApplication>
#include <QCheckBox>
#include <QKeyEvent>
#include <QLabel>
#include <QMouseEvent>
#include <QPushButton>

namespace lumrake {

namespace {

constexpr int kSample = 8; // index of the sample in lblColour

// Places in logical pixels. The swatches lie on the page of the tab control, the buttons on the dialog.
constexpr QSize kDialog(222, 252);
constexpr QRect kTab(8, 8, 206, 204);
constexpr QRect kSwatch(12, 12, 40, 32); // the first one
constexpr int kSwatchStepX = 46, kSwatchStepY = 38, kSwatchesInRow = 4;
constexpr QRect kSampleSquare(12, 96, 68, 68);
constexpr QRect kBright(104, 118, 88, 24);
constexpr int kSamplePixels = 48; // 36 points

/// Prompts of the assistant.
enum Help {
    kHelpNone = 0,
    kHelpSwatch = 64,
    kHelpSample = 65,
    kHelpBright = 66,
    kHelpCancel = 67,
    kHelpSelect = 68
};

struct ButtonRow {
    const char* caption;
    const char* tag;
    QRect place;
    Help help;
};
// clang-format off
constexpr std::array<ButtonRow, 2> kButtons{{
    {"&Select", "SELECT", QRect(138, 219, 76, 25), kHelpSelect},
    {"&Cancel", "CANCEL", QRect( 56, 219, 76, 25), kHelpCancel},
}};
// clang-format on

/// What a screen reader calls the swatches and the sample.
constexpr const char* kNames[] = {"Black", "Blue",   "Red",   "Magenta", "Green",
                                  "Cyan",  "Yellow", "White", "Sample"};

const char* const kHelpProperty = "HelpContextID";
const char* const kTagProperty = "Tag";

QColor BackColor(const QLabel& label) {
    return label.palette().color(QPalette::Window);
}

void SetColours(QLabel& label, const QColor& fore, const QColor& back) {
    QPalette palette = label.palette();
    palette.setColor(QPalette::WindowText, fore);
    palette.setColor(QPalette::Window, back);
    label.setPalette(palette);
}

} // namespace

frmColours::frmColours(QWidget* parent) : QDialog(parent) {
    setWindowTitle(QStringLiteral("Colours"));
    setWindowFlag(Qt::WindowContextHelpButtonHint, false);
    setFixedSize(kDialog);
    setMouseTracking(true);
    CreateControls();
}

void frmColours::CreateControls() {
    // Moves over a control belong to it, also where the toolkit would pass them on to what lies under it.
    const auto watch = [this](QWidget* control, Help help) {
        control->setProperty(kHelpProperty, static_cast<int>(help));
        control->setMouseTracking(true);
        control->installEventFilter(this);
    };

    SSTab1 = new TabStrip({{QStringLiteral("Colour"), 1, 51}}, this);
    SSTab1->setGeometry(kTab);
    SSTab1->MouseMove = [](int, int) { ShowPrompt(kHelpNone); };
    QWidget* page = SSTab1->Page(0);

    for (int index = 0; index < static_cast<int>(lblColour.size()); ++index) {
        auto* label = new QLabel(page);
        const bool sample = index == kSample;
        label->setGeometry(sample ? kSampleSquare
                                  : kSwatch.translated(index % kSwatchesInRow * kSwatchStepX,
                                                       index / kSwatchesInRow * kSwatchStepY));
        label->setFrameStyle(static_cast<int>(QFrame::Panel) | static_cast<int>(QFrame::Sunken));
        label->setAutoFillBackground(true);
        label->setAccessibleName(Latin(kNames[index]));
        watch(label, sample ? kHelpSample : kHelpSwatch);
        lblColour[static_cast<std::size_t>(index)] = label;
    }
    QFont font(QStringLiteral("Arial"));
    font.setBold(true);
    font.setPixelSize(kSamplePixels);
    lblColour[kSample]->setFont(font);
    lblColour[kSample]->setAlignment(Qt::AlignCenter);
    lblColour[kSample]->setText(QStringLiteral("S"));

    chkBright = new QCheckBox(QStringLiteral("Bright"), page);
    chkBright->setGeometry(kBright);
    watch(chkBright, kHelpBright);
    connect(chkBright, &QCheckBox::toggled, this, [this] { chkBright_Click(); });

    for (std::size_t index = 0; index < kButtons.size(); ++index) {
        const ButtonRow& row = kButtons[index];
        auto* button = new QPushButton(Latin(row.caption), this);
        button->setProperty(kTagProperty, Latin(row.tag));
        button->setGeometry(row.place);
        button->setAutoDefault(false); // Enter does nothing special
        watch(button, row.help);
        connect(button, &QPushButton::clicked, this,
                [this, index] { cmdColour_Click(static_cast<int>(index)); });
        cmdColour[index] = button;
    }
}

std::int16_t frmColours::GetColour(std::int16_t iColour) {
    const bool given = iColour != -1;
    chkBright->setChecked(given && (iColour & 64) != 0);
    chkBright_Click(); // the box raises no event when its value is the start value
    iInk = given ? static_cast<std::int16_t>(iColour & 7) : std::int16_t{7};
    iPaper = given ? static_cast<std::int16_t>(iColour >> 3 & 7) : std::int16_t{0};
    iResult = -1; // unless "Select" is clicked
    exec();
    return iResult;
}

void frmColours::ShowColours(std::int16_t iBright) {
    const std::size_t half = iBright == 0 ? 0 : 8;
    for (std::size_t n = 0; n < 8; ++n) {
        SetColours(*lblColour[n], Qt::black, ScreenColour(Settings.lPalette[half + n]));
    }
    ShowSample();
}

void frmColours::ShowSample() {
    SetColours(*lblColour[kSample], BackColor(*lblColour[static_cast<std::size_t>(iInk)]),
               BackColor(*lblColour[static_cast<std::size_t>(iPaper)]));
}

void frmColours::chkBright_Click() {
    ShowColours(chkBright->isChecked() ? 1 : 0);
}

void frmColours::lblColour_MouseDown(int Index, Qt::MouseButton Button) {
    if (Index == kSample) {
        return; // it shows the choice and offers none
    }
    if (Button == Qt::LeftButton) {
        iInk = static_cast<std::int16_t>(Index);
    } else if (Button == Qt::RightButton) {
        iPaper = static_cast<std::int16_t>(Index);
    }
    ShowSample();
}

void frmColours::cmdColour_Click(int Index) {
    if (cmdColour[static_cast<std::size_t>(Index)]->property(kTagProperty) == QStringLiteral("SELECT")) {
        iResult = static_cast<std::int16_t>((chkBright->isChecked() ? 64 : 0) + iPaper * 8 + iInk);
        accept();
    } else {
        reject();
    }
}

bool frmColours::eventFilter(QObject* watched, QEvent* event) {
    const int help = watched->property(kHelpProperty).toInt();
    switch (event->type()) {
    case QEvent::MouseMove:
        ShowPrompt(help);
        // A button follows the mouse while it is held down, to know whether it still lies under it.
        return static_cast<QMouseEvent*>(event)->buttons() != Qt::LeftButton ||
               qobject_cast<QAbstractButton*>(watched) == nullptr;
    case QEvent::FocusIn:
        if (IsMoveOfFocus(static_cast<QFocusEvent*>(event)->reason())) {
            ShowPrompt(help);
        }
        return false;
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick: // two quick presses are two presses
        for (int index = 0; index < static_cast<int>(lblColour.size()); ++index) {
            if (watched == lblColour[static_cast<std::size_t>(index)]) {
                lblColour_MouseDown(index, static_cast<QMouseEvent*>(event)->button());
                return true;
            }
        }
        return false;
    default: return false;
    }
}

void frmColours::mouseMoveEvent(QMouseEvent*) {
    ShowPrompt(kHelpNone);
}

/// Enter and Escape do nothing here: the dialog's own handling of them is passed over.
void frmColours::keyPressEvent(QKeyEvent* event) {
    QWidget::keyPressEvent(event); // NOLINT(bugprone-parent-virtual-call)
}

void frmColours::showEvent(QShowEvent* event) {
    QDialog::showEvent(event);
    ShowSample();
    if (!event->spontaneous()) {
        // The first focus comes with the window and would not be told otherwise.
        chkBright->setFocus();
        ShowPrompt(kHelpBright);
    }
}

} // namespace lumrake
