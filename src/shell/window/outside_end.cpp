#include "shell/window/outside_end.h"

#include "controls/message_box.h"
#include "disk/system_calls.h"
#include "shell/kept_document.h"
#include "shell/shell.h"
#include "shell/window/frmMain.h"

#include <QGuiApplication>
#include <QSessionManager>
#include <QSocketNotifier>

#include <cstdlib>

namespace lumrake {

namespace {

frmMain* (*findMainWindow)() = nullptr;

void EndUnasked() {
    KeepAllDocuments();
    SetMessageBoxAnswerer([](const MessageBox&) { return BoxAnswer::Cancel; }); // nobody is there to answer
    if (frmMain* main = findMainWindow()) {
        main->Unload();
    } else {
        std::_Exit(EXIT_SUCCESS);
    }
}

/// Takes the word that the session is really over. Once asked to save it may go on all the same: it was only to be
/// remembered, or another program called its end off.
class SessionEnd : public QObject {
  public:
    using QObject::QObject;

  protected:
    bool eventFilter(QObject* receiver, QEvent* event) override {
        if (receiver == qGuiApp && event->type() == QEvent::Quit) {
            EndUnasked();
        }
        return false;
    }
};

void SaveForSession(QSessionManager& session) {
    static auto* const end = new SessionEnd(qGuiApp);
    qGuiApp->installEventFilter(end);
    KeepAllDocuments();
    frmMain* main = findMainWindow();
    if (main != nullptr && Settings.bPromptSave != 0 && session.allowsInteraction() &&
        !main->CloseChildren(true)) {
        session.cancel();
    }
}

} // namespace

void WatchForOutsideEnd(frmMain* (*mainWindow)()) {
    findMainWindow = mainWindow;
    if (const int handle = CatchEndSignals(); handle >= 0) {
        QObject::connect(new QSocketNotifier(handle, QSocketNotifier::Read, qGuiApp),
                         &QSocketNotifier::activated, qGuiApp, EndUnasked);
    }
    // Windows says so that the session is over. The program's own end does not come by here.
    QObject::connect(qGuiApp, &QCoreApplication::aboutToQuit, qGuiApp, EndUnasked);
    // Directly: the answer is due when the signal comes back.
    QObject::connect(qGuiApp, &QGuiApplication::commitDataRequest, qGuiApp, SaveForSession,
                     Qt::DirectConnection);
}

} // namespace lumrake
