#include "shell/main_stage.h"

#include "shell/file_commands.h"

#include <QApplication>
#include <QFile>

namespace lumrake::testing {
namespace {

bool SplashIsUp() {
    const QWidgetList windows = QApplication::topLevelWidgets();
    return std::any_of(windows.begin(), windows.end(), [](const QWidget* window) {
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

void WriteSettings(const SettingsRecord& settings) {
    const auto record = EncodeSettings(settings);
    QFile file(SettingsFile());
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(reinterpret_cast<const char*>(record.data()), 526);
}

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
    WriteSettings(old);
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
    ASSERT_EQ(stage.boxes.size(), 1u);
    EXPECT_EQ(stage.boxes[0], QStringLiteral("Version change|This is a new version of LMK.  Your settings "
                                             "have been reset."));
    EXPECT_EQ(clock.looks, 2);
    EXPECT_TRUE(stage.IsOn(Menu::menu_open));
    EXPECT_TRUE(MainWindow()->Entry(Menu::menu_toolbar, 2)->isChecked());
    EXPECT_FALSE(MainWindow()->Entry(Menu::menu_recent, 1)->isVisible());
    // The new stamp is saved, so the next start is quiet.
    MainWindow()->close();
    EXPECT_EQ(stage.ended, 1);
    stage.EndRun();
    stage.Start();
    EXPECT_EQ(stage.boxes.size(), 1u);
}

TEST(Startup, TheWindowTakesOnWhatTheSettingsSay) {
    MainStage stage;
    SettingsRecord stored;
    SetDefaultSettings(stored, "2.00", {});
    stored.bToolbarVisible = {-1, 0, 1, 0, -1, 0};
    stored.sRecentFile[1].Set("/games/cut & run.sna");
    WriteSettings(stored);
    const QString name = QStringLiteral("lmk.cfg"); // as a disk without capitals has it
    ASSERT_TRUE(QFile::rename(SettingsFile(), stage.Path(name)));
    frmMain& main = stage.Start();
    EXPECT_TRUE(stage.boxes.empty());
    // Groups 1, 3 and 5; the separators of the hidden ones take no room either.
    const std::array<bool, 6> shown = {true, false, true, false, true, false};
    for (std::size_t group = 0; group < 6; ++group) {
        EXPECT_EQ(main.Entry(Menu::menu_toolbar, static_cast<int>(group) + 1)->isChecked(), shown[group]);
    }
    for (int button = 1; button <= 20; ++button) {
        const bool hidden = (button >= 5 && button <= 8) || (button >= 14 && button <= 16);
        EXPECT_EQ(stage.Bar().IsButtonVisible(button), !hidden) << button;
        EXPECT_EQ(stage.Bar().ButtonWidth(button) == 0, hidden) << button;
    }
    EXPECT_FALSE(MainProbe::Coords(main).isVisible());
    EXPECT_TRUE(main.Entry(Menu::menu_bar1)->isVisible());
    EXPECT_FALSE(main.Entry(Menu::menu_recent, 1)->isVisible());
    EXPECT_EQ(main.Entry(Menu::menu_recent, 2)->text(), QStringLiteral("&2. /games/cut && run.sna"));
    // Nothing changed: the record goes back byte for byte.
    main.close();
    const auto record = EncodeSettings(stored);
    EXPECT_FALSE(QFile::exists(stage.Path(QStringLiteral("LMK.CFG"))));
    EXPECT_EQ(stage.ReadFile(name), std::vector<std::uint8_t>(record.begin(), record.end()));
}

} // namespace
} // namespace lumrake::testing
