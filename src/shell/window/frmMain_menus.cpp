// The commands: what gives them in the menus and on the toolbar, what they need, and what the menus show: ticks, the
// recent list, the list of windows.

#include "assistant/rules/help_numbers.h"
#include "controls/pictures.h"
#include "controls/toolbar.h"
#include "disk/texts.h"
#include "display/modes.h"
#include "shell/document_form.h"
#include "shell/window/file_commands.h"
#include "shell/window/frmMain.h"
#include "snapshot/frmClip.h"

#include <QActionGroup>
#include <QFileInfo>
#include <QHelpEvent>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenu>
#include <QMenuBar>
#include <QStyleOptionMenuItem>

#include <algorithm>
#include <iterator>

namespace lumrake {

namespace {

enum State : std::uint8_t {
    kPlain, ///< a separator as well, when there is no caption
    kMenu,  ///< opens a menu of the rows below it that lie one deeper
    kHidden,
    kTick,     ///< can be ticked
    kTicked,   ///< can be ticked and is at first
    kEachMode, ///< stands for one entry for each display mode, with the mode as Index, of which one is ticked
    kTool      ///< a button alone; of these exactly one is pressed, the first at first
};

/// A menu whose entries leave the drawings and the tips of their buttons to the toolbar.
class CommandMenu : public QMenu {
  public:
    using QMenu::QMenu;

  protected:
    void initStyleOption(QStyleOptionMenuItem* option, const QAction* action) const override {
        QMenu::initStyleOption(option, action);
        option->maxIconWidth = 0;
    }
    bool event(QEvent* event) override {
        if (event->type() == QEvent::ToolTip) {
            const QAction* entry = actionAt(static_cast<QHelpEvent*>(event)->pos());
            setToolTipsVisible(entry != nullptr && entry->icon().isNull());
        }
        return QMenu::event(event);
    }
};

/// Where a child's file lies; nothing for one that was never saved.
QString FolderOf(const DocumentForm& child) {
    const QString sFile = child.GetFilename();
    return sFile.isEmpty() ? sFile : QStringLiteral(" (%1)").arg(QFileInfo(sFile).path());
}

/// A "&" of a path or title would be taken for an access key.
QString Displayed(QString text) {
    return text.replace(QLatin1Char('&'), QLatin1String("&&"));
}

} // namespace

struct frmMain::Command {
    Menu name;
    int Index;
    int depth;           ///< 0 in the bar, 1 in its menu, 2 in a submenu
    const char* Caption; ///< null for a separator
    State state;
    const char* Shortcut; ///< or null
    std::int16_t needs;   ///< Needs or FunctionGroup
    void (frmMain::*Click)(int Index);
    struct Button {
        int group;       ///< index in bToolbarVisible
        const char* Key; ///< null when there is no button; in small letters the name of its drawing
        const char* ToolTipText;
        std::int32_t help;
    } button{};
};

// clang-format off
constexpr frmMain::Command frmMain::kRows[] = {
    // name                 Index, depth, caption                    state    shortcut   needs                  procedure                            group, key, tool tip, help number
    {Menu::menu_file,           0, 0, "&File",                    kMenu,   nullptr,   kNothing,              nullptr},
    {Menu::menu_open,           0, 1, "&Open snapshot",           kPlain,  "Ctrl+O",  kNothing,              &frmMain::menu_open_Click,           {0, "OPEN",      "Open snapshot",              kHelpOpen}},
    {Menu::menu_save,           0, 1, "&Save",                    kPlain,  "Ctrl+S",  kSnapshotActive,       &frmMain::menu_save_Click,           {0, "SAVE",      "Save snapshot",              kHelpSave}},
    {Menu::menu_saveas,         0, 1, "Save &As",                 kPlain,  "Ctrl+A",  kSnapshotActive,       &frmMain::menu_saveas_Click},
    {Menu::menu_exportviews,    0, 1, "&Export view",             kMenu,   nullptr,   kSnapshotActive,       nullptr},
    {Menu::menu_exportview,     1, 2, "&Windows Bitmap",          kPlain,  nullptr,   kSnapshotActive,       &frmMain::menu_exportview_Click},
    {Menu::menu_exportview,     2, 2, "&Raw data",                kPlain,  nullptr,   kSnapshotActive,       &frmMain::menu_exportview_Click,     {0, "EXPORT",    "Export to DAT file",         kHelpExport}},
    {Menu::menu_exportselect,   0, 1, "Expo&rt selection to BMP", kPlain,  nullptr,   kGroupExportSelection, &frmMain::menu_exportselect_Click},
    {Menu::menu_bar5,           0, 1, nullptr,                    kPlain,  nullptr,   kNothing,              nullptr},
    {Menu::menu_prefs,          0, 1, "&Preferences",             kPlain,  nullptr,   kNothing,              &frmMain::menu_prefs_Click},
    {Menu::menu_bar1,           0, 1, nullptr,                    kHidden, nullptr,   kNothing,              nullptr},
    {Menu::menu_recent,         1, 1, "&1 ...",                   kHidden, nullptr,   kNothing,              &frmMain::menu_recent_Click},
    {Menu::menu_recent,         2, 1, "&2 ...",                   kHidden, nullptr,   kNothing,              &frmMain::menu_recent_Click},
    {Menu::menu_recent,         3, 1, "&3 ...",                   kHidden, nullptr,   kNothing,              &frmMain::menu_recent_Click},
    {Menu::menu_recent,         4, 1, "&4 ...",                   kHidden, nullptr,   kNothing,              &frmMain::menu_recent_Click},
    {Menu::menu_bar2,           0, 1, nullptr,                    kPlain,  nullptr,   kNothing,              nullptr},
    {Menu::menu_exit,           0, 1, "E&xit",                    kPlain,  nullptr,   kNothing,              &frmMain::menu_exit_Click},

    {Menu::menu_edit_top,       0, 0, "&Edit",                    kMenu,   nullptr,   kNothing,              nullptr},
    {Menu::menu_edit,           1, 1, "Cu&t",                     kPlain,  "Ctrl+X",  kGroupCut,             &frmMain::menu_edit_Click,           {1, "CUT",       "Cut",                        kHelpCut}},
    {Menu::menu_edit,           2, 1, "&Copy",                    kPlain,  "Ctrl+C",  kGroupCopy,            &frmMain::menu_edit_Click,           {1, "COPY",      "Copy",                       kHelpCopy}},
    {Menu::menu_edit,           3, 1, "&Paste",                   kPlain,  "Ctrl+V",  kGroupPaste,           &frmMain::menu_edit_Click,           {1, "PASTE",     "Paste",                      kHelpPaste}},
    {Menu::menu_edit,           4, 1, "&Delete",                  kPlain,  "Del",     kGroupDelete,          &frmMain::menu_edit_Click},

    {Menu::menu_view,           0, 0, "&View",                    kMenu,   nullptr,   kNothing,              nullptr},
    {Menu::menu_zoomopt,        0, 1, "&Zoom",                    kMenu,   nullptr,   kAnyChild,             nullptr},
    {Menu::menu_zoom,           1, 2, "1:1",                      kPlain,  nullptr,   kNothing,              &frmMain::menu_zoom_Click},
    {Menu::menu_zoom,           2, 2, "2:1",                      kPlain,  nullptr,   kNothing,              &frmMain::menu_zoom_Click},
    {Menu::menu_zoom,           3, 2, "4:1",                      kPlain,  nullptr,   kNothing,              &frmMain::menu_zoom_Click},
    {Menu::menu_zoom,           4, 2, "8:1",                      kPlain,  nullptr,   kNothing,              &frmMain::menu_zoom_Click},
    {Menu::menu_zoom,           5, 2, "16:1",                     kPlain,  nullptr,   kNothing,              &frmMain::menu_zoom_Click},
    {Menu::menu_bar3,           0, 1, nullptr,                    kPlain,  nullptr,   kNothing,              nullptr},
    {Menu::menu_toolbar,        1, 1, "&File",                    kTicked, "Ctrl+F1", kNothing,              &frmMain::menu_toolbar_Click},
    {Menu::menu_toolbar,        2, 1, "&Editing",                 kTicked, "Ctrl+F2", kNothing,              &frmMain::menu_toolbar_Click},
    {Menu::menu_toolbar,        3, 1, "&Drawing",                 kTicked, "Ctrl+F3", kNothing,              &frmMain::menu_toolbar_Click},
    {Menu::menu_toolbar,        4, 1, "&Snapshot",                kTicked, "Ctrl+F4", kNothing,              &frmMain::menu_toolbar_Click},
    {Menu::menu_toolbar,        5, 1, "&Animation",               kTicked, "Ctrl+F5", kNothing,              &frmMain::menu_toolbar_Click},
    {Menu::menu_toolbar,        6, 1, "&Co-ordinates",            kTicked, "Ctrl+F6", kNothing,              &frmMain::menu_toolbar_Click},

    {Menu::tbrMain,             2, 0, "",                         kTool,   nullptr,   kSnapshotActive,       &frmMain::tbrMain_ButtonClick,       {2, "DRAW",      "Draw",                       kHelpDraw}},
    {Menu::tbrMain,             3, 0, "",                         kTool,   nullptr,   kSnapshotActive,       &frmMain::tbrMain_ButtonClick,       {2, "MAGNIFY",   "Zoom",                       kHelpMagnify}},
    {Menu::tbrMain,             4, 0, "",                         kTool,   nullptr,   kSnapshotActive,       &frmMain::tbrMain_ButtonClick,       {2, "NET",       "Select",                     kHelpNet}},
    {Menu::tbrMain,             5, 0, "",                         kTool,   nullptr,   kSnapshotActive,       &frmMain::tbrMain_ButtonClick,       {2, "PAN",       "Pan",                        kHelpPan}},

    {Menu::menu_snapshot_top,   0, 0, "&Snapshot",                kMenu,   nullptr,   kNothing,              nullptr},
    {Menu::menu_mode,           0, 1, "",                         kEachMode, nullptr, kSnapshotActive,       &frmMain::menu_mode_Click},
    {Menu::menu_bar6,           0, 1, nullptr,                    kPlain,  nullptr,   kNothing,              nullptr},
    {Menu::menu_snapshot,       0, 1, "Set attri&butes",          kPlain,  nullptr,   kSnapshotActive,       &frmMain::menu_snapshot_Click},
    {Menu::menu_snapshot,       1, 1, "&Animate...",              kPlain,  nullptr,   kSnapshotActive,       &frmMain::menu_snapshot_Click,       {3, "TOANIM",    "Create animation",           kHelpToAnimation}},
    {Menu::menu_snapshot,       2, 1, "&Flip upside down",        kTick,   nullptr,   kSnapshotActive,       &frmMain::menu_snapshot_Click},
    {Menu::menu_snapshot,       3, 1, "&Position at top left",    kPlain,  nullptr,   kSnapshotActive,       &frmMain::menu_snapshot_Click,       {3, "TOPLEFT",   "Position image at top left", kHelpTopLeft}},

    {Menu::menu_animation_top,  0, 0, "&Animation",               kMenu,   nullptr,   kNothing,              nullptr},
    {Menu::menu_animation,      1, 1, "&New animation",           kPlain,  "Ctrl+Q",  kNothing,              &frmMain::menu_animation_Click,      {4, "ANIM_NEW",  "New animation",              kHelpNewAnimation}},
    {Menu::menu_animation,      2, 1, "&Open",                    kPlain,  "Ctrl+W",  kNothing,              &frmMain::menu_animation_Click,      {4, "ANIM_OPEN", "Open animation",             kHelpOpenAnimation}},
    {Menu::menu_animation,      3, 1, "&Save",                    kPlain,  "Ctrl+E",  kAnimationActive,      &frmMain::menu_animation_Click,      {4, "ANIM_SAVE", "Save animation",             kHelpSaveAnimation}},
    {Menu::menu_animation,      4, 1, "Save &as",                 kPlain,  "Ctrl+R",  kAnimationActive,      &frmMain::menu_animation_Click},
    {Menu::menu_bar4,           0, 1, nullptr,                    kPlain,  nullptr,   kNothing,              nullptr},
    {Menu::menu_animationtogif, 0, 1, "&Export to animated GIF",  kPlain,  "Ctrl+G",  kAnimationActive,      &frmMain::menu_animationtogif_Click},

    {Menu::menu_window,         0, 0, "&Window",                  kMenu,   nullptr,   kNothing,              nullptr},
    {Menu::menu_closeall,       0, 1, "&Close all",               kPlain,  "Ctrl+K",  kNothing,              &frmMain::menu_closeall_Click},

    {Menu::menu_help,           0, 0, "&Help",                    kMenu,   nullptr,   kNothing,              nullptr},
    {Menu::menu_about,          0, 1, "&About",                   kPlain,  "F12",     kNothing,              &frmMain::menu_about_Click},
    {Menu::menu_fizzlet,        0, 1, "&Mr Fizzlet's assistance", kTick,   "F1",      kNothing,              &frmMain::menu_fizzlet_Click},
};
// clang-format on

const std::vector<frmMain::Command>& frmMain::Commands() {
    static const std::vector<Command> commands = [] {
        std::vector<Command> all;
        for (const Command& row : kRows) {
            if (row.state != kEachMode) {
                all.push_back(row);
                continue;
            }
            for (int mode = 0; const lmk::ModeRow& each : lmk::kModes) {
                all.push_back(row);
                all.back().Index = mode++;
                all.back().Caption = each.MenuCaption;
            }
        }
        return all;
    }();
    return commands;
}

void frmMain::CreateCommands() {
    QWidget* parents[] = {menuBar(), nullptr, nullptr}; // by depth
    auto* tools = new QActionGroup(this);
    for (const Command& row : Commands()) {
        auto* action = new QAction(Latin(row.Caption), this);
        if (row.state == kMenu) {
            auto* menu = new CommandMenu(parents[row.depth]);
            action->setMenu(menu);
            parents[row.depth + 1] = menu;
        }
        action->setSeparator(row.Caption == nullptr);
        action->setMenuRole(QAction::NoRole);
        action->setVisible(row.state != kHidden);
        action->setCheckable(row.state >= kTick);
        action->setChecked(row.state == kTicked);
        action->setShortcut(QKeySequence(Latin(row.Shortcut), QKeySequence::PortableText));
        if (row.Click != nullptr) {
            connect(action, &QAction::triggered, this, [this, &row] { (this->*row.Click)(row.Index); });
        }
        if (row.state == kTool) {
            tools->addAction(action);
        } else {
            parents[row.depth]->addAction(action);
        }
        if (row.button.Key != nullptr) {
            PutOnToolbar(row, *action);
        }
        actions_.push_back(action);
    }
    tools->actions().front()->setChecked(true);
    connect(Entry(Menu::menu_window)->menu(), &QMenu::aboutToShow, this, &frmMain::FillWindowList);
}

void frmMain::PutOnToolbar(const Command& row, QAction& action) {
    action.setIcon(LoadIcon(QStringLiteral("toolbar/%1.svg").arg(Latin(row.button.Key).toLower()),
                            Toolbar::kPictureSize));
    action.setIconVisibleInMenu(false);
    action.setToolTip(Latin(row.button.ToolTipText));
    action.setData(row.button.help);
    tbrMain->AddButton(row.button.group, &action);
}

QAction* frmMain::Entry(Menu name, int Index) const {
    const auto row = std::ranges::find_if(
        Commands(), [=](const Command& one) { return one.name == name && one.Index == Index; });
    return actions_.value(row - Commands().begin());
}

void frmMain::ShowEnabled() {
    for (qsizetype i = 0; i < actions_.size(); ++i) {
        actions_[i]->setEnabled(met_[Commands()[static_cast<std::size_t>(i)].needs]);
    }
}

void frmMain::EnableFunction(std::int16_t iGroup, bool bEnable) {
    if (iGroup >= kGroupCut && iGroup <= kGroupExportSelection) {
        met_[iGroup] = bEnable;
        ShowEnabled();
    }
}

void frmMain::UpdateToolbars(const QString& sKind, bool bEnable) {
    if (sKind == QLatin1String("SNAPSHOT")) {
        met_[kSnapshotActive] = bEnable;
    } else if (sKind == QLatin1String("ANIMATION")) {
        met_[kAnimationActive] = bEnable;
    }
    met_[kAnyChild] = iSnapshotCount + iAnimationCount != 0;
    met_[kGroupPaste] = met_[kAnyChild] && frmClip::Instance().IsEmpty() == 0;
    ShowEnabled();
    if (!met_[kAnyChild]) {
        EnableNetCommands(false);
        ShowNoDocument();
    }
}

void frmMain::ShowModeTick(std::int16_t iMode) {
    for (int mode = 0; mode < static_cast<int>(lmk::kModes.size()); ++mode) {
        Entry(Menu::menu_mode, mode)->setChecked(mode == iMode);
    }
}

void frmMain::ShowSettingsTicks() {
    for (int i = 1; i <= 6; ++i) {
        Entry(Menu::menu_toolbar, i)
            ->setChecked(Settings.bToolbarVisible[static_cast<std::size_t>(i - 1)] != 0);
    }
    Entry(Menu::menu_fizzlet)->setChecked(Settings.bAssistantOn != 0);
}

void frmMain::ShowFlipTick(bool bOn) {
    Entry(Menu::menu_snapshot, 2)->setChecked(bOn);
}

void frmMain::ShowRecentFiles() {
    bool bAny = false;
    int slot = 0;
    for (const QString& sFile : RecentFiles()) {
        ++slot;
        QAction* entry = Entry(Menu::menu_recent, slot);
        const bool bUsed = !sFile.isEmpty();
        if (bUsed) {
            entry->setText(QStringLiteral("&%1. ").arg(slot) + Displayed(sFile));
            entry->setToolTip(WholeTip(sFile)); // the menu may not have room for all of it
        }
        entry->setVisible(bUsed);
        bAny = bAny || bUsed;
    }
    Entry(Menu::menu_bar1)->setVisible(bAny);
}

void frmMain::PopupSnapshotMenu(const QPoint& screenPlace) {
    Entry(Menu::menu_snapshot_top)->menu()->exec(screenPlace);
}

QStringList frmMain::WindowNames() const {
    QStringList captions, whole, names;
    for (const QPointer<QMdiSubWindow>& frame : OpenFrames()) {
        captions << CaptionOf(FormIn(*frame));
        whole << captions.back() + FolderOf(*FormIn(*frame));
    }
    for (qsizetype i = 0; i < captions.size(); ++i) {
        const bool bOneFolder = captions.count(captions[i]) == whole.count(whole[i]);
        names << (bOneFolder ? captions[i] : whole[i]);
    }
    for (qsizetype i = 0; i < names.size(); ++i) {
        if (whole.count(whole[i]) > 1) {
            names[i] += QStringLiteral(":%1").arg(whole.first(i + 1).count(whole[i]));
        }
    }
    return names;
}

void frmMain::FillWindowList() {
    QMenu* menu = Entry(Menu::menu_window)->menu();
    for (QAction* entry : windowList_) {
        delete entry;
    }
    windowList_.clear();
    int number = 0;
    const QStringList names = WindowNames();
    for (const QPointer<QMdiSubWindow>& frame : OpenFrames()) {
        if (++number == 1) {
            windowList_.push_back(menu->addSeparator());
        }
        // Access keys reach as far as the digits do.
        const QString caption =
            QStringLiteral("%1%2 ").arg(QLatin1String(number < 10 ? "&" : "")).arg(number);
        QAction* entry = menu->addAction(caption + Displayed(names[number - 1]));
        entry->setCheckable(true);
        entry->setChecked(ActiveForm() == FormIn(*frame));
        connect(entry, &QAction::triggered, this, [this, frame] {
            if (frame) {
                if (frame->isMinimized()) {
                    frame->showNormal();
                }
                mdiClient->setActiveSubWindow(frame);
            }
        });
        windowList_.push_back(entry);
    }
}

} // namespace lumrake
