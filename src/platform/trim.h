#pragma once

#include "platform/text_codec.h"

#include <QString>

namespace lumrake {

/// `text` without the blanks (0x20 alone) at both ends.
inline QString TrimBlanks(const QString& text) {
    return QString::fromStdString(std::string(TrimBlanks(text.toStdString())));
}

} // namespace lumrake
