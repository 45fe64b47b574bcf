#pragma once

#include "disk/outcome.h"

#include <QFile>

#include <cstdint>
#include <functional>
#include <span>

namespace lumrake {

/// Writes the contents of a file into the open device; false when that failed.
using Writer = std::function<bool(QIODevice&)>;

/// Writes all bytes. A disk that runs full takes a part without a word and says why it refuses only when it is
/// asked for the rest.
inline bool WriteAll(QIODevice& device, std::span<const std::uint8_t> bytes) {
    while (!bytes.empty()) {
        const qint64 count =
            device.write(reinterpret_cast<const char*>(bytes.data()), static_cast<qint64>(bytes.size()));
        if (count <= 0) {
            return false;
        }
        bytes = bytes.subspan(static_cast<std::size_t>(count));
    }
    return true;
}

/// Lets `write` write all of an open file. When the disk takes a part of a buffer, only the rest is told why not.
inline Outcome WriteInto(QFile& file, const Writer& write) {
    if (write(file) && file.flush()) {
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
