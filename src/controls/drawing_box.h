#pragma once

#include <QPixmap>
#include <QSize>
#include <QString>
#include <QWidget>

namespace lumrake {

/// An image control that shows one drawing of the program's resources ("about/logo.svg") at its own size, in
/// logical pixels, sharp on whatever screen it is: it is drawn anew when the screen's pixel ratio changes.
/// What is transparent in the drawing shows what lies behind the box; the whole box catches the mouse.
class DrawingBox : public QWidget {
  public:
    DrawingBox(const QString& name, QSize size, QWidget* parent = nullptr, Qt::WindowFlags flags = {});

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    QString name_;
    QPixmap drawn_; ///< null until the first painting
};

} // namespace lumrake
