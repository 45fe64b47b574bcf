#pragma once

#include "disk/outcome.h"

#include <QString>

#include <cstdint>
#include <optional>
#include <span>

namespace lumrake {

// Saving over the bytes of a file, for folders that let no new file take the old one's place. All new bytes stand on
// the disk in a file of this run (disk/recovery_run.h) before the first one is written:
//
//   bytes of it      what
//   length           all new bytes of the file
//   size of path     the file's path, as the system spells it
//   8                length
//   8                check sum of path and length, that goes on from the one of the new bytes
//   8                "LMKCOPY2"
//
// Numbers are little-endian. A copy whose numbers do not fit its size, or whose sum is another, is none.

/// Makes the existing file at `path` hold exactly `bytes`. When the copy cannot be made, nothing is written. After a
/// later failure the file may hold a part of the new bytes, and the copy stays until the file is saved: the reason says
/// where.
Outcome WriteInPlace(const QString& path, std::span<const std::uint8_t> bytes);

/// The copy of an attempt that failed, or that a run before this one did not finish, stays until ForgetSafeCopy.
void HoldSafeCopy(const QString& path, const QString& copy);
/// The file at `path` has been saved, or is not wanted as it was meant to be: the copy goes.
void ForgetSafeCopy(const QString& path);

/// A save in place that did not come to its end.
struct UnfinishedSave {
    QString path;
    std::span<const std::uint8_t> bytes; ///< of the copy
};
/// What a copy holds; nothing when it is none.
std::optional<UnfinishedSave> ParseSafeCopy(std::span<const std::uint8_t> copy);

} // namespace lumrake
