#pragma once

#include "base/memory_block.h"
#include "disk/outcome.h"

#include <QString>
#include <QStringList>

#include <cstdint>
#include <optional>
#include <system_error>

namespace lumrake {

// Paths are taken with "/" and with what the system writes between directories, and given back with the latter.

// Reasons why something is not read or written.
inline const QString kIsDirectory = QStringLiteral("It is a directory.");
inline const QString kIsNotRegular = QStringLiteral("It is not a regular file.");
inline const QString kNoMemory = QStringLiteral("There is not enough memory for it.");

/// The last component of a path. "/" and "\" both end a directory; with neither in it the empty text.
QString FileTitleOf(const QString& sPath);

/// The true path of an existing file: `path` itself when it is there, else the one file that differs from it
/// only in letter case, looked for component by component, and in blanks at its end, which records do not keep.
/// Nothing when there is none, or more than one; a symbolic link that leads nowhere is none.
/// Directories are found as well: what can be done with them is for the reader to say.
std::optional<QString> FindFile(const QString& path);

/// All files that a path from a record may mean, where it stands in lower case and without blanks at its end. With
/// `isCut` the record may have had no room for the rest: then files with longer names that begin so count as well.
QStringList FilesOfStoredPath(const QString& path, bool isCut);

/// Where a file goes whose name the program makes new from what a dialog gave: the directory as it stands and
/// the name, without the blanks round it, in lower case. A file that is already there under `chosen`'s own
/// spelling, or else the one that differs only in case, is meant instead: then `exists` is true and `path` is
/// that file. Where several differ only in case, none of them is meant.
struct NewFile {
    QString path;
    bool exists = false;
};
NewFile PathForNewFile(const QString& chosen);

/// True when the system says that nothing stands at `path`; false as well when it cannot say.
bool IsMissing(const QString& path);

/// Lets a file take a name, and the place of what stands there; what the system said if it could not.
std::error_code RenameFile(const QString& from, const QString& to);

/// Length in bytes of a regular file, or nothing when it cannot be had.
std::optional<std::int64_t> FileLength(const QString& path);

/// Reads the whole file, or the first `limit` bytes of it, into memory of its own in one pass.
/// `target` is left alone on failure. What is no regular file (a directory, a pipe), and a file that ends
/// before its length, is a failure.
Outcome ReadWholeFile(const QString& path, MemoryBlock& target, std::int64_t limit = INT64_MAX);

} // namespace lumrake
