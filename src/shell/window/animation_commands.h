#pragma once

class QString;

namespace lumrake {

class frmSnapshot;

// The commands of the Animation menu and "Animate" of the Snapshot menu. They ask for names and make windows;
// reading and writing is the window's own. Animations do not enter the recent list.

/// A new animation through the setup dialog, which begins with what it showed last.
void NewAnimation();
/// Asks for an .ANM file and opens it in a new window.
void OpenAnimationDialog();
/// Opens an .ANM file, named by its true path, in a new window.
void OpenAnimationFile(const QString& sFile);
/// A new animation whose dialog begins with the view of a snapshot: its columns become the frames.
void AnimateSnapshot(const frmSnapshot& snapshot);

} // namespace lumrake
