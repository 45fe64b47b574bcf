#pragma once

#include <QPlainTextEdit>

#include <functional>

namespace lumrake {

/// A text box of several lines that holds the user to a number of characters and to what a test lets through. What
/// does not fit never gets in, so that it is in no undo step either; of a longer text that is pasted as much gets in
/// as fits. What the program shows is not tested.
class LimitedText : public QPlainTextEdit {
  public:
    explicit LimitedText(QWidget* parent) : QPlainTextEdit(parent) {}

    /// At most `characters`, a line break counting as one, in a text that `fits`.
    void SetLimit(int characters, std::function<bool(const QString&)> fits);
    /// The text with LF for line breaks, and every other character as it was entered.
    QString Text() const;

  protected:
    void keyPressEvent(QKeyEvent* event) override;
    void inputMethodEvent(QInputMethodEvent* event) override;
    void insertFromMimeData(const QMimeData* source) override;
    void contextMenuEvent(QContextMenuEvent* event) override;

  private:
    QString FittingPart(const QString& entered, int from, int to) const;

    int limit_ = 0;
    std::function<bool(const QString&)> fits_;
};

} // namespace lumrake
