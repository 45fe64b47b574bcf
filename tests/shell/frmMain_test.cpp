#include "shell/file_commands.h"
#include "shell/main_stage.h"
#include "snapshot/snapshot_probe.h"

#include <QFileInfo>
#include <QToolButton>

namespace lumrake::testing {
namespace {

/// The program with three changed documents a, b and c, of which c is active.
class ThreeChanged : public MainStage {
  public:
    ThreeChanged() {
        Start();
        for (const char* name : {"a", "b", "c"}) {
            OpenSnapshotFile(Snapshot(QLatin1String(name)));
            SnapshotProbe{*MainWindow()->ActiveSnapshot()}.Changed() = -1;
        }
    }
    /// The documents that were asked about since the last call; e is the end of "Are you sure?".
    std::string Asked() {
        std::string letters;
        for (const QString& box : std::exchange(boxes, {})) {
            letters += box.at(box.size() - 2).toLatin1();
        }
        return letters;
    }
};

using enum BoxAnswer;

TEST(MainWindow, ExitStopsAtTheFirstChildThatStays) {
    ThreeChanged stage;
    stage.answers = {No, Cancel};
    stage.Click(Menu::menu_exit);
    EXPECT_EQ(stage.Asked(), "ab");
    EXPECT_EQ(iSnapshotCount, 2);
    EXPECT_EQ(stage.ended, 0);
    EXPECT_FALSE(QFileInfo::exists(SettingsFile()));
    stage.answers = {Yes, No};
    MainWindow()->close();
    EXPECT_EQ(stage.Asked(), "bc");
    EXPECT_EQ(stage.ended, 1);
}

TEST(MainWindow, CloseAllAsksTheActiveChildAgainAsLongAsItStays) {
    ThreeChanged stage;
    stage.answers = {Yes, Cancel, Cancel, No, No, Yes, No, No};
    for (const auto& [asked, left] : {std::pair{"eccc", 2}, {"e", 2}, {"eba", 0}}) {
        stage.Click(Menu::menu_closeall);
        EXPECT_EQ(stage.Asked(), asked);
        EXPECT_EQ(iSnapshotCount, left);
    }
}

TEST(MainWindow, TheCoordinatesPanelNeverCoversAButton) {
    MainStage stage;
    frmMain& main = stage.Start();
    for (const int width : {1, 1400}) {
        main.resize(width, 400);
        EXPECT_GE(MainProbe::Coords(main).x(), stage.Bar().FullWidth()) << width;
        EXPECT_EQ(MainProbe::Coords(main).x(), main.frameGeometry().width() - 181);
    }
}

TEST(MainWindow, OneToolIsPressedAndAClickOnItIsToldAgain) {
    MainStage stage;
    stage.Start();
    OpenSnapshotFile(stage.Snapshot(QStringLiteral("a.sna")));
    const std::tuple<const char*, int, std::int16_t> clicks[] = {
        {"Zoom", 11, kToolMagnify}, {"Select", 12, kToolNet}, {"Pan", 13, kToolPan}, {"Draw", 10, kToolDraw}};
    for (const auto& [name, button, tool] : clicks) {
        for (QToolButton* control : stage.Bar().findChildren<QToolButton*>()) {
            if (control->toolTip().startsWith(QLatin1String(name))) {
                QTest::mouseClick(control, Qt::LeftButton);
                iCurrentTool = kToolPlacing;
                QTest::mouseClick(control, Qt::LeftButton);
            }
        }
        EXPECT_EQ(iCurrentTool, tool);
        for (int other = 10; other <= 13; ++other) {
            EXPECT_EQ(stage.Bar().IsButtonPressed(other), other == button);
        }
    }
}

} // namespace
} // namespace lumrake::testing
