#include "controls/screen.h"

#include "controls/look.h"

#include <QApplication>
#include <QCoreApplication>
#include <QDir>
#include <QEvent>
#include <QFont>
#include <QFontDatabase>
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

namespace {

/// What the frame adds to the size of a window.
QSize FrameSize(const QWidget& window) {
    const QSize own = window.frameSize() - window.size();
    const QWidget* owner = DialogOwner();
    const bool isFramed = !window.windowFlags().testFlag(Qt::FramelessWindowHint) &&
                          (window.windowFlags() & Qt::WindowType_Mask) != Qt::SplashScreen;
    return own.isNull() && isFramed && owner != nullptr ? owner->frameSize() - owner->size() : own;
}

void Centre(QWidget& window) {
    const QRect area = window.screen()->geometry();
    const QSize whole = window.size() + FrameSize(window);
    window.move(area.x() + std::max(0, (area.width() - whole.width()) / 2),
                area.y() + std::max(0, (area.height() - whole.height()) / 2));
}

void Hold(QWidget& window) {
    const QRect area = window.screen()->availableGeometry();
    const QSize frame = FrameSize(window);
    window.resize(window.size().boundedTo(area.size() - frame));
    const QSize spare = (area.size() - window.size() - frame).expandedTo(QSize(0, 0));
    const QPoint held(std::clamp(window.x(), area.x(), area.x() + spare.width()),
                      std::clamp(window.y(), area.y(), area.y() + spare.height()));
    if (held != window.pos()) { // a move to where it is would put its frame where its inside is meant to be
        window.move(held);
    }
}

/// Places a window now and, with its frame, when it first becomes active.
class Placement : public QObject {
  public:
    Placement(QWidget& window, void (*place)(QWidget&)) : QObject(&window), place_(place) {
        place(window);
        window.installEventFilter(this);
    }

    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() == QEvent::WindowActivate) {
            watched->removeEventFilter(this);
            place_(static_cast<QWidget&>(*watched));
        }
        return false;
    }

  private:
    void (*place_)(QWidget&);
};

} // namespace

void CentreOnScreen(QWidget& window) {
    new Placement(window, Centre);
}

void HoldOnScreen(QWidget& window) {
    new Placement(window, Hold);
}

void PinLook() {
    // The toolkit copies the pixels of a control that moves, the cell on a picture with them, and then takes the
    // control for one that nothing lies over: it would be painted over other windows and the assistant.
    qputenv("QT_NO_FAST_MOVE", "1");
    QApplication::setStyle(new Look);
    const QString family = QStringLiteral("DejaVu Sans");
    if (!QFontDatabase::hasFamily(family)) { // it may lie beside the program
        const QDir fonts(QCoreApplication::applicationDirPath() + QLatin1String("/fonts"));
        for (const QFileInfo& file :
             fonts.entryInfoList({QStringLiteral("*.ttf")}, QDir::Files, QDir::Name)) {
            QFontDatabase::addApplicationFont(file.filePath());
        }
    }
    QFont font(family);
    font.setPixelSize(11);
    QApplication::setFont(font);
}

} // namespace lumrake
