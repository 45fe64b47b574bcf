#include "shell/main_stage.h"

#include "shell/file_commands.h"

#include <QApplication>
#include <QFile>

namespace lumrake::testing {
namespace {

bool SplashIsUp() {
    return std::ranges::any_of(QApplication::topLevelWidgets(), [](const QWidget* window) {
        return window->windowType() == Qt::SplashScreen && window->isVisible();
    });
}

/// A clock that goes on half a second each time somebody looks at it.
struct SteppingClock {
    double now = 86390; // the wait ends across midnight as well
    int looks = 0;
    int looksWithSplash = 0;

    void Install() {
        SetClock([this] {
            ++looks;
            looksWithSplash += SplashIsUp() ? 1 : 0;
            return now += 0.5;
        });
    }
};

TEST(Startup, OnlyTheExactWordLeavesOutTheSplash) {
    for (const char* line : {"REHEARS", "", "rehears", "REHEARS ", " REHEARS", "REHEARS x.sna", "x.sna"}) {
        MainStage stage;
        SteppingClock clock;
        clock.Install();
        Main(QLatin1String(line));
        const bool skips = QLatin1String(line) == QLatin1String("REHEARS");
        EXPECT_EQ(bSkipSplash, skips ? -1 : 0) << line;
        // The start and then every half second until three are over; the splash stands all the while.
        EXPECT_EQ(clock.looks, skips ? 0 : 7) << line;
        EXPECT_EQ(clock.looksWithSplash, skips ? 0 : 6) << line;
        EXPECT_FALSE(SplashIsUp());
        EXPECT_TRUE(MainWindow()->isVisible());
        EXPECT_TRUE(stage.boxes.empty()) << "the first run is quiet";
        EXPECT_FALSE(QFile::exists(SettingsFile())) << "and writes nothing before its end";
    }
}

TEST(Startup, ASlowAnswerToTheVersionBoxCountsTowardsTheWait) {
    MainStage stage;
    SettingsRecord old;
    SetDefaultSettings(old, "1.00", {});
    old.bToolbarVisible[1] = 0;
    old.sRecentFile[0].Set("/a.sna");
    stage.MakeFile(QStringLiteral("LMK.CFG"), EncodeSettings(old));
    SteppingClock clock;
    clock.Install();
    SetMessageBoxAnswerer([&](const MessageBox& box) {
        stage.boxes.push_back(box.title + QLatin1Char('|') + box.text);
        EXPECT_TRUE(SplashIsUp());
        EXPECT_FALSE(MainWindow()->isVisible());
        clock.now += 10;
        return BoxAnswer::Ok;
    });
    Main(QString());
    EXPECT_EQ(stage.boxes,
              std::vector<QString>{QStringLiteral(
                  "Version change|This is a new version of LMK.  Your settings have been reset.")});
    EXPECT_EQ(clock.looks, 2);
    EXPECT_TRUE(MainWindow()->Entry(Menu::menu_toolbar, 2)->isChecked());
    EXPECT_FALSE(MainWindow()->Entry(Menu::menu_recent, 1)->isVisible());
}

TEST(Startup, TheWindowTakesOnWhatTheSettingsSay) {
    MainStage stage;
    SettingsRecord stored;
    SetDefaultSettings(stored, "2.00", {});
    stored.bToolbarVisible = {-1, 0, 1, 0, -1, 0};
    stored.sRecentFile[1].Set("/games/cut & run.sna");
    const auto record = EncodeSettings(stored);
    const QString name = QStringLiteral("lmk.cfg"); // as a disk without capitals has it
    stage.MakeFile(name, record);
    frmMain& main = stage.Start();
    EXPECT_TRUE(stage.boxes.empty());
    // Groups 1, 3 and 5; the separators of the hidden ones take no room either.
    for (int group = 1; group <= 6; ++group) {
        EXPECT_EQ(main.Entry(Menu::menu_toolbar, group)->isChecked(), group % 2 == 1);
    }
    for (int button = 1; button <= 20; ++button) {
        const bool hidden = (button >= 5 && button <= 8) || (button >= 14 && button <= 16);
        EXPECT_EQ(stage.Bar().ButtonWidth(button) == 0, hidden) << button;
    }
    EXPECT_FALSE(MainProbe::Coords(main).isVisible());
    EXPECT_FALSE(main.Entry(Menu::menu_recent, 1)->isVisible());
    EXPECT_EQ(main.Entry(Menu::menu_recent, 2)->text(), QStringLiteral("&2. /games/cut && run.sna"));
    // Nothing changed: the record goes back byte for byte.
    main.close();
    EXPECT_FALSE(QFile::exists(stage.Path(QStringLiteral("LMK.CFG"))));
    EXPECT_EQ(stage.ReadFile(name), std::vector<std::uint8_t>(record.begin(), record.end()));
}

} // namespace
} // namespace lumrake::testing
