#include "snapshot/frmColours.h"

#include "assistant/rules/help_numbers.h"
#include "controls/control_table.h"
#include "controls/screen_colour.h"
#include "controls/spoken.h"
#include "controls/tab_strip.h"
#include "controls/watch.h"
#include "display/attribute.h"
#include "shell/shell.h"

#include <QCheckBox>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>

namespace lumrake {

namespace {

constexpr int kSample = 8; // index of the sample in lblColour

constexpr QSize kDialog(222, 252);
constexpr QRect kTab(8, 8, 206, 204);
constexpr int kSamplePixels = 48; // 36 points

/// A square of one colour in a sunken frame, named for screen readers alone.
QWidget* NewSwatch(QWidget* parent) {
    auto* label = new QLabel(parent);
    label->setFrameStyle(static_cast<int>(QFrame::Panel) | static_cast<int>(QFrame::Sunken));
    label->setAutoFillBackground(true);
    return label;
}

// clang-format off
constexpr ControlRow kControls[] = {
    {NewSwatch,        "lblColour", 0,      "0",  12,  12, 40, 32, "", "", "", kHelpColours, kOnMove},
    {NewSwatch,        "lblColour", 1,      "0",  58,  12, 40, 32, "", "", "", kHelpColours, kOnMove},
    {NewSwatch,        "lblColour", 2,      "0", 104,  12, 40, 32, "", "", "", kHelpColours, kOnMove},
    {NewSwatch,        "lblColour", 3,      "0", 150,  12, 40, 32, "", "", "", kHelpColours, kOnMove},
    {NewSwatch,        "lblColour", 4,      "0",  12,  50, 40, 32, "", "", "", kHelpColours, kOnMove},
    {NewSwatch,        "lblColour", 5,      "0",  58,  50, 40, 32, "", "", "", kHelpColours, kOnMove},
    {NewSwatch,        "lblColour", 6,      "0", 104,  50, 40, 32, "", "", "", kHelpColours, kOnMove},
    {NewSwatch,        "lblColour", 7,      "0", 150,  50, 40, 32, "", "", "", kHelpColours, kOnMove},
    {NewSwatch,        "lblColour", 8,      "0",  12,  96, 68, 68, "S", "", "", kHelpSample, kOnMove},
    {New<QCheckBox>,   "chkBright", kAlone, "0", 104, 118, 88, 24, "Bright",  "", "", kHelpBright, kOnMove | kOnFocus},
    {New<QPushButton>, "cmdColour", 0,      "",  138, 219, 76, 25, "&Select", "", "SELECT", kHelpSelect, kOnMove | kOnFocus},
    {New<QPushButton>, "cmdColour", 1,      "",   56, 219, 76, 25, "&Cancel", "", "CANCEL", kHelpPickerCancel, kOnMove | kOnFocus},
};
// clang-format on

/// What a screen reader calls the swatches and the sample.
constexpr const char* kNames[] = {"Black", "Blue",   "Red",   "Magenta", "Green",
                                  "Cyan",  "Yellow", "White", "Sample"};

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
    SetHelp(this, kHelpNone);
    SSTab1 = new TabStrip({{QStringLiteral("Colour"), 1, 51}}, this);
    SSTab1->setGeometry(kTab);
    lumrake::CreateControls(*this, SSTab1, kControls);
    Bind(*this, "lblColour", lblColour);
    chkBright = Find<QCheckBox>(*this, "chkBright");
    Bind(*this, "cmdColour", cmdColour);
    for (int Index = 0; Index < static_cast<int>(lblColour.size()); ++Index) {
        Speak(Index);
        Watch(lblColour[Index]).MouseDown = [this, Index](const MouseArgs& args) {
            lblColour_MouseDown(Index, args.Button);
        };
    }
    QFont font(QStringLiteral("Arial"));
    font.setBold(true);
    font.setPixelSize(kSamplePixels);
    lblColour[kSample]->setFont(font);
    lblColour[kSample]->setAlignment(Qt::AlignCenter);
    for (QPushButton* button : cmdColour) {
        button->setAutoDefault(false); // Enter does nothing special
    }
    connect(chkBright, &QCheckBox::toggled, this, &frmColours::chkBright_Click);
    Connect(this, cmdColour, &QPushButton::clicked, &frmColours::cmdColour_Click);
}

void frmColours::Speak(int Index) {
    const auto press = [this, Index](std::int16_t Button) {
        return [this, Index, Button] { lblColour_MouseDown(Index, Button); };
    };
    Spoken words{.role = QAccessible::StaticText, .description = [this, Index] {
                     const QString ink = Index == iInk ? QStringLiteral("Ink ") : QString();
                     return ink + (Index == iPaper ? QStringLiteral("Paper") : QString());
                 }};
    if (Index != kSample) {
        words.role = QAccessible::Button;
        words.actions = {{"Take for the ink", press(1)}, {"Take for the paper", press(2)}};
    }
    SetSpoken(lblColour[Index], words);
    lblColour[Index]->setAccessibleName(QLatin1String(kNames[Index]));
}

std::int16_t frmColours::GetColour(std::int16_t iColour) {
    const bool given = iColour != -1;
    chkBright->setChecked(given && lmk::IsBright(iColour));
    chkBright_Click(); // the box raises no event when its value is the start value
    iInk = given ? lmk::Ink(iColour) : std::int16_t{7};
    iPaper = given ? lmk::Paper(iColour) : std::int16_t{0};
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
    SetColours(*lblColour[kSample], BackColor(*lblColour[iInk]), BackColor(*lblColour[iPaper]));
}

void frmColours::chkBright_Click() {
    ShowColours(chkBright->isChecked() ? 1 : 0);
}

void frmColours::lblColour_MouseDown(int Index, std::int16_t Button) {
    if (Index == kSample) {
        return; // it shows the choice and offers none
    }
    if (Button == 1) {
        iInk = static_cast<std::int16_t>(Index);
    } else if (Button == 2) {
        iPaper = static_cast<std::int16_t>(Index);
    }
    ShowSample();
}

void frmColours::cmdColour_Click(int Index) {
    if (TagOf(cmdColour[Index]) == QLatin1String("SELECT")) {
        iResult = lmk::MakeAttribute(iInk, iPaper, chkBright->isChecked());
        accept();
    } else {
        reject();
    }
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
        Shell().ShowPrompt(kHelpBright);
    }
}

} // namespace lumrake
