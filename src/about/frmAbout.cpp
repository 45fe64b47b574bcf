#include "about/frmAbout.h"

#include "base/twips.h"
#include "controls/drawing_box.h"
#include "controls/screen.h"
#include "shell/shell.h"

#include <QFrame>
#include <QLabel>
#include <QMouseEvent>
#include <QPushButton>

namespace lumrake {

namespace {

QString CreditCaption() {
    return QStringLiteral("C&redit");
}

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

/// A widget at a place given in twips of its parent.
template <class Widget>
Widget* Placed(Widget* widget, const char* name, int left, int top, int width, int height) {
    widget->setObjectName(QLatin1String(name));
    widget->setGeometry(PixelsFromTwips(left), PixelsFromTwips(top), PixelsFromTwips(width),
                        PixelsFromTwips(height));
    return widget;
}

QLabel* MakeLabel(QWidget* page, const QString& caption) {
    auto* label = new QLabel(caption, page);
    label->setTextFormat(Qt::PlainText);
    label->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    label->setWordWrap(true);
    return label;
}

QLabel* MakeTitle(QWidget* page) {
    QLabel* title = MakeLabel(page, QString());
    QFont font = title->font();
    font.setPixelSize(18);
    font.setBold(true);
    title->setFont(font);
    return title;
}

QFrame* MakePage(QWidget* form) {
    auto* page = new QFrame(form);
    page->setFrameStyle(QFrame::StyledPanel | QFrame::Sunken);
    return page;
}

} // namespace

frmAbout::frmAbout(QWidget* parent)
    : QDialog(parent, Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint | Qt::WindowSystemMenuHint |
                          Qt::WindowCloseButtonHint) {
    setObjectName(QStringLiteral("frmAbout"));
    setWindowTitle(QStringLiteral("About"));
    setFixedSize(PixelsFromTwips(4440), PixelsFromTwips(3840));
    CreateAboutPage();
    CreateCreditPage();
    Frame2->hide();
    cmdFlip = Placed(new QPushButton(CreditCaption(), this), "cmdFlip", 120, 3360, 1215, 375);
    cmdOkay = Placed(new QPushButton(QStringLiteral("&Okay"), this), "cmdOkay", 3120, 3360, 1215, 375);
    cmdOkay->setDefault(true);
    cmdOkay->setFocus();
    connect(cmdFlip, &QPushButton::clicked, this, [this] { cmdFlip_Click(); });
    connect(cmdOkay, &QPushButton::clicked, this, [this] { close(); });
    setMouseTracking(true);
    installEventFilter(this);
    for (QWidget* control : findChildren<QWidget*>()) {
        control->setMouseTracking(true);
        control->installEventFilter(this);
    }
    Form_Load();
}

void frmAbout::CreateAboutPage() {
    Frame1 = Placed(MakePage(this), "Frame1", 60, 0, 4320, 3255);
    Image1 = new DrawingBox(QStringLiteral("about/logo.svg"), QSize(64, 64), Frame1);
    Placed(Image1, "Image1", 225, 225, 960, 960);
    lblApp = Placed(MakeTitle(Frame1), "lblApp", 1425, 240, 2700, 375);
    lblVersion = Placed(MakeLabel(Frame1, QString()), "lblVersion", 1425, 645, 2700, 240);
    Label2 = Placed(MakeLabel(Frame1, QStringLiteral("By the makers of Lumrake, 2026")), "Label2", 1425, 915,
                    2700, 240);
    const QString about = QStringLiteral(
        "LMK is an editor for the graphics of ZX Spectrum programs. It shows the bytes of any file as "
        "pictures, "
        "in the five ways in which games keep them. You can page through a snapshot until its sprites, fonts "
        "and screens come into view, draw on them, copy and export them, and set them in motion.");
    Label1 = Placed(MakeLabel(Frame1, about), "Label1", 225, 1425, 3900, 1680);
}

void frmAbout::CreateCreditPage() {
    Frame2 = Placed(MakePage(this), "Frame2", 60, 0, 4320, 3255);
    lblApp2 = Placed(MakeTitle(Frame2), "lblApp2", 225, 135, 3900, 375);
    Label3 = Placed(
        MakeLabel(Frame2, QStringLiteral("The following people have also contributed to the development "
                                         "of LMK for Windows")),
        "Label3", 225, 525, 3900, 420);
    lblPeople = Placed(MakeLabel(Frame2, QString()), "lblPeople", 225, 1020, 3900, 2175);
}

void frmAbout::Form_Load() {
    CentreOnScreen(*this);
    lblApp->setText(sAppTitle);
    lblApp2->setText(sAppTitle);
    lblVersion->setText(QLatin1String("Version ") + QString::fromStdString(sAppVersion.Text()));
    QString sPeople;
    for (const Credit& credit : kCredits) {
        sPeople += QStringLiteral("%1 - %2\n\n")
                       .arg(QLatin1String(credit.sName), QLatin1String(credit.sContribution));
    }
    lblPeople->setText(sPeople);
}

void frmAbout::cmdFlip_Click() {
    const bool toCredits = !Frame1->isHidden();
    Frame1->setHidden(toCredits);
    Frame2->setHidden(!toCredits);
    cmdFlip->setText(toCredits ? QStringLiteral("&About") : CreditCaption());
}

std::int32_t frmAbout::HelpNumberOf(const QObject* control) const {
    if (control == Image1) {
        return 12;
    }
    if (control == cmdOkay) {
        return 13;
    }
    if (control == cmdFlip) {
        return cmdFlip->text() == CreditCaption() ? 14 : 16;
    }
    return control == Label2 ? 15 : 0;
}

bool frmAbout::eventFilter(QObject* control, QEvent* event) {
    if (event->type() != QEvent::MouseMove) {
        return QDialog::eventFilter(control, event);
    }
    ShowPrompt(HelpNumberOf(control));
    // A move that a control leaves alone would go on to the form behind it and count as one over the form. A
    // button that is held down needs its moves to know when the mouse has left it.
    const bool held = static_cast<QMouseEvent*>(event)->buttons().testFlag(Qt::LeftButton);
    return !(held && (control == cmdFlip || control == cmdOkay));
}

void ShowAbout() {
    frmAbout about(DialogOwner());
    about.exec();
}

} // namespace lumrake
