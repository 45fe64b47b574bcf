#include "preferences/digit_box.h"

#include "controls/watch.h"

#include <QKeyEvent>

#include <utility>

namespace lumrake {

void DigitBox::keyPressEvent(QKeyEvent* event) {
    const QString typed = event->text();
    const char16_t code = typed.isEmpty() ? u'\0' : typed[0].unicode();
    const bool isControl = code < 32 || code == 127; // the Delete key comes as 127
    if (!isControl && (code < u'0' || code > u'9')) {
        event->ignore();
        return;
    }
    LimitedEdit::keyPressEvent(event);
}

void DigitBox::focusInEvent(QFocusEvent* event) {
    if (IsMoveOfFocus(event->reason())) {
        selectAll();
        selectOnRelease_ = event->reason() == Qt::MouseFocusReason;
    }
    LimitedEdit::focusInEvent(event);
}

void DigitBox::mouseReleaseEvent(QMouseEvent* event) {
    LimitedEdit::mouseReleaseEvent(event);
    if (std::exchange(selectOnRelease_, false) && !hasSelectedText()) {
        selectAll();
    }
}

} // namespace lumrake
