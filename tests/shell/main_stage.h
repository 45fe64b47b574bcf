#pragma once

#include "platform/clock.h"
#include "platform/toolbar.h"
#include "shell/frmMain.h"
#include "shell/startup.h"
#include "support/forms_support.h"

#include <QAction>
#include <QLabel>
#include <QMdiSubWindow>
#include <QMenu>

namespace lumrake {

struct MainProbe {
    static Toolbar& Bar(frmMain& main) { return *main.tbrMain; }
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
    static Toolbar& Bar() { return MainProbe::Bar(*MainWindow()); }

    QString Snapshot(const QString& name) const { return MakeFile(name, NoiseBytes(6912)); }

    int ended = 0; ///< how often the process would have ended
};

} // namespace testing
} // namespace lumrake
