#pragma once

#include "controls/picture_box.h"

#include <QObject>

namespace lumrake {

/// Hands the mouse events of any control to a form, beside what the control does with them. It turns mouse
/// tracking on, so that moves without a button come as well, and lives as long as the control. Side buttons are
/// left out.
class MouseFilter : public QObject {
  public:
    explicit MouseFilter(QWidget* watched);

    MouseHandler MouseDown, MouseMove, MouseUp;

    bool eventFilter(QObject* watched, QEvent* event) override;
};

} // namespace lumrake
