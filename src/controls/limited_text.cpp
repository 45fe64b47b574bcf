#include "controls/limited_text.h"

#include "disk/texts.h"

#include <QContextMenuEvent>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QMenu>
#include <QMimeData>
#include <QTextCursor>

#include <algorithm>
#include <utility>

namespace lumrake {

namespace {

/// Everything that the toolkit makes a new line of becomes LF.
QString WithLineFeeds(QString text) {
    text.replace(QLatin1String("\r\n"), QLatin1String("\n"));
    constexpr char16_t kBreaks[] = {u'\r', 0x2028, 0x2029, 0xFDD0, 0xFDD1};
    for (const char16_t character : kBreaks) {
        text.replace(QChar(character), QLatin1Char('\n'));
    }
    return text;
}

/// What a key brings in; empty for one that edits and for a shortcut. Characters that shape their neighbours are
/// entered with Ctrl on some keyboards.
QString EnteredBy(const QKeyEvent& event) {
    if (event.matches(QKeySequence::InsertParagraphSeparator) ||
        event.matches(QKeySequence::InsertLineSeparator)) {
        return QStringLiteral("\n");
    }
    const QString text = event.text();
    if (text.isEmpty() || text.front().category() == QChar::Other_Format) {
        return text;
    }
    const bool shortcut = (event.modifiers() & ~Qt::ShiftModifier) == Qt::ControlModifier;
    return shortcut || text.front().category() == QChar::Other_Control ? QString() : text;
}

} // namespace

void LimitedText::SetLimit(int characters, std::function<bool(const QString&)> fits) {
    limit_ = characters;
    fits_ = std::move(fits);
}

QString LimitedText::Text() const {
    // toPlainText would make plain blanks of those that hold a line together.
    return WithLineFeeds(document()->toRawText());
}

/// As much of `entered` as fits in place of the characters from `from` to `to`.
QString LimitedText::FittingPart(const QString& entered, int from, int to) const {
    const QString text = Text();
    const QString before = text.left(from), after = text.mid(to);
    return FittingHead(entered, std::max<qsizetype>(0, limit_ - before.size() - after.size()),
                       [&](const QString& head) { return fits_(before + head + after); });
}

void LimitedText::keyPressEvent(QKeyEvent* event) {
    const QString entered = EnteredBy(*event);
    const QTextCursor caret = textCursor();
    if (FittingPart(entered, caret.selectionStart(), caret.selectionEnd()) != entered) {
        event->accept();
        return;
    }
    QPlainTextEdit::keyPressEvent(event);
}

void LimitedText::inputMethodEvent(QInputMethodEvent* event) {
    const QTextCursor caret = textCursor();
    const int from = caret.selectionStart() + event->replacementStart();
    const int to = caret.selectionEnd() + event->replacementStart() + event->replacementLength();
    const QString part = FittingPart(event->commitString(), from, to);
    if (part == event->commitString()) {
        QPlainTextEdit::inputMethodEvent(event);
        return;
    }
    QInputMethodEvent fitting(event->preeditString(), event->attributes());
    if (!part.isEmpty()) {
        fitting.setCommitString(part, event->replacementStart(), event->replacementLength());
    }
    QPlainTextEdit::inputMethodEvent(&fitting);
}

/// Pasting and dropping. An empty clipboard has no formats, nor has one whose owner does not answer; the toolkit would
/// look at the first of them.
void LimitedText::insertFromMimeData(const QMimeData* source) {
    if (source->formats().isEmpty()) { // each question more is one to wait for
        return;
    }
    QTextCursor caret = textCursor();
    // Two characters can be one line break.
    const QString part = FittingPart(WithLineFeeds(source->text().left(2 * qsizetype{limit_})),
                                     caret.selectionStart(), caret.selectionEnd());
    if (!part.isEmpty()) {
        caret.beginEditBlock(); // an undo step of its own
        caret.insertText(part);
        caret.endEditBlock();
        setTextCursor(caret);
        ensureCursorVisible();
    }
}

void LimitedText::contextMenuEvent(QContextMenuEvent* event) {
    QMenu* menu = createStandardContextMenu(event->pos());
    menu->setAttribute(Qt::WA_DeleteOnClose);
    for (QAction* entry : menu->actions()) {
        if (entry->menu() != nullptr) { // it would insert control characters past the limit
            menu->removeAction(entry);
        }
    }
    menu->popup(event->globalPos());
}

} // namespace lumrake
