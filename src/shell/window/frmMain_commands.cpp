// The commands of the menus and the toolbar, handed to the active child. Which of them can be given at a time
// is the matter of UpdateToolbars and EnableFunction; here only the kind of the child is looked at.

#include "about/frmAbout.h"
#include "animation/frmAnimation.h"
#include "preferences/frmPrefs.h"
#include "shell/window/animation_commands.h"
#include "shell/window/file_commands.h"
#include "shell/window/frmMain.h"
#include "shell/window/save_commands.h"
#include "snapshot/frmColours.h"
#include "snapshot/frmSnapshot.h"

#include <QAction>
#include <QMdiSubWindow>

namespace lumrake {

// ---- File

void frmMain::menu_open_Click(int) {
    OpenSnapshotFile(QString());
}

void frmMain::menu_recent_Click(int Index) {
    OpenRecentFile(static_cast<std::size_t>(Index - 1));
}

void frmMain::menu_save_Click(int) {
    if (frmSnapshot* snapshot = ActiveSnapshot()) {
        Save(*snapshot);
    }
}

void frmMain::menu_saveas_Click(int) {
    if (frmSnapshot* snapshot = ActiveSnapshot()) {
        SaveAs(*snapshot);
    }
}

void frmMain::menu_exportview_Click(int Index) {
    frmSnapshot* snapshot = ActiveSnapshot();
    if (snapshot == nullptr) {
        return;
    }
    if (Index == 1) {
        snapshot->ExportViewToBMP();
    } else {
        snapshot->ExportViewToRaw();
    }
}

void frmMain::menu_exportselect_Click(int) {
    if (frmSnapshot* snapshot = ActiveSnapshot()) {
        snapshot->ExportSelectionToBMP();
    }
}

void frmMain::menu_prefs_Click(int) {
    ShowPreferences();
    // After Cancel as well: every child is drawn again, through the palette as it now is.
    for (const QPointer<QMdiSubWindow>& frame : OpenFrames()) {
        FormIn(*frame)->ReShow();
    }
}

void frmMain::menu_exit_Click(int) {
    close();
}

// ---- Edit

void frmMain::menu_edit_Click(int Index) {
    frmSnapshot* snapshot = ActiveSnapshot();
    if (snapshot == nullptr) {
        return;
    }
    switch (Index) {
    case 1: snapshot->Copy(true); break;
    case 2: snapshot->Copy(false); break;
    case 3: snapshot->Paste(); break;
    case 4: snapshot->Delete(); break;
    default: break;
    }
}

// ---- View

void frmMain::menu_zoom_Click(int Index) {
    if (DocumentForm* active = ActiveForm()) {
        active->SetZoom(static_cast<std::int16_t>(Index));
    }
}

// ---- Snapshot

void frmMain::menu_mode_Click(int Index) {
    const auto iMode = static_cast<std::int16_t>(Index);
    ShowModeTick(iMode);
    if (frmSnapshot* snapshot = ActiveSnapshot()) {
        snapshot->SetMode(iMode, true);
    }
}

void frmMain::menu_snapshot_Click(int Index) {
    frmSnapshot* snapshot = ActiveSnapshot();
    if (snapshot == nullptr) {
        return;
    }
    switch (Index) {
    case 0: {
        const std::int16_t iAttribute = frmColours(this).GetColour(snapshot->GetAttribute());
        if (iAttribute > -1) {
            snapshot->SetAttribute(iAttribute, true);
        }
        break;
    }
    case 1: AnimateSnapshot(*snapshot); break;
    // The entry has flipped its tick itself.
    case 2: snapshot->SetFlip(Entry(Menu::menu_snapshot, 2)->isChecked() ? -1 : 0); break;
    case 3: snapshot->SetPosition(0, 0); break;
    default: break;
    }
}

// ---- Animation

void frmMain::menu_animation_Click(int Index) {
    if (Index == 1) {
        NewAnimation();
    } else if (Index == 2) {
        OpenAnimationDialog();
    } else if (auto* animation = dynamic_cast<frmAnimation*>(ActiveForm())) {
        if (Index == 3) {
            Save(*animation);
        } else {
            SaveAs(*animation);
        }
    }
}

void frmMain::menu_animationtogif_Click(int) {
    ShowNotAvailable();
}

// ---- Help

void frmMain::menu_about_Click(int) {
    ShowAbout();
}

} // namespace lumrake
