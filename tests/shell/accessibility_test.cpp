// What a screen reader finds: every control that can have the focus says what it is called.

#include "about/frmAbout.h"
#include "animation/frmAnimSetup.h"
#include "preferences/frmPrefs.h"
#include "shell/file_commands.h"
#include "shell/main_stage.h"
#include "support/when_open.h"

#include <QAccessible>

namespace lumrake::testing {
namespace {

/// Counts the controls below `node` that have a name; one without fails the test.
int Named(QAccessibleInterface* node) {
    if (node == nullptr || !node->isValid() || node->state().invisible) {
        return 0;
    }
    int named = node->state().focusable ? 1 : 0;
    EXPECT_TRUE(named == 0 ||
                (node->role() != QAccessible::NoRole && !node->text(QAccessible::Name).trimmed().isEmpty()))
        << (node->object() ? node->object()->objectName().toStdString() : "a part");
    for (int i = 0; i < node->childCount(); ++i) {
        named += Named(node->child(i));
    }
    return named;
}

void ExpectNames(QWidget* window, int atLeast) {
    EXPECT_GE(Named(QAccessible::queryAccessibleInterface(window)), atLeast)
        << window->windowTitle().toStdString();
}

/// Opens a modal dialog by `open`, brings each of its `pages` to the front with Ctrl+Tab and looks at it.
void ExpectNamesInDialog(const std::function<void()>& open, int pages, int atLeast) {
    const WhenOpen<QDialog> driver([=](QDialog& dialog) {
        for (int page = 0; page < pages; ++page) {
            ExpectNames(&dialog, atLeast);
            QTest::keyClick(dialog.focusWidget() ? dialog.focusWidget() : &dialog, Qt::Key_Tab,
                            Qt::ControlModifier);
        }
        dialog.reject();
    });
    open();
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

} // namespace
} // namespace lumrake::testing
