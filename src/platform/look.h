#pragma once

#include <QProxyStyle>

namespace lumrake {

/// Fusion with what it lacks here:
/// - titles of children that can be read on a dark desktop;
/// - frames of whole device pixels at every scale.
class Look : public QProxyStyle {
  public:
    Look();

    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                       const QWidget* widget) const override;
    void drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override;
    void drawComplexControl(ComplexControl control, const QStyleOptionComplex* option, QPainter* painter,
                            const QWidget* widget) const override;
};

} // namespace lumrake
