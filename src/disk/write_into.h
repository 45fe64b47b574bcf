#pragma once

#include "disk/outcome.h"

#include <QFile>

#include <algorithm>
#include <cstdint>
#include <span>

namespace lumrake {

/// Writes all bytes into an open file. A disk that runs full takes a part without a word and says why it refuses only
/// when it is asked for the rest.
inline Outcome WriteInto(QFile& file, std::span<const std::uint8_t> bytes) {
    qint64 count = 1;
    while (!bytes.empty() && count > 0) {
        count = file.write(reinterpret_cast<const char*>(bytes.data()), static_cast<qint64>(bytes.size()));
        bytes = bytes.subspan(static_cast<std::size_t>(std::max<qint64>(count, 0)));
    }
    if (bytes.empty() && file.flush()) {
        return Outcome::Done();
    }
    file.flush();
    return Outcome::Failed(file.error() == QFileDevice::NoError
                               ? QStringLiteral("Only a part of it could be written.")
                               : file.errorString());
}

/// A share may refuse the bytes as late as this.
inline Outcome CloseFile(QFile& file) {
    file.close();
    return file.error() == QFileDevice::NoError ? Outcome::Done() : Outcome::Failed(file.errorString());
}

} // namespace lumrake
