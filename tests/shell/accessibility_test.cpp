// What a screen reader finds: every control that can have the focus says what it is called.

#include "about/frmAbout.h"
#include "animation/frmAnimSetup.h"
#include "main_stage.h"
#include "preferences/frmPrefs.h"
#include "shell/file_commands.h"
#include "snapshot/frmColours.h"

#include <QAccessible>
#include <QApplication>
#include <QTimer>
#include <QToolButton>

namespace lumrake::testing {
namespace {

/// The nameless controls below `node`, and how many with a name there are.
struct Found {
    QStringList nameless;
    int named = 0;
};

void Walk(QAccessibleInterface* node, Found& found) {
    if (node == nullptr || !node->isValid() || node->state().invisible) {
        return;
    }
    if (node->state().focusable) {
        const bool named = !node->text(QAccessible::Name).trimmed().isEmpty();
        if (named && node->role() != QAccessible::NoRole) {
            ++found.named;
        } else {
            const QObject* object = node->object();
            found.nameless << QStringLiteral("%1 %2 role %3")
                                  .arg(QLatin1String(object ? object->metaObject()->className() : "part"))
                                  .arg(object ? object->objectName() : QString())
                                  .arg(node->role());
        }
    }
    for (int i = 0; i < node->childCount(); ++i) {
        Walk(node->child(i), found);
    }
}

void ExpectNames(QWidget* window, int atLeast) {
    Found found;
    Walk(QAccessible::queryAccessibleInterface(window), found);
    EXPECT_TRUE(found.nameless.isEmpty()) << window->windowTitle().toStdString() << ": "
                                          << found.nameless.join(QLatin1String(", ")).toStdString();
    EXPECT_GE(found.named, atLeast) << window->windowTitle().toStdString();
}

/// Opens a modal dialog by `open`, brings each of its `pages` to the front with Ctrl+Tab and looks at it.
void ExpectNamesInDialog(const std::function<void()>& open, int pages, int atLeast) {
    bool seen = false;
    QTimer poll;
    QObject::connect(&poll, &QTimer::timeout, [&] {
        auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
        if (dialog == nullptr || seen) {
            return;
        }
        seen = true;
        for (int page = 0; page < pages; ++page) {
            ExpectNames(dialog, atLeast);
            QTest::keyClick(dialog->focusWidget() ? dialog->focusWidget() : dialog, Qt::Key_Tab,
                            Qt::ControlModifier);
        }
        dialog->reject();
    });
    poll.start(5);
    open();
    EXPECT_TRUE(seen);
}

TEST(Accessibility, EveryControlHasAName) {
    MainStage stage;
    frmMain& main = stage.Start();
    OpenSnapshotFile(stage.Snapshot(QStringLiteral("a.sna")));
    ExpectNames(&main, 12); // four boxes with their buttons, options, picture, scroll bar, thumb, colours

    AnimationRecord record;
    record.sSnapFile.Set(stage.Path(QStringLiteral("a.sna")).toStdString());
    const auto bytes = EncodeAnimation(record);
    stage.files = {stage.MakeFile(QStringLiteral("a.anm"), bytes)};
    MainStage::Click(Menu::menu_animation, 2);
    ExpectNames(&main, 17);

    ExpectNamesInDialog([] { MainStage::Click(Menu::menu_prefs); }, 4, 6);
    ExpectNamesInDialog([] { MainStage::Click(Menu::menu_about); }, 1, 2);
    ExpectNamesInDialog([] { MainStage::Click(Menu::menu_animation, 1); }, 2, 3);
    OpenSnapshotFile(stage.Path(QStringLiteral("a.sna")));
    ExpectNamesInDialog([] { MainStage::Click(Menu::menu_snapshot, 0); }, 1, 3);
}

TEST(Accessibility, ToolsCanBeChosenByKeyboard) {
    MainStage stage;
    frmMain& main = stage.Start();
    OpenSnapshotFile(stage.Snapshot(QStringLiteral("a.sna")));
    const QPointer<QWidget> before = QApplication::focusWidget();
    const auto press = [&](Qt::Key key) { QTest::keyClick(QApplication::focusWidget(), key); };
    const auto name = [] { return QApplication::focusWidget()->accessibleName(); };

    QTest::keyClick(&main, Qt::Key_F6);
    EXPECT_EQ(name(), QStringLiteral("Draw")); // the pressed one
    press(Qt::Key_Right);
    press(Qt::Key_Right);
    press(Qt::Key_Space);
    EXPECT_EQ(iCurrentTool, kToolNet);
    press(Qt::Key_Left);
    press(Qt::Key_Left);
    press(Qt::Key_Left); // past Cut, Copy and Paste, which can't be clicked now
    EXPECT_EQ(name(), QStringLiteral("Export to DAT file"));
    press(Qt::Key_Escape);
    EXPECT_EQ(QApplication::focusWidget(), before);
}

} // namespace
} // namespace lumrake::testing
