#include "controls/look.h"

#include "controls/whole_pixels.h"

#include <QAction>
#include <QPainter>
#include <QScreen>
#include <QStyleOption>

#include <algorithm>

namespace lumrake {

namespace {

QColor Outline(const QPalette& palette) {
    return palette.color(QPalette::Window).darker(140);
}

/// Around the page of a tab strip, with a line of light inside and a shadow below.
void FillTabFrame(QPainter& painter, const QRect& frame, const QPalette& palette) {
    FillFrame(painter, frame, 1, Qt::transparent, QColor(0, 0, 0, 25));
    const QRect outline = frame.adjusted(0, 0, 0, -1);
    FillFrame(painter, outline.adjusted(1, 1, -1, -1), 1, QColor(255, 255, 255, 30));
    FillFrame(painter, outline, 1, Outline(palette));
}

/// Around a child.
void FillWindowFrame(QPainter& painter, const QRect& frame, const QPalette& palette) {
    FillFrame(painter, frame.adjusted(1, 1, -1, -1), 1, palette.light(),
              palette.color(QPalette::Window).darker(120));
    FillFrame(painter, frame, 1, Outline(palette).darker(150));
}

} // namespace

Look::Look() : QProxyStyle(QStringLiteral("Fusion")) {}

void Look::drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                         const QWidget* widget) const {
    const bool ofList = widget != nullptr && widget->inherits("QComboBoxPrivateContainer");
    if (element == PE_Frame && !ofList) {
        const bool aroundAll = widget != nullptr && widget->inherits("QAbstractScrollArea");
        FillFrame(*painter, option->rect, 1, Outline(option->palette).lighter(108),
                  aroundAll ? Line::NoThicker : Line::Nearest);
    } else if (element == PE_FrameWindow) {
        FillWindowFrame(*painter, option->rect, option->palette);
    } else if (const auto* page = qstyleoption_cast<const QStyleOptionTabWidgetFrame*>(option);
               element == PE_FrameTabWidget && page != nullptr) {
        QStyleOptionTabWidgetFrame ground(*page); // Fusion's lines fall outside, its ground stays
        ground.rect.adjust(-8, -8, 8, 8);
        painter->save();
        painter->setClipRect(page->rect, Qt::IntersectClip);
        QProxyStyle::drawPrimitive(element, &ground, painter, widget);
        painter->restore();
        FillTabFrame(*painter, page->rect, page->palette);
    } else {
        QProxyStyle::drawPrimitive(element, option, painter, widget);
    }
}

void Look::drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                       const QWidget* widget) const {
    if (const auto* frame = qstyleoption_cast<const QStyleOptionFrame*>(option);
        element == CE_ShapedFrame && frame != nullptr && frame->frameShape == QFrame::Panel &&
        frame->state.testFlag(State_Sunken)) {
        FillFrame(*painter, frame->rect, frame->lineWidth, frame->palette.dark(), frame->palette.light());
        return;
    }
    const auto* item = qstyleoption_cast<const QStyleOptionMenuItem*>(option);
    if (element == CE_MenuItem && item != nullptr && widget != nullptr) {
        QStyleOptionMenuItem shown(*item);
        const qsizetype tab = item->text.indexOf(QLatin1Char('\t'));
        shown.text = QFontMetrics(item->font)
                         .elidedText(item->text.left(tab), Qt::ElideMiddle, MostCaption(*item, *widget),
                                     Qt::TextShowMnemonic) +
                     (tab < 0 ? QString() : item->text.mid(tab));
        QProxyStyle::drawControl(element, &shown, painter, widget);
        return;
    }
    QProxyStyle::drawControl(element, option, painter, widget);
}

void Look::drawComplexControl(ComplexControl control, const QStyleOptionComplex* option, QPainter* painter,
                              const QWidget* widget) const {
    const auto* title = qstyleoption_cast<const QStyleOptionTitleBar*>(option);
    if (title == nullptr) {
        QProxyStyle::drawComplexControl(control, option, painter, widget);
        return;
    }
    QStyleOptionTitleBar readable(*title);
    if (title->palette.color(QPalette::Window).lightness() < 128) {
        // Fusion draws an active title white over a shadow in the colour of texts, which would run into a blur on
        // a dark desktop, and the buttons of the others black, on a ground that is nearly so.
        if ((title->titleBarState & Qt::WindowActive) != 0) {
            readable.palette.setColor(QPalette::Text, Qt::black);
        } else {
            readable.palette.setColor(QPalette::Window, QColor(96, 96, 96));
        }
    }
    QProxyStyle::drawComplexControl(control, &readable, painter, widget);
    if (painter->device()->devicePixelRatio() != 1) {
        // Its lines lie astride the edges of their logical pixels. Half a pixel further they lie inside, and the
        // first painting shows where this one does not begin.
        painter->save();
        painter->translate(0.5, 0.5);
        QProxyStyle::drawComplexControl(control, &readable, painter, widget);
        painter->restore();
    }
}

QSize Look::sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& size,
                             const QWidget* widget) const {
    const auto* item = qstyleoption_cast<const QStyleOptionMenuItem*>(option);
    QSize held = size;
    if (type == CT_MenuItem && item != nullptr && widget != nullptr) {
        held.setWidth(std::min(size.width(), MostCaption(*item, *widget)));
    }
    return QProxyStyle::sizeFromContents(type, option, held, widget);
}

/// What a caption may take in logical pixels: of half the screen that which the ground around the captions and
/// the shortcuts beside them leave.
int Look::MostCaption(const QStyleOptionMenuItem& item, const QWidget& menu) const {
    const int half = menu.screen()->geometry().width() / 2;
    const QSize wide(half, 0);
    const int taken =
        QProxyStyle::sizeFromContents(CT_MenuItem, &item, wide, &menu).width() - half +
        2 * (pixelMetric(PM_MenuPanelWidth, &item, &menu) + pixelMetric(PM_MenuHMargin, &item, &menu));
    int keys = 0;
    for (const QAction* action : menu.actions()) {
        const QString text = action->shortcut().toString(QKeySequence::NativeText);
        keys = std::max(keys, menu.fontMetrics().horizontalAdvance(text));
    }
    return half - taken - keys;
}

} // namespace lumrake
