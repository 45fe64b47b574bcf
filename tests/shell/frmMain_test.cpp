#include "shell/main_stage.h"

#include <QFileInfo>

#include <set>

namespace lumrake::testing {
namespace {

const QString kSnapshotKind = QStringLiteral("SNAPSHOT");
const QString kAnimationKind = QStringLiteral("ANIMATION");

// clang-format off
/// What can be given: always, with a snapshot, with an animation in front.
struct Command { Menu name; int first, last; bool always, snapshot, animation; };
constexpr Command kCommands[] = {
    {Menu::menu_open,           0, 0, true,  true,  true},
    {Menu::menu_prefs,          0, 0, true,  true,  true},
    {Menu::menu_exit,           0, 0, true,  true,  true},
    {Menu::menu_closeall,       0, 0, true,  true,  true},
    {Menu::menu_animation,      1, 2, true,  true,  true},
    {Menu::menu_zoomopt,        0, 0, false, true,  true},
    {Menu::menu_save,           0, 0, false, true,  false},
    {Menu::menu_saveas,         0, 0, false, true,  false},
    {Menu::menu_exportviews,    0, 0, false, true,  false},
    {Menu::menu_mode,           0, 4, false, true,  false},
    {Menu::menu_snapshot,       0, 3, false, true,  false},
    {Menu::menu_animation,      3, 4, false, false, true},
    {Menu::menu_animationtogif, 0, 0, false, false, true},
    {Menu::menu_edit,           1, 4, false, false, false},
    {Menu::menu_exportselect,   0, 0, false, false, false},
};
// clang-format on
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

void ExpectCommands(bool Command::*state, const std::set<int>& buttons) {
    for (const Command& row : kCommands) {
        for (int Index = row.first; Index <= row.last; ++Index) {
            EXPECT_EQ(MainStage::IsOn(row.name, Index), row.*state)
                << MainWindow()->Entry(row.name, Index)->text().toStdString();
        }
    }
    EXPECT_EQ(EnabledButtons(), buttons);
}

TEST(MainWindow, CommandsFollowTheKindOfTheActiveChild) {
    MainStage stage;
    frmMain& main = stage.Start();
    ExpectCommands(&Command::always, kAlways);

    iSnapshotCount = 1;
    main.UpdateToolbars(kSnapshotKind, true);
    main.UpdateToolbars(kAnimationKind, false);
    ExpectCommands(&Command::snapshot, {2, 3, 4, 10, 11, 12, 13, 15, 16, 18, 19});

    iAnimationCount = 1;
    main.UpdateToolbars(kAnimationKind, true);
    main.UpdateToolbars(kSnapshotKind, false);
    ExpectCommands(&Command::animation, {2, 18, 19, 20});

    main.EnableFunction(kGroupCut, true);
    iSnapshotCount = iAnimationCount = 0;
    main.UpdateToolbars(kAnimationKind, false);
    ExpectCommands(&Command::always, kAlways);
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
    const struct {
        int button;
        std::int16_t tool;
        bool keeps;
    } cases[] = {
        {11, kToolMagnify, false}, {12, kToolNet, true}, {13, kToolPan, false}, {10, kToolDraw, false}};
    main.UpdateToolbars(kSnapshotKind, true);
    for (const auto& one : cases) {
        for (std::int16_t group = 1; group <= 5; ++group) {
            main.EnableFunction(group, true);
        }
        stage.Bar().ButtonClick(one.button);
        EXPECT_EQ(iCurrentTool, one.tool);
        for (const auto& [name, Index] : {std::pair{Menu::menu_edit, 1},
                                          {Menu::menu_edit, 2},
                                          {Menu::menu_edit, 4},
                                          {Menu::menu_exportselect, 0}}) {
            EXPECT_EQ(stage.IsOn(name, Index), one.keeps) << one.button;
        }
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
    stage.answers = {BoxAnswer::No};
    stage.Click(Menu::menu_closeall);
    stage.answers = {BoxAnswer::Yes};
    stage.Click(Menu::menu_closeall); // with nothing open nothing follows
    ASSERT_EQ(stage.boxes.size(), 2u);
    EXPECT_EQ(stage.boxes[1], QStringLiteral("Close all|Are you sure?"));

    for (const char* title : {"a", "b", "c"}) {
        new AskingChild(QLatin1String(title));
    }
    stage.boxes.clear();
    stage.answers = {BoxAnswer::Yes, BoxAnswer::Cancel, BoxAnswer::Cancel, BoxAnswer::No};
    stage.Click(Menu::menu_closeall);
    const QString c = QStringLiteral("child|c");
    EXPECT_EQ(stage.boxes, (std::vector<QString>{QStringLiteral("Close all|Are you sure?"), c, c, c}));
    EXPECT_EQ(iSnapshotCount, 2);

    stage.boxes.clear();
    stage.answers = {BoxAnswer::Yes, BoxAnswer::No, BoxAnswer::No};
    stage.Click(Menu::menu_closeall);
    EXPECT_EQ(iSnapshotCount, 0);
    EXPECT_EQ(stage.boxes.size(), 3u);
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
    emit menu->aboutToShow();
    EXPECT_EQ(menu->actions().size(), 3);
    ChildFrame(main.ActiveForm())->close();
    emit menu->aboutToShow();
    EXPECT_EQ(menu->actions().size(), 1);
    EXPECT_EQ(main.ActiveForm(), nullptr);
}

} // namespace
} // namespace lumrake::testing
