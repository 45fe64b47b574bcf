#include "platform/screen.h"

#include <QApplication>
#include <QCoreApplication>
#include <QFont>
#include <QGuiApplication>
#include <QScreen>
#include <QStyleFactory>
#include <QWidget>

namespace lumrake {

HourglassScope::HourglassScope() {
    QGuiApplication::setOverrideCursor(Qt::WaitCursor);
}

HourglassScope::~HourglassScope() {
    QGuiApplication::restoreOverrideCursor();
}

void DoEvents(Events which) {
    QCoreApplication::processEvents(which == Events::Everything ? QEventLoop::AllEvents
                                                                : QEventLoop::ExcludeUserInputEvents);
}

void CentreOnScreen(QWidget& window) {
    const QScreen* screen = window.screen();
    if (screen == nullptr) {
        return;
    }
    const QRect area = screen->availableGeometry();
    window.move(area.x() + (area.width() - window.width()) / 2,
                area.y() + (area.height() - window.height()) / 2);
}

void PinLook() {
    QApplication::setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
    QFont font(QStringLiteral("DejaVu Sans"));
    font.setPixelSize(11);
    QApplication::setFont(font);
}

} // namespace lumrake
