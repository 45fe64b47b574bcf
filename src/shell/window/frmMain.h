#pragma once

#include "shell/rules/settings.h"
#include "shell/shell.h"

#include <QList>
#include <QMainWindow>
#include <QPoint>
#include <QPointer>
#include <QStringList>

#include <cstdint>
#include <vector>

class QAction;
class QLabel;
class QMdiArea;
class QMdiSubWindow;
class QTimer;

namespace lumrake {

class DocumentForm;
class frmHelp;
class frmSnapshot;
class PanelBar;
class Toolbar;

/// Names of the commands, as menu entries. Several of one name are told apart by an index.
enum class Menu : std::int8_t {
    menu_file,
    menu_open,
    menu_save,
    menu_saveas,
    menu_exportviews,
    menu_exportview, ///< 1 and 2
    menu_exportselect,
    menu_bar5,
    menu_prefs,
    menu_bar1,
    menu_recent, ///< 1 to 4
    menu_bar2,
    menu_exit,
    menu_edit_top,
    menu_edit, ///< 1 to 4
    menu_view,
    menu_zoomopt,
    menu_zoom, ///< 1 to 5: the zoom index
    menu_bar3,
    menu_toolbar, ///< 1 to 6: the index of bToolbarVisible, counted from 1
    tbrMain,      ///< 2 to 5: the tools, which are buttons alone
    menu_snapshot_top,
    menu_mode, ///< 0 to 4: the mode
    menu_bar6,
    menu_snapshot, ///< 0 to 3
    menu_animation_top,
    menu_animation, ///< 1 to 4
    menu_bar4,
    menu_animationtogif,
    menu_window,
    menu_closeall,
    menu_help,
    menu_about,
    menu_fizzlet,
};

/// The main window: menus, toolbar with the co-ordinates panel, the area of the children, status bar. It
/// takes the notices of the children from its construction to its end and hands commands down to the active
/// one.
///
/// The sections stand in the order of the files: frmMain.cpp, frmMain_menus.cpp, frmMain_toolbar.cpp,
/// frmMain_children.cpp, frmMain_commands.cpp.
class frmMain : public QMainWindow, public ShellNotices {
  public:
    /// Builds the controls and runs MDIForm_Load; shows nothing.
    frmMain();
    ~frmMain() override;

    // ---- the window: frmMain.cpp ----

    /// Closes the children, or those that have changed, one after the other, each with its question; false as soon as
    /// one of them stays.
    bool CloseChildren(bool changedOnly = false);
    /// Unloads the window without a question, whatever is open.
    void Unload() { MDIForm_Unload(); }

    /// Place and size on the screen in twips, with the frame as far as it is known.
    WindowTwips PlaceInTwips() const;
    void SetStatusText(const QString& sText) override;
    /// With no child the text panel says what it says at the start.
    void ShowCaption() override;
    void ShowPrompt(std::int32_t lNumber) override;
    void menu_fizzlet_Click(int Index = 0);

    // ---- commands: frmMain_menus.cpp ----

    /// What gives a command in its menu and on the toolbar, or opens a menu.
    QAction* Entry(Menu name, int Index = 0) const;
    void EnableFunction(std::int16_t iGroup, bool bEnable) override;
    void UpdateToolbars(const QString& sKind, bool bEnable) override;
    void ShowModeTick(std::int16_t iMode) override;
    void ShowFlipTick(bool bOn) override;
    void ShowRecentFiles() override;
    void PopupSnapshotMenu(const QPoint& screenPlace) override;
    /// Ticks the entries of the View menu and the assistant's by Settings.
    void ShowSettingsTicks();

    // ---- toolbar: frmMain_toolbar.cpp ----

    /// Shows and hides the groups of buttons and the co-ordinates panel by bToolbarVisible.
    void ArrangeToolbars();
    void ShowCoords(std::int16_t iIndex, double x, double y) override;
    void ChooseTool(std::int16_t iTool) override;

    // ---- children: frmMain_children.cpp ----

    void AdoptChild(DocumentForm* child) override;
    bool SaveBeforeClosing(DocumentForm& child) override;
    /// The document window that is active, or was last when another program is in front; null when none is
    /// open.
    DocumentForm* ActiveForm() const;
    /// The same when it is a snapshot, else null.
    frmSnapshot* ActiveSnapshot() const;

  protected:
    bool event(QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;

  private:
    friend struct MainProbe; // lets tests read the controls

    // ---- the window ----
    void MDIForm_Load();
    void MDIForm_Activate();
    void MDIForm_Resize();
    void MDIForm_Unload();
    /// The assistant, made at the first use.
    frmHelp& Assistant();
    /// Writes today's date into its panel and comes back when the day is over.
    void ShowDate();
    /// The last child closed, or none is open yet: status text and co-ordinates as at the start.
    void ShowNoDocument();

    // ---- commands: one row for each ----
    /// What must be there for a command. 1 to 5 are the groups of EnableFunction; a further command on a net goes with
    /// one of theirs.
    enum Needs : std::int16_t {
        kNothing,
        kSnapshotActive = kGroupExportSelection + 1,
        kAnimationActive,
        kAnyChild,
        kNeedsCount
    };
    struct Command;
    static const Command kRows[];
    static const std::vector<Command>& Commands();
    void CreateCommands();
    void PutOnToolbar(const Command& row, QAction& action);
    void ShowEnabled();
    /// What the list of windows calls the documents: by their captions, those of the same caption by their folders as
    /// well, those of the same folder, as a rule of one file, by numbers.
    QStringList WindowNames() const;
    void FillWindowList();

    // ---- toolbar ----
    void CreateCoordsPanel();
    /// The width in pixels that the buttons and the co-ordinates panel need beside each other.
    int LeastToolbarWidth() const;
    void PlaceCoordsPanel();
    void tbrMain_ButtonClick(int Tool);

    // ---- children ----
    void CreateClient();
    /// The document in a frame; null while the frame is taken apart.
    static DocumentForm* FormIn(const QMdiSubWindow& frame);
    /// The frames of the documents on the screen, oldest first.
    std::vector<QPointer<QMdiSubWindow>> OpenFrames() const;
    /// Where the next child goes: the first place of a short cascade that no open one stands at.
    QPoint FreePlace() const;
    void ChildActivated(QMdiSubWindow* frame);

    // ---- what the commands do: one handler for each name, with the index ----
    void menu_open_Click(int Index);
    void menu_save_Click(int Index);
    void menu_saveas_Click(int Index);
    void menu_exportview_Click(int Index);
    void menu_exportselect_Click(int Index);
    void menu_prefs_Click(int Index);
    void menu_recent_Click(int Index);
    void menu_exit_Click(int Index);
    void menu_edit_Click(int Index);
    void menu_zoom_Click(int Index);
    void menu_toolbar_Click(int Index);
    void menu_mode_Click(int Index);
    void menu_snapshot_Click(int Index);
    void menu_animation_Click(int Index);
    void menu_animationtogif_Click(int Index);
    void menu_closeall_Click(int Index);
    void menu_about_Click(int Index);

    QList<QAction*> actions_;        ///< of Commands()
    bool met_[kNeedsCount] = {true}; ///< what EnableFunction and UpdateToolbars said last
    ShellNotices* noticesBefore_ = nullptr;
    QPointer<QMdiSubWindow> activeFrame_;
    QPointer<frmHelp> assistant_;
    bool closing_ = false; ///< the children are being asked; a second request meanwhile is refused
    QTimer* dateTimer_ = nullptr;
    std::vector<QAction*> windowList_;

    // ---- controls ----
    QMdiArea* mdiClient = nullptr;
    Toolbar* tbrMain = nullptr;
    QWidget* picCoords = nullptr;
    QLabel* lblCoords[2] = {};
    PanelBar* sbrMain = nullptr;
};

} // namespace lumrake
