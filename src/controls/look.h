#pragma once

#include <QProxyStyle>

class QStyleOptionMenuItem;

namespace lumrake {

/// Fusion with what it lacks here:
/// - titles of children that can be read on a dark desktop;
/// - frames of whole device pixels at every scale;
/// - menus that a long path does not make wider than half the screen: its middle is shown as dots.
class Look : public QProxyStyle {
  public:
    Look();

    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                       const QWidget* widget) const override;
    void drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override;
    void drawComplexControl(ComplexControl control, const QStyleOptionComplex* option, QPainter* painter,
                            const QWidget* widget) const override;
    QSize sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& size,
                           const QWidget* widget) const override;

  private:
    int MostCaption(const QStyleOptionMenuItem& item, const QWidget& menu) const;
};

} // namespace lumrake
