#include "shell/main_stage.h"

#include "shell/file_commands.h"
#include "shell/toolbar_rules.h"

#include <QFileInfo>
#include <QToolButton>

#include <set>

namespace lumrake::testing {
namespace {

const QString kSnapshotKind = QStringLiteral("SNAPSHOT");
const QString kAnimationKind = QStringLiteral("ANIMATION");

std::set<int> EnabledButtons() {
    std::set<int> enabled;
    for (int button = 1; button <= 20; ++button) {
        if (MainStage::Bar().IsButtonEnabled(button)) {
            enabled.insert(button);
        }
    }
    return enabled;
}

/// The enabled entries among those that follow something.
std::set<std::pair<Menu, int>> EnabledEntries() {
    std::set<std::pair<Menu, int>> enabled;
    const auto look = [&enabled](Menu name, int first, int last) {
        for (int Index = first; Index <= last; ++Index) {
            if (MainStage::IsOn(name, Index)) {
                enabled.insert({name, Index});
            }
        }
    };
    look(Menu::menu_save, 0, 0);
    look(Menu::menu_saveas, 0, 0);
    look(Menu::menu_exportviews, 0, 0);
    look(Menu::menu_exportselect, 0, 0);
    look(Menu::menu_edit, 1, 4);
    look(Menu::menu_zoomopt, 0, 0);
    look(Menu::menu_mode, 0, 4);
    look(Menu::menu_snapshot, 0, 3);
    look(Menu::menu_animation, 3, 4);
    look(Menu::menu_animationtogif, 0, 0);
    return enabled;
}

const std::set<int> kAlways = {2, 18, 19};
const std::set<int> kWithSnapshot = {2, 3, 4, 10, 11, 12, 13, 15, 16, 18, 19};
const std::set<std::pair<Menu, int>> kSnapshotEntries = {
    {Menu::menu_save, 0},     {Menu::menu_saveas, 0},   {Menu::menu_exportviews, 0}, {Menu::menu_zoomopt, 0},
    {Menu::menu_mode, 0},     {Menu::menu_mode, 1},     {Menu::menu_mode, 2},        {Menu::menu_mode, 3},
    {Menu::menu_mode, 4},     {Menu::menu_snapshot, 0}, {Menu::menu_snapshot, 1},    {Menu::menu_snapshot, 2},
    {Menu::menu_snapshot, 3},
};
const std::set<std::pair<Menu, int>> kAnimationEntries = {{Menu::menu_zoomopt, 0},
                                                          {Menu::menu_animation, 3},
                                                          {Menu::menu_animation, 4},
                                                          {Menu::menu_animationtogif, 0}};

TEST(MainWindow, CommandsFollowTheKindOfTheActiveChild) {
    MainStage stage;
    frmMain& main = stage.Start();
    EXPECT_EQ(EnabledButtons(), kAlways);
    EXPECT_TRUE(EnabledEntries().empty());
    for (const auto& [name, Index] : {std::pair{Menu::menu_open, 0},
                                      {Menu::menu_animation, 1},
                                      {Menu::menu_animation, 2},
                                      {Menu::menu_closeall, 0},
                                      {Menu::menu_exit, 0},
                                      {Menu::menu_prefs, 0}}) {
        EXPECT_TRUE(stage.IsOn(name, Index));
    }

    iSnapshotCount = 1;
    main.UpdateToolbars(kSnapshotKind, true);
    main.UpdateToolbars(kAnimationKind, false);
    EXPECT_EQ(EnabledButtons(), kWithSnapshot);
    EXPECT_EQ(EnabledEntries(), kSnapshotEntries);

    iAnimationCount = 1;
    main.UpdateToolbars(kAnimationKind, true);
    main.UpdateToolbars(kSnapshotKind, false);
    EXPECT_EQ(EnabledButtons(), (std::set<int>{2, 18, 19, 20}));
    EXPECT_EQ(EnabledEntries(), kAnimationEntries);

    main.EnableFunction(kGroupCut, true);
    iSnapshotCount = iAnimationCount = 0;
    main.UpdateToolbars(kAnimationKind, false);
    EXPECT_EQ(EnabledButtons(), kAlways);
    EXPECT_TRUE(EnabledEntries().empty());
}

TEST(MainWindow, EachGroupSwitchesItsButtonAndEntry) {
    MainStage stage;
    frmMain& main = stage.Start();
    const struct {
        std::int16_t group;
        std::set<int> buttons;
        std::set<std::pair<Menu, int>> entries;
    } cases[] = {
        {1, {6}, {{Menu::menu_edit, 1}}},
        {2, {7}, {{Menu::menu_edit, 2}}},
        {3, {8}, {{Menu::menu_edit, 3}}},
        {4, {}, {{Menu::menu_edit, 4}}},
        {5, {}, {{Menu::menu_exportselect, 0}}},
        {6, {}, {}},
        {0, {}, {}},
        {-1, {}, {}},
    };
    for (const auto& one : cases) {
        main.EnableFunction(one.group, true);
        std::set<int> buttons = one.buttons;
        buttons.insert(kAlways.begin(), kAlways.end());
        EXPECT_EQ(EnabledButtons(), buttons) << one.group;
        EXPECT_EQ(EnabledEntries(), one.entries) << one.group;
        main.EnableFunction(one.group, false);
    }
}

TEST(MainWindow, TheButtonUnderTheMouseIsFoundWhateverIsHidden) {
    MainStage stage;
    frmMain& main = stage.Start();
    Toolbar& bar = stage.Bar();
    for (unsigned hidden = 0; hidden < 32; ++hidden) {
        for (std::size_t group = 0; group < 5; ++group) {
            Settings.bToolbarVisible[group] = (hidden >> group & 1) != 0 ? 0 : -1;
        }
        main.ArrangeToolbars();
        std::vector<std::int32_t> widths;
        for (int button = 1; button <= 20; ++button) {
            widths.push_back(bar.ButtonWidth(button) * 15);
        }
        int shown = 0;
        for (const QToolButton* control : bar.findChildren<QToolButton*>()) {
            if (control->isVisible()) {
                ++shown;
                const int hit = ButtonAtX(control->geometry().center().x() * 15, widths);
                ASSERT_GE(hit, 1);
                EXPECT_EQ(control->toolTip().isEmpty(), false);
                EXPECT_NE(PromptOfButton(hit), 0);
                EXPECT_TRUE(bar.IsButtonVisible(hit)) << hit;
            }
        }
        constexpr std::array sizes = {3, 3, 4, 2, 3};
        int expected = 0;
        for (std::size_t group = 0; group < 5; ++group) {
            expected += (hidden >> group & 1) != 0 ? 0 : sizes[group];
        }
        EXPECT_EQ(shown, expected);
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

TEST(MainWindow, NotBuiltCommandsSaySo) {
    MainStage stage;
    frmMain& main = stage.Start();
    main.UpdateToolbars(kAnimationKind, true);
    stage.Click(Menu::menu_animationtogif);
    EXPECT_EQ(stage.boxes,
              std::vector<QString>{QStringLiteral("LMK V2.00|Sorry, this option is not available yet.")});
}

} // namespace
} // namespace lumrake::testing
