#include "controls/limited_edit.h"

#include "disk/texts.h"

#include <QValidator>

#include <algorithm>
#include <utility>

namespace lumrake {

/// Tests what the text would become; the line edit takes back what is refused, out of its undo history too.
class LimitedEdit::Fit : public QValidator {
  public:
    Fit(LimitedEdit* box, std::function<bool(const QString&)> fits)
        : QValidator(box), fits_(std::move(fits)) {}

    bool operator()(const QString& text) const { return fits_(text); }
    State validate(QString& text, int& caret) const override {
        if (fits_(text)) {
            return Acceptable;
        }
        // The line edit is in the middle of it: a part goes in when it has taken the whole back.
        auto* const box = static_cast<LimitedEdit*>(parent());
        QMetaObject::invokeMethod(
            box, [box, refused = text.left(caret)] { box->EnterHeadOf(refused); }, Qt::QueuedConnection);
        return Invalid;
    }

  private:
    std::function<bool(const QString&)> fits_;
};

LimitedEdit::LimitedEdit(QWidget* parent) : QLineEdit(parent) {
    connect(this, &QLineEdit::textChanged, this, [this] { LimitTo(text().size()); });
    connect(this, &QLineEdit::inputRejected, this, [this] { sCut_ = text(); });
}

void LimitedEdit::SetLimit(int characters) {
    limit_ = characters;
    LimitTo(text().size());
}

void LimitedEdit::SetFit(std::function<bool(const QString&)> fits) {
    setValidator(new Fit(this, std::move(fits)));
}

void LimitedEdit::ShowWhole(const QString& text) {
    LimitTo(text.size());
    setText(text);
    sCut_ = QString();
}

void LimitedEdit::LimitTo(qsizetype length) {
    const int most = std::max(limit_, static_cast<int>(length));
    if (most != maxLength()) {
        const int caret = cursorPosition();
        setMaxLength(most); // sends the caret to the end
        setCursorPosition(caret);
    }
}

/// `refused` is the text that did not fit, up to the end of what the user entered.
void LimitedEdit::EnterHeadOf(const QString& refused) {
    const auto& fits = static_cast<const Fit&>(*validator());
    const int start = hasSelectedText() ? selectionStart() : cursorPosition();
    const QString before = text().left(start);
    const QString after = text().mid(hasSelectedText() ? selectionEnd() : start);
    const QString head = FittingHead(refused.mid(start), limit_,
                                     [&](const QString& entered) { return fits(before + entered + after); });
    if (!head.isEmpty()) {
        insert(head);
    }
}

} // namespace lumrake
