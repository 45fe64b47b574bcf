#pragma once

#include "platform/watched.h"

#include <QLineEdit>

namespace lumrake {

/// A text box that holds the user to a number of characters. The program may show a longer text whole; the user
/// can then only make it shorter, and not longer again.
class LimitedEdit : public Watched<QLineEdit> {
  public:
    explicit LimitedEdit(QWidget* parent = nullptr);

    /// Most characters that the user can enter; as many as the toolkit allows at first.
    void SetLimit(int characters);
    /// Shows a text whole, however long.
    void ShowWhole(const QString& text);

  private:
    void LimitTo(qsizetype length);

    int limit_ = 32767;
};

} // namespace lumrake
