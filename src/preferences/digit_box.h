#pragma once

#include "platform/watched.h"

#include <QLineEdit>

namespace lumrake {

/// A text box for a number without sign, of a limited length. Keys other than digits are dropped; control
/// keys work. The whole text is selected when the box gets the focus.
class DigitBox : public Watched<QLineEdit> {
  public:
    explicit DigitBox(QWidget* parent = nullptr);

    /// Most characters that the user can enter.
    void SetLimit(int characters);
    /// Shows a text whole, however long; what goes past the limit can then only be made shorter.
    void ShowWhole(const QString& text);

  protected:
    void keyPressEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

  private:
    void LimitTo(qsizetype length);

    int limit_ = 32767;
    bool selectOnRelease_ = false; ///< the press that brought the focus has put the caret and no more
};

} // namespace lumrake
