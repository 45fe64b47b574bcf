// What a screen reader finds: every control that can have the focus, or has a name, says what it is.

#include "about/frmAbout.h"
#include "animation/frmAnimSetup.h"
#include "preferences/frmPrefs.h"
#include "shell/file_commands.h"
#include "shell/main_stage.h"
#include "support/when_open.h"

#include <QAccessible>

namespace lumrake::testing {
namespace {

/// Lists the controls below `node` that lack a name or a role of their own, and counts the others.
void Walk(QAccessibleInterface* node, QStringList& nameless, int& named) {
    if (node == nullptr || !node->isValid() || node->state().invisible) {
        return;
    }
    const auto* widget = qobject_cast<QWidget*>(node->object());
    if (node->state().focusable || (widget != nullptr && !widget->accessibleName().isEmpty())) {
        if (node->role() != QAccessible::NoRole && node->role() != QAccessible::Client &&
            !node->text(QAccessible::Name).trimmed().isEmpty()) {
            ++named;
        } else {
            nameless << (node->object() ? node->object()->objectName() : QStringLiteral("a part"));
        }
    }
    for (int i = 0; i < node->childCount(); ++i) {
        Walk(node->child(i), nameless, named);
    }
}

void ExpectNames(QWidget* window, int atLeast) {
    QStringList nameless;
    int named = 0;
    Walk(QAccessible::queryAccessibleInterface(window), nameless, named);
    EXPECT_TRUE(nameless.isEmpty()) << nameless.join(QLatin1String(", ")).toStdString();
    EXPECT_GE(named, atLeast) << window->windowTitle().toStdString();
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

TEST(Accessibility, EveryControlHasANameAndARole) {
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
