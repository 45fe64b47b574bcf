#include "platform/screen.h"

#include <QApplication>
#include <QCoreApplication>
#include <QFont>
#include <QGuiApplication>
#include <QMainWindow>
#include <QProxyStyle>
#include <QScreen>
#include <QStyleOptionTitleBar>
#include <QWidget>

#include <algorithm>

namespace lumrake {

namespace {

/// Fusion, but for the titles of children on a dark desktop. It draws an active title white over a shadow in
/// the colour of texts, which would run into a blur there, and the buttons of the others black, on a ground
/// that is nearly so.
class Look : public QProxyStyle {
  public:
    Look() : QProxyStyle(QStringLiteral("Fusion")) {}

    void drawComplexControl(ComplexControl control, const QStyleOptionComplex* option, QPainter* painter,
                            const QWidget* widget) const override {
        const auto* title = qstyleoption_cast<const QStyleOptionTitleBar*>(option);
        if (title == nullptr || title->palette.color(QPalette::Window).lightness() >= 128) {
            QProxyStyle::drawComplexControl(control, option, painter, widget);
            return;
        }
        QStyleOptionTitleBar readable(*title);
        if ((title->titleBarState & Qt::WindowActive) != 0) {
            readable.palette.setColor(QPalette::Text, Qt::black);
        } else {
            readable.palette.setColor(QPalette::Window, QColor(96, 96, 96));
        }
        QProxyStyle::drawComplexControl(control, &readable, painter, widget);
    }
};

} // namespace

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
