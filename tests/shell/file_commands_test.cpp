#include "shell/main_stage.h"

#include "shell/file_commands.h"
#include "snapshot/snapshot_probe.h"

#include <QDir>

namespace lumrake::testing {
namespace {

QString RecentCaption(int slot) {
    const QAction* entry = MainWindow()->Entry(Menu::menu_recent, slot);
    return entry->isVisible() ? entry->text() : QString();
}

void OpenByDialog(MainStage& stage, const QString& path) {
    stage.files.push_back(path);
    stage.Click(Menu::menu_open);
}

TEST(RecentFiles, TheNewestComesInAtTheHeadAndTheOldestFallsOut) {
    MainStage stage;
    stage.Start();
    const QString a = stage.Snapshot(QStringLiteral("A & b.SNA"));
    const QString b = stage.Snapshot(QStringLiteral("b.sna"));
    QString shownA = a.toLower();
    shownA.replace(QLatin1Char('&'), QLatin1String("&&"));

    for (const QString& file : {QString(), a, a}) { // the first is a cancel
        EXPECT_EQ(MainWindow()->Entry(Menu::menu_bar1)->isVisible(), iSnapshotCount > 0);
        OpenByDialog(stage, file);
    }
    EXPECT_EQ(RecentCaption(2), QLatin1String("&2. ") + shownA);
    EXPECT_EQ(RecentCaption(3), QString());
    for (int i = 0; i < 3; ++i) {
        OpenByDialog(stage, b);
    }
    EXPECT_EQ(RecentCaption(3), QLatin1String("&3. ") + b.toLower());
    EXPECT_EQ(RecentCaption(4), QLatin1String("&4. ") + shownA);

    // What is opened from the list keeps its place, and is the file with its true name.
    stage.Click(Menu::menu_recent, 4);
    EXPECT_EQ(iSnapshotCount, 6);
    EXPECT_EQ(MainWindow()->ActiveSnapshot()->GetFilename(), a);
    EXPECT_EQ(Settings.sRecentFile[3].Trimmed(), a.toLower().toStdString());

    QFile::remove(a);
    stage.Click(Menu::menu_recent, 4);
    EXPECT_EQ(stage.boxes.back(), QStringLiteral("Open file|File not found!"));
}

TEST(RecentFiles, OfTwoNamesThatDifferInCaseNoneIsMeant) {
    MainStage stage;
    stage.Start();
    OpenByDialog(stage, stage.Snapshot(QStringLiteral("MiXed.SNA")));
    MainWindow()->close();
    stage.EndRun();
    stage.Snapshot(QStringLiteral("mIXED.sna"));
    stage.Start();
    stage.Click(Menu::menu_recent, 1);
    EXPECT_EQ(stage.boxes, std::vector<QString>{QStringLiteral("Open file|File not found!")});
}

TEST(RecentFiles, APathThatTheRecordCutsIsWholeInItsOwnRunAlone) {
    MainStage stage;
    stage.Start();
    const QString folder = QString(90, QLatin1Char('D'));
    ASSERT_TRUE(QDir(stage.Path(QString())).mkpath(folder));
    const QString path = stage.Snapshot(folder + QLatin1String("/x.sna"));
    OpenByDialog(stage, path);
    EXPECT_EQ(RecentCaption(1), QLatin1String("&1. ") + path.toLower());
    EXPECT_EQ(Settings.sRecentFile[0].Text(), path.toLower().left(100).toStdString());
    stage.Click(Menu::menu_recent, 1);
    EXPECT_EQ(iSnapshotCount, 2);
    MainWindow()->close();
    stage.EndRun();

    iSnapshotCount = 0;
    stage.Start();
    EXPECT_EQ(RecentCaption(1), QLatin1String("&1. ") + path.toLower().left(100));
    stage.Click(Menu::menu_recent, 1);
    EXPECT_EQ(iSnapshotCount, 0);
}

TEST(SaveAs, AsksOnlyBeforeAnExistingFileIsOverwritten) {
    MainStage stage;
    stage.Start();
    const QString a = stage.Snapshot(QStringLiteral("a.sna"));
    const QString old = stage.MakeFile(QStringLiteral("Old.sna"), NoiseBytes(9));
    OpenByDialog(stage, a);
    stage.files = {old, stage.Path(QStringLiteral("OLD.SNA")), stage.Path(QStringLiteral("gone/x.sna"))};
    stage.answers = {BoxAnswer::No, BoxAnswer::Yes};
    stage.Click(Menu::menu_saveas);
    EXPECT_EQ(stage.boxes, std::vector<QString>{QLatin1String("Save|") + old.toLower() +
                                                QLatin1String(" already exists, overwrite?")});
    EXPECT_EQ(stage.ReadFile(QStringLiteral("Old.sna")).size(), 9u);
    EXPECT_EQ(MainWindow()->ActiveSnapshot()->GetFilename(), a);

    // A file that is there in other letters is the one that is meant and written.
    stage.Click(Menu::menu_saveas);
    EXPECT_EQ(stage.ReadFile(QStringLiteral("Old.sna")), NoiseBytes(6912));
    EXPECT_FALSE(QFile::exists(stage.Path(QStringLiteral("old.sna"))));
    EXPECT_EQ(RecentCaption(1), QLatin1String("&1. ") + old.toLower());

    // What fails does not enter the list, and is not asked about.
    stage.Click(Menu::menu_saveas);
    EXPECT_EQ(stage.boxes.size(), 3u);
    EXPECT_EQ(RecentCaption(1), QLatin1String("&1. ") + old.toLower());
}

TEST(Commands, GoToTheActiveOfTwoWindows) {
    MainStage stage;
    frmMain& main = stage.Start();
    OpenByDialog(stage, stage.Snapshot(QStringLiteral("a.sna")));
    frmSnapshot* a = main.ActiveSnapshot();
    OpenByDialog(stage, stage.MakeFile(QStringLiteral("b.sna"), NoiseBytes(7000, 2)));
    frmSnapshot* b = main.ActiveSnapshot();
    ASSERT_NE(a, b);
    stage.Click(Menu::menu_mode, 3);
    stage.Click(Menu::menu_snapshot, 2);
    stage.Click(Menu::menu_zoom, 4);
    EXPECT_EQ(b->GetMode(), 3);
    EXPECT_EQ(b->GetFlip(), -1);
    EXPECT_EQ(b->GetZoom(), 4);

    emit main.Entry(Menu::menu_window)->menu()->aboutToShow();
    main.Entry(Menu::menu_window)->menu()->actions()[2]->trigger();
    ASSERT_EQ(main.ActiveForm(), a);
    EXPECT_EQ(a->GetZoom(), 1);
    stage.files = {stage.Path(QStringLiteral("copy.sna"))};
    stage.Click(Menu::menu_saveas);
    EXPECT_EQ(stage.ReadFile(QStringLiteral("copy.sna")).size(), 6912u);
}

TEST(Shortcuts, WorkWhileAValueBoxHasTheFocus) {
    MainStage stage;
    frmMain& main = stage.Start();
    OpenByDialog(stage, stage.Snapshot(QStringLiteral("a.sna")));
    stage.dialogs.clear();
    ValueBox* box = &SnapshotProbe{*main.ActiveSnapshot()}.Box(0);
    box->setFocus();
    ASSERT_TRUE(box->hasFocus());
    stage.files = {QString(), QString()};
    QTest::keyClick(box, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClick(box, Qt::Key_W, Qt::ControlModifier);
    EXPECT_EQ(stage.dialogs, (std::vector<QString>{QStringLiteral("Save snapshot file as..."),
                                                   QStringLiteral("Open animation file...")}));
    QTest::keyClick(box, Qt::Key_F4, Qt::ControlModifier);
    EXPECT_EQ(Settings.bToolbarVisible[3], 0);
    EXPECT_EQ(iSnapshotCount, 1) << "Ctrl+F4 is no Close here";
    QTest::keyClick(box, Qt::Key_F1);
    EXPECT_EQ(Settings.bAssistantOn, -1);
    EXPECT_EQ(main.ActiveForm(), main.ActiveSnapshot()) << "the assistant is no document";

    // Del belongs to the box.
    int deleted = 0;
    QObject::connect(main.Entry(Menu::menu_edit, 4), &QAction::triggered, box, [&deleted] { ++deleted; });
    main.EnableFunction(kGroupDelete, true);
    QTest::keyClick(box, Qt::Key_Delete);
    box->clearFocus();
    QTest::keyClick(&main, Qt::Key_Delete);
    EXPECT_EQ(deleted, 1);

    stage.answers = {BoxAnswer::Yes, BoxAnswer::No}; // the window counts as changed by now
    QTest::keyClick(&main, Qt::Key_K, Qt::ControlModifier);
    EXPECT_EQ(iSnapshotCount, 0);
}

} // namespace
} // namespace lumrake::testing
