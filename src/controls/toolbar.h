#pragma once

#include <QPointer>
#include <QToolBar>

#include <cstdint>
#include <span>
#include <vector>

class QToolButton;

namespace lumrake {

/// Groups of buttons, each with a gap before it, side by side from the left edge without a space. A button shares its
/// action with whatever else gives the command; the action's data() is its help number. Buttons hand their
/// help numbers on, enabled or not. Neither a click nor the Tab key brings the keyboard to a button; that is what
/// TakeKeys is for.
class Toolbar : public QToolBar {
  public:
    static constexpr QSize kPictureSize{18, 17}; ///< of the drawings

    explicit Toolbar(QWidget* parent = nullptr);

    /// Puts the button of an action, with its tool tip, at the end of the bar, in the last group or the next one;
    /// groups count from 0.
    void AddButton(int group, QAction* action);
    /// Shows the groups whose flag is not 0; the others take no room, nor does the gap before them.
    void ShowGroups(std::span<const std::int16_t> flags);

    /// Gives the keyboard to the pressed button, else to the first that can be clicked: the arrow keys walk over
    /// those, Space clicks, Esc gives the keyboard back to where it was. Called again it does the same as Esc.
    void TakeKeys();

  protected:
    void actionEvent(QActionEvent* event) override;
    bool eventFilter(QObject* control, QEvent* event) override;
    void paintEvent(QPaintEvent*) override {} ///< no frame

  private:
    QAction* NewGap();
    /// The help number of the button at x, in logical pixels of the bar; 0 for a gap, the exact boundary of two
    /// buttons and bare ground.
    std::int32_t HelpAtX(int x) const;
    /// The buttons that can be clicked, from left to right.
    QList<QToolButton*> KeyStops() const;
    /// Moves the keyboard to the next of those, to the right (1) or left (-1).
    void StepKeys(int step);
    void GiveKeysBack();

    std::vector<QList<QAction*>> groups_; ///< a group's first is its gap
    QPointer<QWidget> keysFrom_;          ///< who had the keyboard before
};

} // namespace lumrake
