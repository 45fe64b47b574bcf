#pragma once

#include "base/clock.h"
#include "controls/toolbar.h"
#include "disk/texts.h"
#include "shell/window/frmMain.h"
#include "shell/window/shut_down.h"
#include "shell/window/startup.h"
#include "support/forms_support.h"

#include <QAction>
#include <QApplication>
#include <QLabel>
#include <QMdiSubWindow>
#include <QMenu>
#include <QToolButton>

namespace lumrake {

struct MainProbe {
    static QWidget& Coords(frmMain& main) { return *main.picCoords; }
    static QString CoordsText(frmMain& main) { return main.lblCoords[0]->text() + main.lblCoords[1]->text(); }
    static PanelBar& Status(frmMain& main) { return *main.sbrMain; }
};

namespace testing {

/// A whole run of the program in an empty directory, up to the point where the process would end.
class MainStage : public Stage {
  public:
    MainStage() {
        SetShellNotices(nullptr);
        SetProcessEnd([this] { ++ended; });
    }
    ~MainStage() override {
        EndRun();
        SetProcessEnd({});
        SetClock({});
    }

    frmMain& Start(const QString& sCommandLine = QStringLiteral("REHEARS")) {
        Main(sCommandLine);
        WaitForActive(*MainWindow());
        return *MainWindow();
    }
    /// Takes the window away as the end of the process does.
    static void EndRun() { delete MainWindow(); }

    static void Click(Menu name, int Index = 0) { MainWindow()->Entry(name, Index)->trigger(); }
    /// The buttons of the toolbar from left to right, without those of hidden groups.
    static QList<QToolButton*> Buttons() {
        QList<QToolButton*> buttons;
        for (QAction* action : Bar().actions()) {
            buttons.push_back(qobject_cast<QToolButton*>(Bar().widgetForAction(action)));
        }
        buttons.removeAll(nullptr); // gaps
        return buttons;
    }
    static QToolButton* Button(const char* toolTip) {
        const auto buttons = Buttons();
        const auto at = std::ranges::find(buttons, Latin(toolTip), &QWidget::toolTip);
        EXPECT_NE(at, buttons.end()) << toolTip;
        return at == buttons.end() ? buttons[0] : *at;
    }
    /// Keys, as "Alt+F O".
    static void Press(const char* keys) { Use(*MainWindow(), QLatin1String(keys)); }
    /// The open windows as the Window menu lists them; the active one is ticked.
    static QList<QAction*> WindowList() {
        QMenu* menu = MainWindow()->Entry(Menu::menu_window)->menu();
        emit menu->aboutToShow();
        return menu->actions().mid(2); // behind "Close all" and a line
    }
    static Toolbar& Bar() { return static_cast<Toolbar&>(*MainWindow()->findChild<QToolBar*>()); }

    QString Snapshot(const QString& name) const { return MakeFile(name, NoiseBytes(6912)); }

    int ended = 0; ///< how often the process would have ended
};

} // namespace testing
} // namespace lumrake
