#include "platform/screen.h"

#include "platform/look.h"

#include <QApplication>
#include <QCoreApplication>
#include <QFont>
#include <QGuiApplication>
#include <QMainWindow>
#include <QScreen>
#include <QWidget>

#include <algorithm>

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

QWidget* DialogOwner() {
    if (QWidget* active = QApplication::activeWindow()) {
        return active;
    }
    if (QWidget* modal = QApplication::activeModalWidget()) {
        return modal;
    }
    const QWidgetList windows = QApplication::topLevelWidgets();
    const auto main = std::find_if(windows.begin(), windows.end(), [](const QWidget* window) {
        return qobject_cast<const QMainWindow*>(window) != nullptr && window->isVisible();
    });
    return main == windows.end() ? nullptr : *main;
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
    QApplication::setStyle(new Look);
    QFont font(QStringLiteral("DejaVu Sans"));
    font.setPixelSize(11);
    QApplication::setFont(font);
}

} // namespace lumrake
