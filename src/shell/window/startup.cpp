#include "shell/window/startup.h"

#include "about/frmSplash.h"
#include "base/clock.h"
#include "controls/message_box.h"
#include "controls/pictures.h"
#include "controls/screen.h"
#include "disk/system_calls.h"
#include "shell/shell.h"
#include "shell/window/file_commands.h"
#include "shell/window/frmMain.h"
#include "shell/window/outside_end.h"
#include "shell/window/recoveries.h"
#include "shell/window/unfinished_saves.h"

#include <QApplication>
#include <QPointer>
#include <QStringList>
#include <QThread>

#include <algorithm>
#include <memory>

namespace lumrake {

namespace {

constexpr double kSplashSeconds = 3;

QPointer<frmMain> mainWindow;

/// Lets events run until the splash has stood for its time. The time counts from `start`, so that whatever
/// took longer meanwhile leaves no further wait.
void WaitForSplash(double start) {
    while (ClockSeconds() < start + kSplashSeconds) {
        DoEvents(Events::Everything);
        QThread::msleep(5); // leaves the processor to others; no event of the splash is in a hurry
    }
}

} // namespace

void Main(const QString& sCommandLine) {
    bSkipSplash = sCommandLine == QLatin1String("REHEARS") ? -1 : 0;
    std::unique_ptr<frmSplash> splash;
    double start = 0;
    if (bSkipSplash == 0) {
        start = ClockSeconds();
        splash = std::make_unique<frmSplash>();
        splash->show();
        splash->Refresh(); // it has to be seen before the work starts
    }
    Initialise();
    if (bSkipSplash == 0) {
        WaitForSplash(start);
        splash.reset();
    }
    mainWindow->show();
    FinishSaves();
    OfferRecoveries();
}

void Initialise() {
    iCurrentTool = kToolDraw;
    mainWindow = new frmMain;
    FinishSavingSettings();
    LoadSettings(mainWindow->PlaceInTwips());
    if (!IsSameVersion(Settings, sAppVersion.Text())) {
        SetDefaultSettings(Settings, sAppVersion.Text(), mainWindow->PlaceInTwips());
        MsgBox(QStringLiteral("This is a new version of LMK.  Your settings have been reset."),
               BoxButtons::Ok, BoxIcon::Information, QStringLiteral("Version change"));
    }
    ResetRecentFiles();
    mainWindow->ShowSettingsTicks();
    mainWindow->ArrangeToolbars();
}

frmMain* MainWindow() {
    return mainWindow;
}

int RunProgram(int argc, char** argv) {
    // The toolkit would take words of its own out of them; it gets none, so that ours is the only one.
    QStringList words;
    for (int word = 1; word < argc; ++word) {
        words << QString::fromLocal8Bit(argv[word]);
    }
    HoldWriteSignals(); // a full quota or a closed terminal does not take the documents away
    int toolkitCount = std::min(argc, 1);
    QApplication application(toolkitCount, argv);
    // No point of a stroke may be lost; the platform of X11 sets it while the application is made.
    QCoreApplication::setAttribute(Qt::AA_CompressHighFrequencyEvents, false);
    // The splash and the box of a new version close before the main window shows.
    QApplication::setQuitOnLastWindowClosed(false);
    PinLook();
    QApplication::setWindowIcon(LoadIcon(QStringLiteral("about/logo.svg"), QSize(64, 64)));
    WatchForOutsideEnd(MainWindow);
    Main(words.join(QLatin1Char(' ')));
    return QApplication::exec();
}

} // namespace lumrake
