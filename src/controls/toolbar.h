#pragma once

#include <QPointer>
#include <QString>
#include <QWidget>

#include <functional>
#include <vector>

class QToolButton;

namespace lumrake {

enum class ButtonStyle {
    Plain,
    Separator, ///< a gap that takes no clicks
    Group,     ///< of all group buttons of a bar exactly one is pressed
};

/// One button of a toolbar.
struct ToolbarButton {
    QString Key; ///< what the form knows the button by; empty for a separator
    ButtonStyle Style = ButtonStyle::Plain;
    QString Picture; ///< name of its drawing in the resources, 18 x 17 pixels
    QString ToolTipText;
};

/// A row of buttons, numbered from 1, that lie side by side from the left edge without a gap: the widths of
/// the buttons before one add up to its left edge. Mouse moves over buttons, enabled or not, reach the bar.
/// Neither a click nor the Tab key brings the keyboard to a button; that is what TakeKeys is for.
class Toolbar : public QWidget {
  public:
    explicit Toolbar(QWidget* parent = nullptr);

    void AddButton(const ToolbarButton& button);
    int ButtonCount() const { return static_cast<int>(slots_.size()); }
    const QString& KeyOf(int index) const { return SlotAt(index).button.Key; }
    /// Width in logical pixels; a hidden button takes no room and reports 0.
    int ButtonWidth(int index) const;
    /// Right edge of the last button in logical pixels, counted as if all buttons were shown.
    int FullWidth() const;

    void SetButtonStyle(int index, ButtonStyle style);
    void SetButtonVisible(int index, bool visible);
    bool IsButtonVisible(int index) const { return SlotAt(index).visible; }
    void SetButtonEnabled(int index, bool enabled);
    bool IsButtonEnabled(int index) const;
    /// Presses a group button without a click; the one that was pressed is let go.
    void PressButton(int index);
    bool IsButtonPressed(int index) const;

    /// Gives the keyboard to the pressed button, else to the first that can be clicked: the arrow keys walk over
    /// those, Space clicks, Esc gives the keyboard back to where it was. Called again it does the same as Esc.
    void TakeKeys();

    /// Called with the number of a button that was clicked; for a group button also when it was already
    /// pressed.
    std::function<void(int index)> ButtonClick;
    /// Called with the mouse's x in logical pixels of the bar on every move.
    std::function<void(double x)> MouseMove;

    QSize sizeHint() const override;

  protected:
    bool eventFilter(QObject* control, QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;

  private:
    struct Slot {
        ToolbarButton button;
        QToolButton* control = nullptr; ///< none for a separator
        bool visible = true;
    };
    const Slot& SlotAt(int index) const { return slots_[static_cast<std::size_t>(index - 1)]; }
    Slot& SlotAt(int index) { return slots_[static_cast<std::size_t>(index - 1)]; }
    void Arrange();
    bool CanTakeKeys(int index) const;
    /// Moves the keyboard from one button to the next that can be clicked, to the right (1) or left (-1).
    void StepKeys(int step);
    void GiveKeysBack();

    std::vector<Slot> slots_;
    QPointer<QWidget> keysFrom_; ///< who had the keyboard before
};

} // namespace lumrake
