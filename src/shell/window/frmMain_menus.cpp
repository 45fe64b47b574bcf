// The menu tree and what it shows: ticks, the recent list, the list of windows.

#include "disk/texts.h"
#include "shell/window/file_commands.h"
#include "shell/window/frmMain.h"

#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenu>
#include <QMenuBar>

#include <iterator>

namespace lumrake {

namespace {

enum State : std::uint8_t {
    kOn = 0,
    kOff = 1,    ///< disabled
    kHidden = 2, ///< not visible
    kTick = 4,   ///< can be ticked
    kTicked = 12 ///< can be ticked and is
};

/// A "&" of a path or title would be taken for an access key.
QString Displayed(QString text) {
    return text.replace(QLatin1Char('&'), QLatin1String("&&"));
}

} // namespace

struct frmMain::MenuRow {
    Menu name;
    int Index;
    int depth; ///< 0 in the bar, 1 in its menu, 2 in a submenu; a row is a menu when the next one is deeper
    const char* Caption; ///< null for a separator
    std::uint8_t state;
    const char* Key; ///< shortcut, or null
    void (frmMain::*Click)(int Index);
};

// clang-format off
const frmMain::MenuRow frmMain::kMenuRows[] = {
    {Menu::menu_file,           0, 0, "&File",                    kOn,     nullptr,   nullptr},
    {Menu::menu_open,           0, 1, "&Open snapshot",           kOn,     "Ctrl+O",  &frmMain::menu_open_Click},
    {Menu::menu_save,           0, 1, "&Save",                    kOff,    "Ctrl+S",  &frmMain::menu_save_Click},
    {Menu::menu_saveas,         0, 1, "Save &As",                 kOff,    "Ctrl+A",  &frmMain::menu_saveas_Click},
    {Menu::menu_exportviews,    0, 1, "&Export view",             kOn,     nullptr,   nullptr},
    {Menu::menu_exportview,     1, 2, "&Windows Bitmap",          kOn,     nullptr,   &frmMain::menu_exportview_Click},
    {Menu::menu_exportview,     2, 2, "&Raw data",                kOn,     nullptr,   &frmMain::menu_exportview_Click},
    {Menu::menu_exportselect,   0, 1, "Expo&rt selection to BMP", kOn,     nullptr,   &frmMain::menu_exportselect_Click},
    {Menu::menu_bar5,           0, 1, nullptr,                    kOn,     nullptr,   nullptr},
    {Menu::menu_prefs,          0, 1, "&Preferences",             kOn,     nullptr,   &frmMain::menu_prefs_Click},
    {Menu::menu_bar1,           0, 1, nullptr,                    kHidden, nullptr,   nullptr},
    {Menu::menu_recent,         1, 1, "&1 ...",                   kHidden, nullptr,   &frmMain::menu_recent_Click},
    {Menu::menu_recent,         2, 1, "&2 ...",                   kHidden, nullptr,   &frmMain::menu_recent_Click},
    {Menu::menu_recent,         3, 1, "&3 ...",                   kHidden, nullptr,   &frmMain::menu_recent_Click},
    {Menu::menu_recent,         4, 1, "&4 ...",                   kHidden, nullptr,   &frmMain::menu_recent_Click},
    {Menu::menu_bar2,           0, 1, nullptr,                    kOn,     nullptr,   nullptr},
    {Menu::menu_exit,           0, 1, "E&xit",                    kOn,     nullptr,   &frmMain::menu_exit_Click},

    {Menu::menu_edit_top,       0, 0, "&Edit",                    kOn,     nullptr,   nullptr},
    {Menu::menu_edit,           1, 1, "Cu&t",                     kOff,    "Ctrl+X",  &frmMain::menu_edit_Click},
    {Menu::menu_edit,           2, 1, "&Copy",                    kOff,    "Ctrl+C",  &frmMain::menu_edit_Click},
    {Menu::menu_edit,           3, 1, "&Paste",                   kOff,    "Ctrl+V",  &frmMain::menu_edit_Click},
    {Menu::menu_edit,           4, 1, "&Delete",                  kOff,    "Del",     &frmMain::menu_edit_Click},

    {Menu::menu_view,           0, 0, "&View",                    kOn,     nullptr,   nullptr},
    {Menu::menu_zoomopt,        0, 1, "&Zoom",                    kOn,     nullptr,   nullptr},
    {Menu::menu_zoom,           1, 2, "1:1",                      kOn,     nullptr,   &frmMain::menu_zoom_Click},
    {Menu::menu_zoom,           2, 2, "2:1",                      kOn,     nullptr,   &frmMain::menu_zoom_Click},
    {Menu::menu_zoom,           3, 2, "4:1",                      kOn,     nullptr,   &frmMain::menu_zoom_Click},
    {Menu::menu_zoom,           4, 2, "8:1",                      kOn,     nullptr,   &frmMain::menu_zoom_Click},
    {Menu::menu_zoom,           5, 2, "16:1",                     kOn,     nullptr,   &frmMain::menu_zoom_Click},
    {Menu::menu_bar3,           0, 1, nullptr,                    kOn,     nullptr,   nullptr},
    {Menu::menu_toolbar,        1, 1, "&File",                    kTicked, "Ctrl+F1", &frmMain::menu_toolbar_Click},
    {Menu::menu_toolbar,        2, 1, "&Editing",                 kTicked, "Ctrl+F2", &frmMain::menu_toolbar_Click},
    {Menu::menu_toolbar,        3, 1, "&Drawing",                 kTicked, "Ctrl+F3", &frmMain::menu_toolbar_Click},
    {Menu::menu_toolbar,        4, 1, "&Snapshot",                kTicked, "Ctrl+F4", &frmMain::menu_toolbar_Click},
    {Menu::menu_toolbar,        5, 1, "&Animation",               kTicked, "Ctrl+F5", &frmMain::menu_toolbar_Click},
    {Menu::menu_toolbar,        6, 1, "&Co-ordinates",            kTicked, "Ctrl+F6", &frmMain::menu_toolbar_Click},

    {Menu::menu_snapshot_top,   0, 0, "&Snapshot",                kOn,     nullptr,   nullptr},
    {Menu::menu_mode,           0, 1, "&Graphics mode",           kTick,   nullptr,   &frmMain::menu_mode_Click},
    {Menu::menu_mode,           1, 1, "&Screen mode",             kTick,   nullptr,   &frmMain::menu_mode_Click},
    {Menu::menu_mode,           2, 1, "&Text mode",               kTick,   nullptr,   &frmMain::menu_mode_Click},
    {Menu::menu_mode,           3, 1, "&Line masks",              kTick,   nullptr,   &frmMain::menu_mode_Click},
    {Menu::menu_mode,           4, 1, "&Byte masks",              kTick,   nullptr,   &frmMain::menu_mode_Click},
    {Menu::menu_bar6,           0, 1, nullptr,                    kOn,     nullptr,   nullptr},
    {Menu::menu_snapshot,       0, 1, "Set attri&butes",          kOn,     nullptr,   &frmMain::menu_snapshot_Click},
    {Menu::menu_snapshot,       1, 1, "&Animate...",              kOn,     nullptr,   &frmMain::menu_snapshot_Click},
    {Menu::menu_snapshot,       2, 1, "&Flip upside down",        kTick,   nullptr,   &frmMain::menu_snapshot_Click},
    {Menu::menu_snapshot,       3, 1, "&Position at top left",    kOn,     nullptr,   &frmMain::menu_snapshot_Click},

    {Menu::menu_animation_top,  0, 0, "&Animation",               kOn,     nullptr,   nullptr},
    {Menu::menu_animation,      1, 1, "&New animation",           kOn,     "Ctrl+Q",  &frmMain::menu_animation_Click},
    {Menu::menu_animation,      2, 1, "&Open",                    kOn,     "Ctrl+W",  &frmMain::menu_animation_Click},
    {Menu::menu_animation,      3, 1, "&Save",                    kOff,    "Ctrl+E",  &frmMain::menu_animation_Click},
    {Menu::menu_animation,      4, 1, "Save &as",                 kOff,    "Ctrl+R",  &frmMain::menu_animation_Click},
    {Menu::menu_bar4,           0, 1, nullptr,                    kOn,     nullptr,   nullptr},
    {Menu::menu_animationtogif, 0, 1, "&Export to animated GIF",  kOff,    "Ctrl+G",  &frmMain::menu_animationtogif_Click},

    {Menu::menu_window,         0, 0, "&Window",                  kOn,     nullptr,   nullptr},
    {Menu::menu_closeall,       0, 1, "&Close all",               kOn,     "Ctrl+K",  &frmMain::menu_closeall_Click},

    {Menu::menu_help,           0, 0, "&Help",                    kOn,     nullptr,   nullptr},
    {Menu::menu_about,          0, 1, "&About",                   kOn,     "F12",     &frmMain::menu_about_Click},
    {Menu::menu_fizzlet,        0, 1, "&Mr Fizzlet's assistance", kTick,   "F1",      &frmMain::menu_fizzlet_Click},
};
// clang-format on

void frmMain::CreateMenus() {
    std::array<QMenu*, 3> parents{};
    for (const MenuRow* row = std::begin(kMenuRows); row != std::end(kMenuRows); ++row) {
        const auto depth = static_cast<std::size_t>(row->depth);
        QMenu* parent = row->depth == 0 ? nullptr : parents[depth - 1];
        const bool isMenu = std::next(row) != std::end(kMenuRows) && std::next(row)->depth > row->depth;
        QAction* entry = nullptr;
        if (isMenu) {
            const QString caption = Latin(row->Caption);
            parents[depth] = parent == nullptr ? menuBar()->addMenu(caption) : parent->addMenu(caption);
            entry = parents[depth]->menuAction();
        } else if (row->Caption == nullptr) {
            entry = parent->addSeparator();
        } else {
            entry = parent->addAction(Latin(row->Caption));
            connect(entry, &QAction::triggered, this,
                    [this, Click = row->Click, Index = row->Index] { (this->*Click)(Index); });
        }
        entry->setMenuRole(QAction::NoRole);
        entry->setEnabled((row->state & kOff) == 0);
        entry->setVisible((row->state & kHidden) == 0);
        entry->setCheckable((row->state & kTick) != 0);
        entry->setChecked((row->state & kTicked) == kTicked);
        if (row->Key != nullptr) {
            entry->setShortcut(QKeySequence(QLatin1String(row->Key), QKeySequence::PortableText));
        }
        entries_[{row->name, row->Index}] = entry;
    }
    Entry(Menu::menu_file)->menu()->setToolTipsVisible(true);
    connect(Entry(Menu::menu_window)->menu(), &QMenu::aboutToShow, this, &frmMain::FillWindowList);
}

void frmMain::ShowModeTick(std::int16_t iMode) {
    for (int i = 0; i <= 4; ++i) {
        Entry(Menu::menu_mode, i)->setChecked(i == iMode);
    }
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

void frmMain::FillWindowList() {
    QMenu* menu = Entry(Menu::menu_window)->menu();
    for (QAction* entry : windowList_) {
        delete entry;
    }
    windowList_.clear();
    int number = 0;
    for (const QPointer<QMdiSubWindow>& frame : OpenFrames()) {
        if (++number == 1) {
            windowList_.push_back(menu->addSeparator());
        }
        // Access keys reach as far as the digits do.
        const QString caption =
            QStringLiteral("%1%2 ").arg(QLatin1String(number < 10 ? "&" : "")).arg(number);
        QAction* entry = menu->addAction(caption + Displayed(CaptionOf(frame->widget())));
        entry->setCheckable(true);
        entry->setChecked(ActiveForm() == frame->widget());
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
