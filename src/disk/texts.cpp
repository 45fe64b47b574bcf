#include "disk/texts.h"

#include <QRegularExpression>

namespace lumrake {

QString WholeTip(const QString& text) {
    // A line of more than 80 characters ends behind the last part of a path that it has room for.
    static const QRegularExpression line(QStringLiteral("(?=.{81})(.{0,79}[/\\\\]|.{80})"),
                                         QRegularExpression::DotMatchesEverythingOption);
    const QString lines = QString(text).replace(line, QStringLiteral("\\1\n"));
    return QStringLiteral("<p style='white-space: pre'>%1</p>").arg(lines.toHtmlEscaped());
}

} // namespace lumrake
