#pragma once

#include "disk/outcome.h"

#include <QString>

#include <cstdint>
#include <span>

namespace lumrake {

/// Makes the file hold exactly `bytes`: they go to a temporary file beside it, are brought to the disk, and
/// the new file takes the place of the old one in one step, so that whatever fails leaves the old file as it
/// was. Symbolic links are followed. All rights are kept (mode bits, group, access lists, other extended attributes),
/// or nothing is written; the owner as far as the system lets the user. A file without any write permission and what
/// is no regular file are refused. When only the new name in the directory cannot be brought to the disk, that is a
/// failure as well, although the new file stands there.
/// Where the folder, or the place itself, lets no new file in (no permission, a sticky folder, a mount of the one file)
/// an existing file is written in place (disk/in_place.h).
Outcome WriteWholeFile(const QString& path, std::span<const std::uint8_t> bytes);

/// Writes `record` as the first bytes of the file and keeps what stands behind it. Atomic as WriteWholeFile.
/// Nothing is written when the old tail cannot be read.
Outcome WriteFirstRecord(const QString& path, std::span<const std::uint8_t> record);

} // namespace lumrake
