#include "platform/limited_edit.h"

#include <algorithm>

namespace lumrake {

LimitedEdit::LimitedEdit(QWidget* parent) : Watched<QLineEdit>(parent) {
    connect(this, &QLineEdit::textChanged, this, [this] { LimitTo(text().size()); });
}

void LimitedEdit::SetLimit(int characters) {
    limit_ = characters;
    LimitTo(text().size());
}

void LimitedEdit::ShowWhole(const QString& text) {
    LimitTo(text.size());
    setText(text);
}

void LimitedEdit::LimitTo(qsizetype length) {
    const int most = std::max(limit_, static_cast<int>(length));
    if (most != maxLength()) {
        const int caret = cursorPosition();
        setMaxLength(most); // sends the caret to the end
        setCursorPosition(caret);
    }
}

} // namespace lumrake
