#pragma once

#include <QScrollBar>

#include <functional>

namespace lumrake {

/// A scroll bar that is only a source of steps: its value is where the program put it and stays there
/// whatever the user does, so that it can stand for numbers far beyond its own range. Arrows and keys signal a step;
/// an arrow held down goes on signalling. What would jump (a drag of the slider, the middle button, the bar's own
/// menu) signals nothing, and the wheel is left to the form.
///
/// The arrows are 16 pixels long, or half of the bar if that is less.
class SpinBar : public QScrollBar {
  public:
    explicit SpinBar(Qt::Orientation orientation, QWidget* parent = nullptr);

    /// Called with the value that the bar would have taken, which differs from value(): 1 away for an arrow
    /// and an arrow key, pageStep() away for Page Up and Page Down, an end of the range for Home and End.
    std::function<void(int newValue)> Change;

  protected:
    void paintEvent(QPaintEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
};

} // namespace lumrake
