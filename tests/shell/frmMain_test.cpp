#include "shell/main_stage.h"

#include <QFileInfo>

#include <set>

namespace lumrake::testing {
namespace {

const QString kSnapshotKind = QStringLiteral("SNAPSHOT");
const QString kAnimationKind = QStringLiteral("ANIMATION");

const std::set<int> kAlways = {2, 18, 19};

std::set<int> EnabledButtons() {
    std::set<int> enabled;
    for (int button = 1; button <= 20; ++button) {
        if (MainStage::Bar().IsButtonEnabled(button)) {
            enabled.insert(button);
        }
    }
    return enabled;
}

TEST(MainWindow, ButtonsFollowTheKindOfTheActiveChild) {
    MainStage stage;
    frmMain& main = stage.Start();
    EXPECT_EQ(EnabledButtons(), kAlways);
    iSnapshotCount = 1;
    main.UpdateToolbars(kSnapshotKind, true);
    main.UpdateToolbars(kAnimationKind, false);
    EXPECT_EQ(EnabledButtons(), (std::set{2, 3, 4, 10, 11, 12, 13, 15, 16, 18, 19}));
    main.UpdateToolbars(kAnimationKind, true);
    main.UpdateToolbars(kSnapshotKind, false);
    EXPECT_EQ(EnabledButtons(), (std::set{2, 18, 19, 20}));
    main.EnableFunction(kGroupCut, true);
    iSnapshotCount = 0;
    main.UpdateToolbars(kAnimationKind, false);
    EXPECT_EQ(EnabledButtons(), kAlways);
}

TEST(MainWindow, EachGroupSwitchesItsButtonAndEntry) {
    MainStage stage;
    frmMain& main = stage.Start();
    for (std::int16_t group = -1; group <= 7; ++group) {
        main.EnableFunction(group, true);
        for (int Index = 1; Index <= 4; ++Index) {
            EXPECT_EQ(stage.IsOn(Menu::menu_edit, Index), Index == group) << group;
        }
        EXPECT_EQ(stage.IsOn(Menu::menu_exportselect), group == 5) << group;
        std::set<int> buttons = kAlways;
        if (group >= 1 && group <= 3) {
            buttons.insert(group + 5);
        }
        EXPECT_EQ(EnabledButtons(), buttons) << group;
        main.EnableFunction(group, false);
    }
}

TEST(MainWindow, TheCoordinatesPanelNeverCoversAButton) {
    MainStage stage;
    frmMain& main = stage.Start();
    for (const int width : {1, 621, 1400}) {
        main.resize(width, 400);
        EXPECT_GE(MainProbe::Coords(main).x(), stage.Bar().FullWidth()) << width;
        EXPECT_EQ(MainProbe::Coords(main).x(), main.frameGeometry().width() - 181);
    }
}

TEST(MainWindow, ToolsEndTheSelectionButTheNetDoesNot) {
    MainStage stage;
    frmMain& main = stage.Start();
    const std::pair<int, std::int16_t> tools[] = {
        {11, kToolMagnify}, {12, kToolNet}, {13, kToolPan}, {10, kToolDraw}};
    main.UpdateToolbars(kSnapshotKind, true);
    for (const auto& [button, tool] : tools) {
        for (std::int16_t group = 1; group <= 5; ++group) {
            main.EnableFunction(group, true);
        }
        stage.Bar().ButtonClick(button);
        EXPECT_EQ(iCurrentTool, tool);
        for (const int Index : {1, 2, 4}) {
            EXPECT_EQ(stage.IsOn(Menu::menu_edit, Index), tool == kToolNet) << button;
        }
        EXPECT_EQ(stage.IsOn(Menu::menu_exportselect), tool == kToolNet) << button;
        EXPECT_TRUE(stage.IsOn(Menu::menu_edit, 3));
    }
}

TEST(MainWindow, ExitStopsAtTheFirstChildThatStays) {
    MainStage stage;
    frmMain& main = stage.Start();
    for (const char* title : {"a", "b", "c"}) {
        new AskingChild(QLatin1String(title));
    }
    stage.answers = {BoxAnswer::No, BoxAnswer::Cancel};
    stage.Click(Menu::menu_exit);
    EXPECT_EQ(stage.boxes, (std::vector<QString>{QStringLiteral("child|a"), QStringLiteral("child|b")}));
    EXPECT_TRUE(main.isVisible());
    EXPECT_EQ(iSnapshotCount, 2);
    EXPECT_EQ(stage.ended, 0);
    EXPECT_FALSE(QFileInfo::exists(SettingsFile()));

    stage.answers = {BoxAnswer::Yes, BoxAnswer::No};
    main.close();
    EXPECT_EQ(iSnapshotCount, 0);
    EXPECT_EQ(stage.ended, 1);
    EXPECT_EQ(QFileInfo(SettingsFile()).size(), 526);
}

TEST(MainWindow, CloseAllAsksTheActiveChildAgainAsLongAsItStays) {
    MainStage stage;
    stage.Start();
    for (const char* title : {"a", "b", "c"}) {
        new AskingChild(QLatin1String(title));
    }
    stage.answers = {BoxAnswer::Yes, BoxAnswer::Cancel, BoxAnswer::Cancel, BoxAnswer::No};
    stage.Click(Menu::menu_closeall);
    const QString c = QStringLiteral("child|c");
    EXPECT_EQ(stage.boxes, (std::vector<QString>{QStringLiteral("Close all|Are you sure?"), c, c, c}));
    EXPECT_EQ(iSnapshotCount, 2);

    stage.answers = {BoxAnswer::No, BoxAnswer::Yes, BoxAnswer::No, BoxAnswer::No};
    stage.Click(Menu::menu_closeall);
    EXPECT_EQ(iSnapshotCount, 2);
    stage.Click(Menu::menu_closeall);
    EXPECT_EQ(iSnapshotCount, 0);
}

TEST(MainWindow, TheWindowListShowsAndChoosesTheActiveChild) {
    MainStage stage;
    frmMain& main = stage.Start();
    auto* first = new AskingChild(QStringLiteral("cut & run.sna"));
    new AskingChild(QStringLiteral("b"));
    QMenu* menu = main.Entry(Menu::menu_window)->menu();
    emit menu->aboutToShow();
    QList<QAction*> entries = menu->actions();
    ASSERT_EQ(entries.size(), 4); // Close all, a line, the two
    EXPECT_EQ(entries[2]->text(), QStringLiteral("&1 cut && run.sna"));
    EXPECT_FALSE(entries[2]->isChecked());
    EXPECT_TRUE(entries[3]->isChecked());
    entries[2]->trigger();
    EXPECT_EQ(main.ActiveForm(), first);

    stage.answers = {BoxAnswer::No, BoxAnswer::No};
    ChildFrame(first)->close();
    ChildFrame(main.ActiveForm())->close();
    emit menu->aboutToShow();
    EXPECT_EQ(menu->actions().size(), 1);
    EXPECT_EQ(main.ActiveForm(), nullptr);
}

} // namespace
} // namespace lumrake::testing
