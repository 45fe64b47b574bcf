#include "shell/window/outside_end.h"

#include "controls/message_box.h"
#include "disk/system_calls.h"
#include "shell/kept_document.h"
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

void EndOfSession(QSessionManager& session) {
    KeepAllDocuments();
    frmMain* main = findMainWindow();
    if (main != nullptr && session.allowsInteraction() && !main->CloseChildren()) {
        session.cancel();
        return;
    }
    // Behind the answer to the session, which an end before it would leave out.
    QMetaObject::invokeMethod(qGuiApp, EndUnasked, Qt::QueuedConnection);
}

} // namespace

void WatchForOutsideEnd(frmMain* (*mainWindow)()) {
    findMainWindow = mainWindow;
    if (const int handle = CatchEndSignals(); handle >= 0) {
        QObject::connect(new QSocketNotifier(handle, QSocketNotifier::Read, qGuiApp),
                         &QSocketNotifier::activated, qGuiApp, EndUnasked);
    }
    // Directly: the answer is due when the signal comes back.
    QObject::connect(qGuiApp, &QGuiApplication::commitDataRequest, qGuiApp, EndOfSession,
                     Qt::DirectConnection);
}

} // namespace lumrake
