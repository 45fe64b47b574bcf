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
    /// Alt and a letter, then letters in the menu that is open; v stands for the key Down and a line feed for Enter.
    static void KeyMenu(const char* letters) {
        for (; *letters != '\0'; ++letters) {
            QWidget* menu = QApplication::activePopupWidget();
            const auto key = *letters == 'v'    ? Qt::Key_Down
                             : *letters == '\n' ? Qt::Key_Return
                                                : Qt::Key(*letters);
            menu == nullptr ? QTest::keyClick(MainWindow(), key, Qt::AltModifier)
                            : QTest::keyClick(menu, key);
        }
    }
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
    /// Up to four, as "Tab, Shift+Tab".
    static void PressKeys(const char* keys) {
        const QKeySequence sequence(Latin(keys));
        for (int i = 0; i < sequence.count(); ++i) {
            const QKeyCombination key = sequence[static_cast<uint>(i)];
            QTest::keyClick(KeysGoTo(), key.key(), key.keyboardModifiers());
        }
    }
    static QWidget* KeysGoTo() {
        QWidget* focus = QApplication::focusWidget();
        return focus == nullptr ? MainWindow() : focus;
    }
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
