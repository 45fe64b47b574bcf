#include "controls/spin_bar.h"

#include "controls/whole_pixels.h"

#include <QApplication>
#include <QPainter>
#include <QPointer>
#include <QProxyStyle>
#include <QStyleFactory>
#include <QStyleOption>
#include <QWheelEvent>

#include <algorithm>
#include <utility>

namespace lumrake {

namespace {

constexpr int kArrowLength = 16;

/// Arrows of a fixed length, each in a frame of whole device pixels, and no way to jump.
class SpinStyle : public QProxyStyle {
  public:
    SpinStyle() : QProxyStyle(QStyleFactory::create(QStringLiteral("Fusion"))) {}

    void drawComplexControl(ComplexControl control, const QStyleOptionComplex* option, QPainter* painter,
                            const QWidget* widget) const override {
        if (control != CC_ScrollBar) {
            QProxyStyle::drawComplexControl(control, option, painter, widget);
            return;
        }
        const bool across = option->state.testFlag(State_Horizontal);
        painter->fillRect(option->rect, option->palette.window().color().darker(105));
        for (const auto& [arrow, shape] :
             {std::pair(SC_ScrollBarSubLine, across ? PE_IndicatorArrowLeft : PE_IndicatorArrowUp),
              std::pair(SC_ScrollBarAddLine, across ? PE_IndicatorArrowRight : PE_IndicatorArrowDown)}) {
            QStyleOption face(*option);
            face.rect = subControlRect(control, option, arrow, widget);
            if (!option->activeSubControls.testFlag(arrow)) {
                face.state &= ~(State_Sunken | State_MouseOver);
            }
            DrawFace(*painter, face);
            face.rect.adjust(1, 1, -1, -1);
            drawPrimitive(shape, &face, painter, widget);
        }
    }

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

  private:
    /// A face as bright as those of the style's own buttons, darker below; lit under the mouse, dark when pressed.
    static void DrawFace(QPainter& painter, const QStyleOption& face) {
        QColor ground = face.palette.button().color();
        ground = ground.lighter(100 + std::max(1, (180 - qGray(ground.rgb())) / 6));
        QLinearGradient bright(face.rect.topLeft(), face.rect.bottomLeft());
        bright.setColorAt(0, ground.lighter(face.state.testFlag(State_MouseOver) ? 125 : 118));
        bright.setColorAt(1, ground.lighter(face.state.testFlag(State_MouseOver) ? 104 : 100));
        painter.fillRect(face.rect,
                         face.state.testFlag(State_Sunken) ? QBrush(ground.darker(112)) : QBrush(bright));
        FillFrame(painter, face.rect, 1, face.palette.window().color().darker(140));
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
    event->ignore();
}

void SpinBar::paintEvent(QPaintEvent* event) {
    QScrollBar::paintEvent(event);
    if (hasFocus()) {
        QPainter painter(this);
        FillFrame(painter, rect(), 1, palette().highlight());
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
