#include "about/frmAbout.h"

#include "assistant/rules/help_numbers.h"
#include "base/twips.h"
#include "controls/control_table.h"
#include "controls/drawing_box.h"
#include "controls/screen.h"
#include "controls/watch.h"
#include "shell/shell.h"

#include <QFrame>
#include <QLabel>
#include <QPushButton>

namespace lumrake {

namespace {

struct Credit {
    const char* sName;
    const char* sContribution;
};

// Everybody stands here by what he or she is to the project.
constexpr Credit kCredits[] = {
    {"A fellow programmer", "programming help"}, {"A collector", "an excellent find"},
    {"A tester", "testing and ideas"},           {"A graphics expert", "Windows graphics tips"},
    {"A player/A pixel artist", "ideas"},
};

QWidget* NewPage(QWidget* form) {
    auto* page = new QFrame(form);
    page->setFrameStyle(QFrame::StyledPanel | QFrame::Sunken);
    return page;
}

QWidget* NewLogo(QWidget* page) {
    return new DrawingBox(QStringLiteral("about/logo.svg"), QSize(64, 64), page);
}

QWidget* NewLabel(QWidget* page) {
    auto* label = new QLabel(page);
    label->setTextFormat(Qt::PlainText);
    label->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    label->setWordWrap(true);
    return label;
}

QWidget* NewTitle(QWidget* page) {
    QWidget* title = NewLabel(page);
    QFont font = title->font();
    font.setPixelSize(18);
    font.setBold(true);
    title->setFont(font);
    return title;
}

constexpr auto kAbout =
    "LMK is an editor for the graphics of ZX Spectrum programs. It shows the bytes of any file as pictures, "
    "in the five ways in which games keep them. You can page through a snapshot until its sprites, fonts "
    "and screens come into view, draw on them, copy and export them, and set them in motion.";
constexpr auto kThanks = "The following people have also contributed to the development of LMK for Windows";

constexpr int T(int twips) {
    return PixelsFromTwips(twips);
}

// clang-format off
constexpr ControlRow kControls[] = {
    {NewPage,          "Frame1",     kAlone, "",       T(60),   T(0),    T(4320), T(3255), "", "", "", kHelpNone, kOnMove},
    {NewPage,          "Frame2",     kAlone, "",       T(60),   T(0),    T(4320), T(3255), "", "", "", kHelpNone, kOnMove},
    {NewLogo,          "Image1",     kAlone, "Frame1", T(225),  T(225),  T(960),  T(960),  "", "", "", kHelpLogo, kOnMove},
    {NewTitle,         "lblApp",     kAlone, "Frame1", T(1425), T(240),  T(2835), T(375),  "", "", "", kHelpNone, kOnMove},
    {NewLabel,         "lblVersion", kAlone, "Frame1", T(1425), T(645),  T(2835), T(240),  "", "", "", kHelpNone, kOnMove},
    {NewLabel,         "Label2",     kAlone, "Frame1", T(1425), T(915),  T(2835), T(240),  "By the makers of Lumrake, 2026", "", "", kHelpAuthor, kOnMove},
    {NewLabel,         "Label1",     kAlone, "Frame1", T(225),  T(1425), T(3900), T(1680), kAbout, "", "", kHelpNone, kOnMove},
    {NewTitle,         "lblApp2",    kAlone, "Frame2", T(225),  T(135),  T(3900), T(375),  "", "", "", kHelpNone, kOnMove},
    {NewLabel,         "Label3",     kAlone, "Frame2", T(225),  T(525),  T(3900), T(420),  kThanks, "", "", kHelpNone, kOnMove},
    {NewLabel,         "lblPeople",  kAlone, "Frame2", T(225),  T(1020), T(3900), T(2175), "", "", "", kHelpNone, kOnMove},
    {New<QPushButton>, "cmdFlip",    kAlone, "",       T(120),  T(3360), T(1215), T(375),  "C&redit", "", "", kHelpCredit, kOnMove},
    {New<QPushButton>, "cmdOkay",    kAlone, "",       T(3120), T(3360), T(1215), T(375),  "&Okay", "", "", kHelpAboutOkay, kOnMove},
};
// clang-format on

} // namespace

frmAbout::frmAbout(QWidget* parent) : QDialog(parent) {
    setObjectName(QStringLiteral("frmAbout"));
    setWindowTitle(QStringLiteral("About"));
    setFixedSize(PixelsFromTwips(4440), PixelsFromTwips(3840));
    SetHelp(this, kHelpNone);
    CreateControls(*this, nullptr, kControls);
    Frame1 = Find<QWidget>(*this, "Frame1");
    Frame2 = Find<QWidget>(*this, "Frame2");
    Frame2->hide();
    cmdFlip = Find<QPushButton>(*this, "cmdFlip");
    auto* cmdOkay = Find<QPushButton>(*this, "cmdOkay");
    cmdOkay->setDefault(true);
    cmdOkay->setFocus();
    connect(cmdFlip, &QPushButton::clicked, this, &frmAbout::cmdFlip_Click);
    connect(cmdOkay, &QPushButton::clicked, this, &frmAbout::cmdOkay_Click);
    Form_Load();
}

void frmAbout::cmdOkay_Click() {
    close();
}

void frmAbout::Form_Load() {
    CentreOnScreen(*this);
    Find<QLabel>(*this, "lblApp")->setText(sAppTitle);
    Find<QLabel>(*this, "lblApp2")->setText(sAppTitle);
    Find<QLabel>(*this, "lblVersion")
        ->setText(QLatin1String("Version ") + QString::fromStdString(sAppVersion.Text()));
    QString sPeople;
    for (const Credit& credit : kCredits) {
        sPeople += QStringLiteral("%1 - %2\n\n")
                       .arg(QLatin1String(credit.sName), QLatin1String(credit.sContribution));
    }
    Find<QLabel>(*this, "lblPeople")->setText(sPeople);
}

void frmAbout::cmdFlip_Click() {
    const bool toCredits = !Frame1->isHidden();
    Frame1->setHidden(toCredits);
    Frame2->setHidden(!toCredits);
    cmdFlip->setText(toCredits ? QStringLiteral("&About") : QStringLiteral("C&redit"));
    SetHelp(cmdFlip, toCredits ? kHelpAbout : kHelpCredit);
}

void ShowAbout() {
    frmAbout about(DialogOwner());
    about.exec();
}

} // namespace lumrake
