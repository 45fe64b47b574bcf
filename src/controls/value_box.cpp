#include "controls/value_box.h"

#include "controls/watch.h"

#include <QDragEnterEvent>
#include <QKeyEvent>
#include <QMimeData>
#include <QStyle>
#include <QStyleOptionFrame>
#include <QValidator>

#include <algorithm>
#include <utility>

namespace lumrake {

namespace {

constexpr int kSmallestDigits = 9; // pixels; smaller ones are hard to read
constexpr int kLeastStretch = 90;  // percent; digits are made narrower still only when they are the smallest
constexpr int kInnerMargin = 2;    // what a line edit keeps free at both ends by itself
constexpr int kCaret = 1;          // a text that leaves no room for it is scrolled to its end

bool IsDigit(QChar character) {
    return character >= QLatin1Char('0') && character <= QLatin1Char('9');
}

} // namespace

/// Tests what comes in past the keys: pasted and dropped text. It sees the text as it would become; what it
/// refuses is taken back by the line edit.
class ValueBox::Limit : public QValidator {
  public:
    explicit Limit(ValueBox* box) : QValidator(box), box_(box) {}

    State validate(QString& text, int&) const override {
        if (box_->writing_) {
            return Acceptable;
        }
        const bool fits = text.size() <= std::max<qsizetype>(box_->typedDigits_, box_->length_);
        return !box_->isReadOnly() && fits && std::all_of(text.begin(), text.end(), IsDigit) ? Acceptable
                                                                                             : Invalid;
    }

  private:
    ValueBox* box_;
};

ValueBox::ValueBox(int typedDigits, QWidget* parent) : QLineEdit(parent), typedDigits_(typedDigits) {
    setValidator(new Limit(this));
    setInputMethodHints(Qt::ImhDigitsOnly);
    setTextMargins(-1, 0, -1, 0); // seven digits at the standard size fill the box to its frame
    connect(this, &QLineEdit::textChanged, this, [this] {
        length_ = text().size();
        FitDigits();
        if (Change) {
            Change();
        }
    });
}

void ValueBox::Write(const QString& text) {
    const bool before = std::exchange(writing_, true);
    setText(text);
    writing_ = before;
}

void ValueBox::FitDigits() {
    QFont digits = font();
    const int present = digits.pixelSize();
    const int standard = parentWidget() == nullptr ? present : parentWidget()->font().pixelSize();
    if (present <= 0 || standard <= 0) {
        return; // a font in points: the look is not pinned
    }
    QStyleOptionFrame option;
    initStyleOption(&option);
    const QMargins margins = textMargins();
    const int room = style()->subElementRect(QStyle::SE_LineEditContents, &option, this).width() -
                     margins.left() - margins.right() - 2 * kInnerMargin - kCaret;
    const auto width = [this, &digits](int stretch) {
        digits.setStretch(stretch);
        return QFontMetricsF(digits).horizontalAdvance(text());
    };
    int stretch = 0;
    for (int size = standard; stretch < kLeastStretch && size >= kSmallestDigits; --size) {
        digits.setPixelSize(size);
        stretch = static_cast<int>(std::clamp(100 * room / width(QFont::Unstretched), 1.0, 100.0));
        while (width(stretch) > room && stretch > 1) {
            --stretch; // a stretched face is not as narrow as that to the pixel
        }
    }
    if (digits != font()) {
        setFont(digits);
    }
}

bool ValueBox::event(QEvent* event) {
    if (event->type() == QEvent::DragEnter && static_cast<QDragEnterEvent*>(event)->mimeData()->hasUrls()) {
        event->ignore(); // a file is the window's, though its name is a text as well
        return true;
    }
    if (event->type() == QEvent::ShortcutOverride) {
        auto* key = static_cast<QKeyEvent*>(event);
        if (key->modifiers().testFlag(Qt::ControlModifier)) {
            event->ignore();
            return false;
        }
        if (key->key() == Qt::Key_Delete) { // a locked box would let the menu have it
            event->accept();
            return true;
        }
    }
    return QLineEdit::event(event);
}

void ValueBox::keyPressEvent(QKeyEvent* event) {
    if (event->modifiers().testFlag(Qt::ControlModifier)) {
        event->ignore(); // the menu had its turn; the window may have a use for it
        return;
    }
    const QString typed = event->text();
    const bool printable =
        !typed.isEmpty() && typed.front().unicode() >= 32 && typed.front().unicode() != 127;
    const bool full = text().size() - selectedText().size() >= typedDigits_;
    if ((printable && (full || !IsDigit(typed.front())))) {
        return;
    }
    QLineEdit::keyPressEvent(event);
}

void ValueBox::focusInEvent(QFocusEvent* event) {
    QLineEdit::focusInEvent(event);
    if (IsMoveOfFocus(event->reason())) {
        selectAll();
        focusedByPress_ = event->reason() == Qt::MouseFocusReason;
    }
}

void ValueBox::mousePressEvent(QMouseEvent* event) {
    QLineEdit::mousePressEvent(event);
    if (std::exchange(focusedByPress_, false)) {
        selectAll();
    }
}

} // namespace lumrake
