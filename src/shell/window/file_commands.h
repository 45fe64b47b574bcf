#pragma once

#include <QList>
#include <QString>
#include <QUrl>

#include <array>

namespace lumrake {

// The commands of the File menu that deal with file names. Paths are true paths, spelled as the disk spells
// them; they are shown in lower case.

/// Opens a snapshot in a new window. With an empty `sFile` the user is asked by the file dialog, and the file
/// chosen enters the recent list; a file named by the caller does not.
void OpenSnapshotFile(const QString& sFile);

/// Opens the file of a slot (0 to 3) of the recent list, which does not change: in the run that put it there by its
/// true path. A later run has the path in lower case only; where several files fit, the Open dialog asks in their
/// directory.
void OpenRecentFile(std::size_t slot);

/// Opens what was dropped on the window, one after the other: a file whose name ends in .ANM as an animation, whatever
/// else it is as a snapshot, which enters the recent list if it is a file. What cannot be opened is told.
void OpenDroppedFiles(const QList<QUrl>& dropped);

/// Puts a file at the head of the recent list; the oldest of four falls out. The list is not searched for it.
/// The settings record keeps the path in lower case, cut at 100 bytes; the true path is kept for this run.
void AddRecentFile(const QString& sFile);

/// The recent list as the menu shows it, newest first; empty texts for empty slots.
std::array<QString, 4> RecentFiles();
/// Forgets the true paths and takes the list from Settings, as at the start of the run.
void ResetRecentFiles();

} // namespace lumrake
