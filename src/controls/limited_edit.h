#pragma once

#include <QLineEdit>

#include <functional>

namespace lumrake {

/// A text box that holds the user to a number of characters, and to what a test lets through. The program may show
/// a longer text whole; the user can then only make it shorter, and not longer again.
class LimitedEdit : public QLineEdit {
  public:
    explicit LimitedEdit(QWidget* parent = nullptr);

    /// Most characters that the user can enter; as many as the toolkit allows at first.
    void SetLimit(int characters);
    /// Texts that the box takes at all. Of one that is pasted as much gets in as makes a text that `fits`.
    void SetFit(std::function<bool(const QString&)> fits);
    /// Shows a text whole, however long.
    void ShowWhole(const QString& text);
    /// Whether the text is what the limit left of a longer one that the user entered.
    bool IsCut() const { return !sCut_.isNull() && text() == sCut_; }

  private:
    class Fit;
    void LimitTo(qsizetype length);
    void EnterHeadOf(const QString& refused);

    int limit_ = 32767;
    QString sCut_; ///< the text when the limit took something away last
};

} // namespace lumrake
