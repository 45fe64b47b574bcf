#pragma once

#include "disk/outcome.h"
#include "shell/rules/settings.h"

#include <QString>

#include <cstdint>

class QPoint;
class QWidget;

namespace lumrake {

class DocumentForm;

// ---- Variables of the whole program ----

extern SettingsRecord Settings; ///< filled once at the start of the run, written once at its end
inline const QString sAppTitle = QStringLiteral("Lumrake");
inline const FixedString<10> sAppVersion(LUMRAKE_VERSION);
extern std::int16_t bSkipSplash;     ///< -1 when the command line is exactly the word REHEARS, else 0
extern std::int16_t iSnapshotCount;  ///< open snapshot windows
extern std::int16_t iAnimationCount; ///< open animation windows
extern std::int16_t iCurrentTool; ///< one for all windows: 1 placing a block, 2 Draw, 3 Magnify, 4 Net, 5 Pan

/// One open window in such a count, from its making to its end.
class CountedIn {
  public:
    explicit CountedIn(std::int16_t& count) : count_(count) { ++count_; }
    ~CountedIn() { --count_; }
    CountedIn(const CountedIn&) = delete;
    CountedIn& operator=(const CountedIn&) = delete;

  private:
    std::int16_t& count_;
};

/// Tools, as values of iCurrentTool.
enum Tool : std::int16_t { kToolPlacing = 1, kToolDraw = 2, kToolMagnify = 3, kToolNet = 4, kToolPan = 5 };

// ---- Notices that come up from the windows ----

/// Groups of commands that EnableFunction switches.
enum FunctionGroup : std::int16_t {
    kGroupCut = 1,
    kGroupCopy = 2,
    kGroupPaste = 3,
    kGroupDelete = 4,
    kGroupExportSelection = 5
};

/// What the windows tell, to whoever is registered: the main window while it lives, a recorder in a test. By themselves
/// the notices do nothing, and nothing in the callers depends on what they do.
class ShellNotices {
  public:
    virtual ~ShellNotices() = default;
    /// Puts a text into the text panel of the main status bar.
    virtual void SetStatusText(const QString& /*sText*/) {}
    /// Puts the caption of the active child there, after a dialog had its hints in that place.
    virtual void ShowCaption() {}
    /// Shows two numbers in the co-ordinates panel: iIndex 0 the mouse position, 1 the size of the net, both in
    /// picture pixels.
    virtual void ShowCoords(std::int16_t /*iIndex*/, double /*x*/, double /*y*/) {}
    /// Enables or disables one group of commands (1 to 5, FunctionGroup); any other group does nothing.
    virtual void EnableFunction(std::int16_t /*iGroup*/, bool /*bEnable*/) {}
    /// The same for the commands that act on a net: Cut, Copy, Delete, the export of the selection.
    void EnableNetCommands(bool bEnable);
    /// Makes the commands follow the kind ("SNAPSHOT" or "ANIMATION") of the child that became active, or that
    /// was the last of its kind to close.
    virtual void UpdateToolbars(const QString& /*sKind*/, bool /*bEnable*/) {}
    /// Lets the assistant say the prompt of a help number; 0 empties his bubble. Nothing happens while he is off.
    virtual void ShowPrompt(std::int32_t /*lNumber*/) {}
    /// Ticks the entry of mode 0 to 4 in the Snapshot menu and unticks the others.
    virtual void ShowModeTick(std::int16_t /*iMode*/) {}
    /// Ticks or unticks "Flip upside down" in the Snapshot menu.
    virtual void ShowFlipTick(bool /*bOn*/) {}
    /// Opens the Snapshot menu as a pop-up at a place on the screen and waits for its end.
    virtual void PopupSnapshotMenu(const QPoint& /*screenPlace*/) {}
    /// Presses the button of a tool (2 to 5) on the toolbar, where it is shown and enabled.
    virtual void ChooseTool(std::int16_t /*iTool*/) {}
    /// Shows the recent list as it now is in the File menu.
    virtual void ShowRecentFiles() {}
    /// Puts a new child into a frame of the main window's area, hidden. The frame then owns the child. Without a
    /// main window the child stays a window of its own, owned by whoever made it. In both cases the outermost
    /// widget of the document is ChildFrame(child).
    virtual void AdoptChild(DocumentForm* /*child*/) {}
    /// Saves a child that closes after the answer Yes. False when its window is to stay, with nobody registered as well.
    virtual bool SaveBeforeClosing(DocumentForm& /*child*/) { return false; }
};

/// Registers the receiver of the notices, or nobody with null; returns the one before.
ShellNotices* SetShellNotices(ShellNotices* notices);
/// Whoever is registered.
ShellNotices& Shell();

/// The frame that a child was adopted into, or the child itself when there is none: what is shown, sized,
/// closed.
QWidget* ChildFrame(QWidget* child);
/// Shows a child's caption as it stands, in its frame and in the list of windows as well.
void SetCaption(QWidget* child, const QString& sCaption);
QString CaptionOf(const QWidget* child);
/// Makes a child the active one, so that the user sees which window a question is about.
void BringToFront(QWidget* child);

// ---- Procedures over the variables ----

/// Ink ("FORE") or paper (anything else) of an attribute through the palette of Settings.
Colour AttributeColour(std::int16_t iAttribute, std::string_view sWhich);

/// The settings file: LMK.CFG in the program's directory, in whatever case the disk has it.
QString SettingsFile();
/// From now on it lies in the user's own configuration folder, in "lumrake", for a program that all users share.
void KeepSettingsOfEachUser();
/// Uses another directory for LMK.CFG and LMKHELP.DAT than the program's or the user's, for tests.
void SetProgramDirectory(const QString& directory);
QString ProgramDirectory();

/// Fills Settings from the file, or with the defaults when there is no file. A file that cannot be read, or
/// that has this version's stamp and is too short, gives the defaults and one message.
void LoadSettings(const WindowTwips& window);
/// Writes Settings as the first record of the file; what stands behind the record stays. A folder that is not there
/// yet is made, for the user alone. A failure is told once.
void SaveSettings();

/// Tells the user why something failed, in a box with this title; nothing when it did not, or was called off. Gives
/// IsDone() back.
bool TellFailure(const Outcome& outcome, const QString& title);

/// The message about a snapshot that is not there.
void TellFileNotFound();

/// The box for a command that is not built.
void ShowNotAvailable();

} // namespace lumrake
