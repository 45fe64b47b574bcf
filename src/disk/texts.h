#pragma once

#include "base/text_codec.h"

#include <QByteArrayView>
#include <QString>

#include <cstdint>
#include <span>

namespace lumrake {

/// A text of the program's own tables and rules, plain ASCII; null and empty give the empty text.
inline QString Latin(QByteArrayView text) {
    return QString::fromLatin1(text);
}

/// The same bytes, as the rules take them.
inline std::span<const std::uint8_t> BytesOf(QByteArrayView bytes) {
    return {reinterpret_cast<const std::uint8_t*>(bytes.data()), static_cast<std::size_t>(bytes.size())};
}

/// `text` without the blanks (0x20 alone) at both ends.
inline QString TrimBlanks(const QString& text) {
    return QString::fromStdString(std::string(TrimBlanks(text.toStdString())));
}

/// A tool tip that shows `text` as it stands, over as many lines as it takes. A plain one would keep to one line
/// however wide, and take "<b>" in a file's name for a word of the markup.
QString WholeTip(const QString& text);

/// The longest head of `text` that `fits`, of at most `most` UTF-16 units and without half a character at its end;
/// empty when there is none.
template <class Test> QString FittingHead(const QString& text, qsizetype most, const Test& fits) {
    QString head = text.left(most);
    while (!head.isEmpty() && (head.back().isHighSurrogate() || !fits(head))) {
        head.chop(1);
    }
    return head;
}

} // namespace lumrake
