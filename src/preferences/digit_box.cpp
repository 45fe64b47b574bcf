#include "preferences/digit_box.h"

#include <QKeyEvent>

#include <algorithm>
#include <utility>

namespace lumrake {

DigitBox::DigitBox(QWidget* parent) : Watched<QLineEdit>(parent) {
    connect(this, &QLineEdit::textChanged, this, [this] { LimitTo(text().size()); });
}

void DigitBox::SetLimit(int characters) {
    limit_ = characters;
    LimitTo(text().size());
}

void DigitBox::ShowWhole(const QString& text) {
    LimitTo(text.size());
    setText(text);
}

void DigitBox::LimitTo(qsizetype length) {
    const int most = std::max(limit_, static_cast<int>(length));
    if (most != maxLength()) {
        const int caret = cursorPosition();
        setMaxLength(most); // sends the caret to the end
        setCursorPosition(caret);
    }
}

void DigitBox::keyPressEvent(QKeyEvent* event) {
    const QString typed = event->text();
    const char16_t code = typed.isEmpty() ? u'\0' : typed[0].unicode();
    const bool isControl = code < 32 || code == 127; // the Delete key comes as 127
    if (!isControl && (code < u'0' || code > u'9')) {
        event->ignore();
        return;
    }
    Watched<QLineEdit>::keyPressEvent(event);
}

void DigitBox::focusInEvent(QFocusEvent* event) {
    if (IsMoveOfFocus(event->reason())) {
        selectAll();
        selectOnRelease_ = event->reason() == Qt::MouseFocusReason;
    }
    Watched<QLineEdit>::focusInEvent(event);
}

void DigitBox::mouseReleaseEvent(QMouseEvent* event) {
    Watched<QLineEdit>::mouseReleaseEvent(event);
    if (std::exchange(selectOnRelease_, false) && !hasSelectedText()) {
        selectAll();
    }
}

} // namespace lumrake
