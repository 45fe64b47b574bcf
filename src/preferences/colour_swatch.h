#pragma once

#include "shell/rules/settings.h"

#include <QWidget>

#include <functional>

namespace lumrake {

/// A square painted in one colour inside a thin line, to be clicked, or chosen with Space where it has the focus.
class ColourSwatch : public QWidget {
  public:
    explicit ColourSwatch(QWidget* parent);

    /// The colour as it was given, its high byte included; only the lower three are painted.
    Colour BackColor() const { return colour_; }
    void SetBackColor(Colour colour);
    /// The left button was pressed and let go over the square.
    std::function<void()> Click;
    /// An arrow key: by how many swatches to go on in rows of four.
    std::function<void(int by)> Walk;

  protected:
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

  private:
    Colour colour_ = 0;
};

/// The frame around the selected swatch, one pixel wide; the mouse goes through it.
class SwatchMarker : public QWidget {
  public:
    explicit SwatchMarker(QWidget* parent = nullptr);

  protected:
    void paintEvent(QPaintEvent* event) override;
};

} // namespace lumrake
