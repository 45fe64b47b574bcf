#include "shell/main_stage.h"

#include "shell/window/file_commands.h"

#include <QApplication>

namespace lumrake::testing {
namespace {

bool SplashIsUp() {
    return std::ranges::any_of(QApplication::topLevelWidgets(), [](const QWidget* window) {
        return window->windowType() == Qt::SplashScreen && window->isVisible();
    });
}

TEST(Startup, OnlyTheExactWordLeavesOutTheSplash) {
    for (const char* line : {"REHEARS", "", "rehears", "REHEARS ", " REHEARS", "REHEARS x.sna"}) {
        MainStage stage;
        // The start and then every half second until three are over, across midnight; the splash stands all
        // the while.
        double now = 86390;
        std::string looks;
        SetClock([&] {
            looks += SplashIsUp() ? '+' : '-';
            return now += 0.5;
        });
        Main(QLatin1String(line));
        EXPECT_EQ(looks, QLatin1String(line) == QLatin1String("REHEARS") ? "" : "-++++++") << line;
        EXPECT_FALSE(SplashIsUp());
        EXPECT_TRUE(MainWindow()->isVisible());
        EXPECT_TRUE(stage.boxes.empty()) << "the first run is quiet";
        EXPECT_FALSE(QFile::exists(SettingsFile())) << "and writes nothing before its end";
    }
}

TEST(Startup, TheWindowTakesOnWhatTheSettingsSay) {
    MainStage stage;
    SettingsRecord stored;
    SetDefaultSettings(stored, "2.00", {});
    stored.bToolbarVisible = {0, -1, 1, 0, -1, 0};
    stored.sRecentFile[1].Set("/games/cut & run.sna");
    const auto record = EncodeSettings(stored);
    const QString name = QStringLiteral("lmk.cfg"); // as a disk without capitals has it
    stage.MakeFile(name, record);
    frmMain& main = stage.Start();
    EXPECT_TRUE(stage.boxes.empty());
    // Groups 2, 3 and 5; the separators of the hidden ones take no room either.
    for (std::size_t group = 0; group < 6; ++group) {
        EXPECT_EQ(main.Entry(Menu::menu_toolbar, static_cast<int>(group) + 1)->isChecked(),
                  stored.bToolbarVisible[group] != 0);
    }
    EXPECT_EQ(stage.Buttons().back()->geometry(), QRect(9 * 24 + 3 * 8, 3, 24, 23));
    EXPECT_FALSE(MainProbe::Coords(main).isVisible());
    EXPECT_FALSE(main.Entry(Menu::menu_recent, 1)->isVisible());
    EXPECT_EQ(main.Entry(Menu::menu_recent, 2)->text(), QStringLiteral("&2. /games/cut && run.sna"));
    // Nothing changed: the record goes back byte for byte.
    main.close();
    EXPECT_FALSE(QFile::exists(stage.Path(QStringLiteral("LMK.CFG"))));
    EXPECT_EQ(stage.ReadFile(name), std::vector<std::uint8_t>(record.begin(), record.end()));
}

TEST(Startup, EachUserOfAnInstalledProgramHasSettingsOfHisOwn) {
    MainStage stage;
    stage.MakeFile(QStringLiteral("LMK.CFG"), std::vector<std::uint8_t>{1, 2, 3}); // beside the program
    qputenv("XDG_CONFIG_HOME", QFile::encodeName(stage.Path(QStringLiteral("home/config"))));
    KeepSettingsOfEachUser();
    stage.Start().close();
    EXPECT_TRUE(stage.boxes.empty()) << "starts with the defaults";
    const QString folder = stage.Path(QStringLiteral("home/config/lumrake"));
    EXPECT_EQ(QFileInfo(folder + QStringLiteral("/LMK.CFG")).size(), 526);
    EXPECT_EQ(QFile::permissions(folder) & (QFile::ReadGroup | QFile::ReadOther | QFile::ExeOther), 0);
    EXPECT_EQ(stage.ReadFile(QStringLiteral("LMK.CFG")).size(), 3);
    qunsetenv("XDG_CONFIG_HOME");
}

} // namespace
} // namespace lumrake::testing
