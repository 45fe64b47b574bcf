#include "platform/spin_bar.h"

#include <QApplication>
#include <QPainter>
#include <QPointer>
#include <QProxyStyle>
#include <QStyleFactory>
#include <QWheelEvent>

namespace lumrake {

namespace {

constexpr int kArrowLength = 16;
constexpr int kWheelNotch = 120;

/// Arrows of a fixed length, and no way to jump.
class SpinStyle : public QProxyStyle {
  public:
    SpinStyle() : QProxyStyle(QStyleFactory::create(QStringLiteral("Fusion"))) {}

    int pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const override {
        return metric == PM_ScrollBarExtent ? kArrowLength : QProxyStyle::pixelMetric(metric, option, widget);
    }
    int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                  QStyleHintReturn* data) const override {
        switch (hint) {
        case SH_ScrollBar_MiddleClickAbsolutePosition:
        case SH_ScrollBar_LeftClickAbsolutePosition:
        case SH_ScrollBar_ContextMenu: return 0;
        default: return QProxyStyle::styleHint(hint, option, widget, data);
        }
    }
};

QStyle* SharedStyle() {
    static QPointer<SpinStyle> style;
    if (style.isNull()) {
        style = new SpinStyle;
        style->setParent(qApp);
    }
    return style;
}

} // namespace

SpinBar::SpinBar(Qt::Orientation orientation, QWidget* parent) : QScrollBar(orientation, parent) {
    setStyle(SharedStyle());
    setFocusPolicy(Qt::StrongFocus);
    setInvertedControls(orientation ==
                        Qt::Vertical); // the key Up is less on an address bar, more on a button
    connect(this, &QAbstractSlider::actionTriggered, this, [this](int action) {
        const int newValue = sliderPosition();
        // Put back at once: the value never moves, and the next repeat of a held arrow starts from it again.
        setSliderPosition(value());
        if (action != SliderMove && newValue != value() && Change) {
            Change(newValue);
        }
    });
}

void SpinBar::wheelEvent(QWheelEvent* event) {
    if (orientation() == Qt::Horizontal) {
        event->ignore();
        return;
    }
    const int turned = event->angleDelta().y();
    wheelAngle_ =
        (turned < 0) == (wheelAngle_ < 0) ? wheelAngle_ + turned : turned; // no debt on turning back
    for (; wheelAngle_ >= kWheelNotch; wheelAngle_ -= kWheelNotch) {
        triggerAction(SliderSingleStepSub);
    }
    for (; wheelAngle_ <= -kWheelNotch; wheelAngle_ += kWheelNotch) {
        triggerAction(SliderSingleStepAdd);
    }
    event->accept();
}

void SpinBar::paintEvent(QPaintEvent* event) {
    QScrollBar::paintEvent(event);
    if (hasFocus()) {
        QPainter painter(this);
        painter.setPen(palette().color(QPalette::Highlight));
        painter.drawRect(rect().adjusted(0, 0, -1, -1));
    }
}

void SpinBar::focusInEvent(QFocusEvent* event) {
    QScrollBar::focusInEvent(event);
    update();
}

void SpinBar::focusOutEvent(QFocusEvent* event) {
    QScrollBar::focusOutEvent(event);
    update();
}

} // namespace lumrake
