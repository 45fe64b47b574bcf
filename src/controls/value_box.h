#pragma once

#include <QLineEdit>

#include <functional>

namespace lumrake {

/// A text box for a whole number. The user can only type digits, and only so many of them; what the program
/// writes is taken as it is. A number that is too long for the box is shown whole, in smaller and narrower digits.
///
/// Keys with Ctrl are left to the menu, also while the menu's command is disabled. While it is read-only nothing
/// that the user does changes the text, the entries of the box's own menu included.
class ValueBox : public QLineEdit {
  public:
    /// `typedDigits` is the longest text that can be typed or pasted; a longer one that the program wrote can
    /// be shortened and changed.
    explicit ValueBox(int typedDigits, QWidget* parent = nullptr);

    /// Writes a text for the program. Raises Change when it differs from the present one, at once.
    void Write(const QString& text);

    /// The text changed, by the user or the program.
    std::function<void()> Change;

  protected:
    bool event(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;

  private:
    class Limit;
    void FitDigits();

    int typedDigits_;
    bool writing_ = false;        ///< the program writes: nothing is tested
    bool focusedByPress_ = false; ///< the press under way brought the focus, so the text stays selected
    qsizetype length_ = 0;        ///< of the text before the change under way
};

} // namespace lumrake
