#pragma once

#include "disk/outcome.h"

#include <QString>
#include <QStringList>

#include <cstdint>
#include <span>

namespace lumrake {

// The folder for what has to outlive the program: "lumrake" in the user's state folder, $XDG_STATE_HOME or
// ~/.local/state, on Windows in %LOCALAPPDATA%. It is made when a file is first needed, for the user alone; a link, a
// file or another's folder in its place is refused. Each running program, a run, owns the files with its name:
//
//   RUN.lock        locked as long as the run lives, the only one that stays open
//   RUN-N.changes   what a document differs in from its file (base/recovery_record.h)
//   RUN-N.copy      all new bytes of a file that is written in place
//   RUN-N.note      the name of a temporary file beside a document
//   RUN-N.KIND.new  one of these that is being written
//
// RUN is random, 16 hexadecimal digits. A run is dead when its lock can be taken or has no file; nobody touches the
// files of another that lives, and none goes for its age.

inline const QString kKeptChanges = QStringLiteral("changes");
inline const QString kSafeCopy = QStringLiteral("copy");
inline const QString kTemporaryNote = QStringLiteral("note");

/// The path for a new file of this run, of one of the kinds above; nothing is made but the folder and the lock. Fails
/// where these cannot be had.
Outcome NameFileOfRun(const QString& kind, QString& path);

/// Makes the file hold exactly `bytes` and `more`, on the disk, or leaves it as it was (a new one: not there). When
/// only its name cannot be brought to the disk, that is a failure as well. Where the folder was cleared while the
/// program runs it is made again.
Outcome WriteFileOfRun(const QString& path, std::span<const std::uint8_t> bytes,
                       std::span<const std::uint8_t> more = {});
/// Writes `bytes` behind what the file holds and brings them to the disk. On failure a part of them may stand there.
Outcome AppendToFileOfRun(const QString& path, std::span<const std::uint8_t> bytes);
/// Takes a file of this run away; nothing happens without one, or without a name.
void RemoveFileOfRun(const QString& path);

/// Gives this run the files of all dead runs, under names of its own; of two that start at once one gets them. What
/// was being written when its run died goes.
void AdoptDeadRuns();
/// The files of a kind that this run has, the oldest first: after AdoptDeadRuns those of the dead.
QStringList FilesOfRun(const QString& kind);

/// The orderly end: the lock goes. Files that are left are a dead run's from now on. A file named later begins a new
/// run.
void EndRecoveryRun();

} // namespace lumrake
