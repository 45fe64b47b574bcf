#pragma once

#include "controls/limited_edit.h"

namespace lumrake {

/// A text box for a number without sign, of a limited length. Keys other than digits are dropped; control
/// keys work. The whole text is selected when the box gets the focus.
class DigitBox : public LimitedEdit {
  public:
    using LimitedEdit::LimitedEdit;

  protected:
    void keyPressEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

  private:
    bool selectOnRelease_ = false; ///< the press that brought the focus has put the caret and no more
};

} // namespace lumrake
