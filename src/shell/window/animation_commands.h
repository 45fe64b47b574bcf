#pragma once

class QString;

namespace lumrake {

class frmAnimation;
class frmSnapshot;

// The commands of the Animation menu and "Animate" of the Snapshot menu. They ask for names and make windows;
// reading and writing is the window's own. Animations do not enter the recent list.

/// A new animation through the setup dialog, which begins with what it showed last.
void NewAnimation();
/// Asks for an .ANM file and opens it in a new window.
void OpenAnimationDialog();
/// Opens an .ANM file, named by its true path, in a new window.
void OpenAnimationFile(const QString& sFile);
/// Saves to the animation's own file, or asks for a name when it has none. True when the record is on the
/// disk.
bool SaveAnimationCommand(frmAnimation& animation);
/// Asks for a new name and saves there. False when the user gave up or the save failed.
bool SaveAnimationAs(frmAnimation& animation);
/// For a window that closes after the answer Yes: saves, asking for a name when there is none, and after a
/// failure asks for other names as SaveUntilGivenUp does. False means that the window stays.
bool SaveAnimationBeforeClosing(frmAnimation& animation);
/// A new animation whose dialog begins with the view of a snapshot: its columns become the frames.
void AnimateSnapshot(const frmSnapshot& snapshot);

} // namespace lumrake
