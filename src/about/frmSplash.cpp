#include "about/frmSplash.h"

#include "controls/screen.h"

#include <QElapsedTimer>
#include <QThread>
#include <QWindow>

namespace lumrake {

namespace {
constexpr qint64 kPatience = 500; // milliseconds
}

frmSplash::frmSplash()
    : DrawingBox(QStringLiteral("about/splash.svg"), QSize(380, 210), nullptr, Qt::SplashScreen) {
    CentreOnScreen(*this);
}

void frmSplash::Refresh() {
    // Until the window system has exposed the window, nothing that is painted gets to the screen.
    QElapsedTimer waited;
    waited.start();
    while (windowHandle() != nullptr && !windowHandle()->isExposed() && !waited.hasExpired(kPatience)) {
        DoEvents(Events::NoUserInput);
        QThread::msleep(1);
    }
    repaint();
    DoEvents(Events::NoUserInput); // sends what was painted on its way
}

} // namespace lumrake
