#pragma once

#include <QColor>
#include <QToolButton>

namespace lumrake {

/// A flat button that shows one colour and nothing else. Its edge and the mark of the focus are seen on every
/// colour.
class ColourButton : public QToolButton {
  public:
    explicit ColourButton(QWidget* parent = nullptr);

    void SetColour(const QColor& colour);
    const QColor& Colour() const { return colour_; }

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    QColor colour_;
};

} // namespace lumrake
