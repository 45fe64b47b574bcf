#pragma once

#include <QString>

#include <array>
#include <functional>
#include <optional>

namespace lumrake {

class frmSnapshot;

// The commands of the File menu that deal with file names. Paths are true paths, spelled as the disk spells
// them; they are shown in lower case.

/// Opens a snapshot in a new window. With an empty `sFile` the user is asked by the file dialog, and the file
/// chosen enters the recent list; a file named by the caller does not.
void OpenSnapshotFile(const QString& sFile);

/// Opens the file of a slot (0 to 3) of the recent list, which does not change: in the run that put it there by its
/// true path. A later run has the path in lower case only; where several files fit, the Open dialog asks in their
/// directory.
void OpenRecentFile(std::size_t slot);

/// The message about a snapshot that is not there.
void TellFileNotFound();

/// Puts a file at the head of the recent list; the oldest of four falls out. The list is not searched for it.
/// The settings record keeps the path in lower case, cut at 100 bytes; the true path is kept for this run.
void AddRecentFile(const QString& sFile);

/// The recent list as the menu shows it, newest first; empty texts for empty slots.
std::array<QString, 4> RecentFiles();
/// Forgets the true paths and takes the list from Settings, as at the start of the run.
void ResetRecentFiles();

/// Saves the document to its own file, without a question. True when the bytes are on the disk.
bool SaveSnapshot(frmSnapshot& document);
/// Asks for a new name and saves there. False when the user gave up or the save failed.
bool SaveSnapshotAs(frmSnapshot& document);
/// For a window that closes after the answer Yes: saves as SaveUntilGivenUp does.
bool SaveSnapshotBeforeClosing(frmSnapshot& document);

/// Runs an Open dialog, in a directory if one is given, else where the last one was left. Gives the path chosen, with
/// its directory, or the empty text when the user cancelled.
QString AskOpenFileName(const QString& sDialogTitle, const QString& sFilter,
                        const QString& sDirectory = QString());

/// Runs a Save dialog and asks before an existing file is overwritten. Gives the path to write, nothing when the user
/// gave the dialog up, and the empty text, which nothing is saved under, when he did not answer Yes.
std::optional<QString> AskNewFileName(const QString& sDialogTitle, const QString& sFilter,
                                      const QString& sProposed);

/// Saves on the road of a closing window. After a failure a box, titled `sTitle`, tells the reason and asks
/// whether to save under another name, until the bytes are on the disk or the user says No; an empty name of
/// `askName` leads back to the box. `save` hands the reason of its failure to the text. False, for Cancel and for a
/// dialog given up, means that the window stays.
bool SaveUntilGivenUp(const QString& sFile, const QString& sTitle,
                      const std::function<std::optional<QString>()>& askName,
                      const std::function<bool(const QString& sFile, QString* sReason)>& save);

} // namespace lumrake
