// The window itself: construction, activation, resize, close, status bar, assistant.

#include "shell/window/frmMain.h"

#include "assistant/frmHelp.h"
#include "assistant/prompts.h"
#include "base/twips.h"
#include "controls/panel_bar.h"
#include "controls/screen.h"
#include "controls/toolbar.h"
#include "shell/document_form.h"
#include "shell/window/file_commands.h"
#include "shell/window/shut_down.h"

#include <QAction>
#include <QApplication>
#include <QCloseEvent>
#include <QDateTime>
#include <QDropEvent>
#include <QLocale>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenuBar>
#include <QMimeData>
#include <QShortcut>
#include <QTimer>
#include <QVBoxLayout>

#include <algorithm>

namespace lumrake {

namespace {

// Twips: the client area with toolbar and status bar, and its place on the screen.
constexpr int kClientWidth = 9315, kClientHeight = 5955;
constexpr int kClientLeft = 1440, kClientTop = 2295;
constexpr int kTextPanelWidth = 14323, kDatePanelWidth = 1587;

const QString kNoDocument = QStringLiteral("LMK for Windows"); ///< in the text panel

constexpr int kMinimumHeight = 240; ///< pixels: bars and a strip of the area

} // namespace

frmMain::frmMain() {
    auto* client = new QWidget(this);
    auto* rows = new QVBoxLayout(client);
    rows->setContentsMargins(0, 0, 0, 0);
    rows->setSpacing(0);
    tbrMain = new Toolbar(client);
    tbrMain->setAccessibleName(QStringLiteral("Toolbar"));
    mdiClient = new QMdiArea(client);
    sbrMain = new PanelBar(client);
    rows->addWidget(tbrMain);
    rows->addWidget(mdiClient, 1);
    rows->addWidget(sbrMain);
    setCentralWidget(client);

    setAcceptDrops(true);
    CreateCommands();
    CreateCoordsPanel();
    // The tools have no menu entry, so this is how they are chosen without a mouse.
    connect(new QShortcut(Qt::Key_F6, this), &QShortcut::activated, tbrMain, &Toolbar::TakeKeys);
    CreateClient();
    connect(new QShortcut(Qt::ALT | Qt::Key_Minus, this), &QShortcut::activated, this, [this] {
        if (QWidget* active = ActiveForm()) {
            static_cast<QMdiSubWindow*>(ChildFrame(active))->showSystemMenu();
        }
    });
    sbrMain->AddPanel({.Key = {},
                       .Text = kNoDocument,
                       .ToolTipText = {},
                       .MinWidth = PixelsFromTwips(kTextPanelWidth),
                       .Spring = true});
    sbrMain->AddPanel(
        {.Key = {}, .Text = {}, .ToolTipText = {}, .MinWidth = PixelsFromTwips(kDatePanelWidth)});
    dateTimer_ = new QTimer(this);
    dateTimer_->setSingleShot(true);
    connect(dateTimer_, &QTimer::timeout, this, &frmMain::ShowDate);
    ShowDate();

    setMinimumSize(LeastToolbarWidth(), kMinimumHeight);
    setGeometry(PixelsFromTwips(kClientLeft), PixelsFromTwips(kClientTop), PixelsFromTwips(kClientWidth),
                PixelsFromTwips(kClientHeight) + menuBar()->sizeHint().height());
    HoldOnScreen(*this);
    noticesBefore_ = SetShellNotices(this);
    MDIForm_Load();
}

frmMain::~frmMain() {
    // The area tells of windows that come and go while it is taken apart, and so do the children.
    disconnect(mdiClient, nullptr, this, nullptr);
    SetShellNotices(noticesBefore_);
    delete centralWidget();
}

WindowTwips frmMain::PlaceInTwips() const {
    const QRect frame = frameGeometry();
    return {TwipsFromPixels(frame.top()), TwipsFromPixels(frame.left()), TwipsFromPixels(frame.width()),
            TwipsFromPixels(frame.height())};
}

void frmMain::MDIForm_Load() {
    setWindowTitle(sAppTitle);
    Entry(Menu::menu_about)->setText(QLatin1String("&About ") + sAppTitle);
    // Qualified: the constructor comes here.
    frmMain::UpdateToolbars(QStringLiteral("SNAPSHOT"), false);
    frmMain::UpdateToolbars(QStringLiteral("ANIMATION"), false);
    for (std::int16_t iGroup = kGroupCut; iGroup <= kGroupExportSelection; ++iGroup) {
        frmMain::EnableFunction(iGroup, false);
    }
}

void frmMain::MDIForm_Activate() {
    if (Entry(Menu::menu_fizzlet)->isChecked()) {
        Assistant().Launch();
    }
}

void frmMain::MDIForm_Resize() {
    PlaceCoordsPanel();
    if (Entry(Menu::menu_fizzlet)->isChecked()) {
        Assistant().SetPosition();
    }
}

void frmMain::MDIForm_Unload() {
    ShutDown();
}

bool frmMain::event(QEvent* event) {
    const bool bHandled = QMainWindow::event(event);
    if (event->type() == QEvent::WindowActivate) {
        PlaceCoordsPanel(); // its place counts the frame, which is not known before the window shows
        MDIForm_Activate();
    }
    return bHandled;
}

void frmMain::resizeEvent(QResizeEvent* event) {
    QMainWindow::resizeEvent(event);
    MDIForm_Resize();
}

void frmMain::closeEvent(QCloseEvent* event) {
    if (!CloseChildren()) {
        event->ignore();
        return;
    }
    event->accept();
    MDIForm_Unload();
}

void frmMain::dragEnterEvent(QDragEnterEvent* event) {
    if (event->mimeData()->hasUrls() && QApplication::activeModalWidget() == nullptr) {
        event->setDropAction(Qt::CopyAction); // a file is opened, and stays where it is
        event->accept();
    }
}

void frmMain::dropEvent(QDropEvent* event) {
    event->setDropAction(Qt::CopyAction);
    event->accept();
    // The program that the files come from waits for the end of this event, and a question may stand for long.
    QTimer::singleShot(0, this, [dropped = event->mimeData()->urls()] { OpenDroppedFiles(dropped); });
}

void frmMain::SetStatusText(const QString& sText) {
    sbrMain->SetText(1, sText);
}

void frmMain::ShowCaption() {
    const QWidget* active = ActiveForm();
    SetStatusText(active != nullptr ? CaptionOf(active) : kNoDocument);
}

void frmMain::ShowNoDocument() {
    SetStatusText(kNoDocument);
    for (const std::int16_t iIndex : {std::int16_t{0}, std::int16_t{1}}) {
        ShowCoords(iIndex, 0, 0);
    }
}

void frmMain::ShowDate() {
    sbrMain->SetText(2, QLocale::system().toString(QDate::currentDate(), QLocale::ShortFormat));
    // Looked at every ten minutes as well, for the clock may be set or the machine sleep.
    const QDateTime now = QDateTime::currentDateTime();
    constexpr qint64 kTenMinutes = 600'000;
    const qint64 untilMidnight = now.msecsTo(now.date().addDays(1).startOfDay());
    dateTimer_->start(static_cast<int>(std::clamp<qint64>(untilMidnight, 1, kTenMinutes)));
}

frmHelp& frmMain::Assistant() {
    if (!assistant_) {
        assistant_ = new frmHelp(mdiClient);
    }
    return *assistant_;
}

void frmMain::ShowPrompt(std::int32_t lNumber) {
    ShowHelpPrompt(Assistant(), Entry(Menu::menu_fizzlet)->isChecked(), lNumber);
}

void frmMain::menu_fizzlet_Click(int) {
    if (Entry(Menu::menu_fizzlet)->isChecked()) {
        Assistant().Launch();
        Settings.bAssistantOn = -1;
    } else {
        Assistant().Kill();
        Settings.bAssistantOn = 0;
    }
}

} // namespace lumrake
