#include "shell/main_stage.h"

#include "shell/file_commands.h"
#include "snapshot/snapshot_probe.h"

#include <QFileInfo>
#include <QToolButton>

namespace lumrake::testing {
namespace {

class FileCommands : public ::testing::Test, public MainStage {
  protected:
    FileCommands() : main(Start()) {}
    void Open(const QString& path) {
        files.push_back(path);
        Click(Menu::menu_open);
    }
    std::string RecentCaption(int slot) const {
        const QAction* entry = main.Entry(Menu::menu_recent, slot);
        return entry->isVisible() ? entry->text().toStdString() : std::string();
    }

    frmMain& main;
    const QString a = Snapshot(QStringLiteral("A & b.SNA"));
};

TEST_F(FileCommands, TheNewestComesInAtTheHeadAndTheOldestFallsOut) {
    const QString b = Snapshot(QStringLiteral("b.sna"));
    const std::string shownA = a.toLower().replace(u"&"_qs, u"&&"_qs).toStdString();
    for (const QString& file : {QString(), a, a}) { // the first is a cancel
        EXPECT_EQ(main.Entry(Menu::menu_bar1)->isVisible(), iSnapshotCount > 0);
        Open(file);
    }
    EXPECT_EQ(RecentCaption(2), "&2. " + shownA);
    EXPECT_EQ(RecentCaption(3), "");
    for (int i = 0; i < 3; ++i) {
        Open(b);
    }
    EXPECT_EQ(RecentCaption(3), "&3. " + b.toLower().toStdString());
    EXPECT_EQ(RecentCaption(4), "&4. " + shownA);

    // What is opened from the list keeps its place, and is the file with its true name.
    Click(Menu::menu_recent, 4);
    EXPECT_EQ(iSnapshotCount, 6);
    EXPECT_EQ(main.ActiveSnapshot()->GetFilename(), a);
    EXPECT_EQ(Settings.sRecentFile[3].Trimmed(), a.toLower().toStdString());
    QFile::remove(a);
    Snapshot(QStringLiteral("a & b.sna")); // is another one
    Click(Menu::menu_recent, 4);
    EXPECT_EQ(boxes.back(), QStringLiteral("Open file|File not found!"));
}

TEST_F(FileCommands, ALaterRunOpensNoOtherFileThanMeant) {
    const QString paths[] = {Snapshot(QString(150, u'N')), Snapshot(u"end "_qs), Snapshot(u"\u0130.sna"_qs),
                             Snapshot(u"Hero.SNA"_qs)};
    for (int slot = 3; slot >= 0; --slot) {
        Open(paths[slot]);
    }
    QString sAskedIn;
    SetFileDialogAnswerer([&](CommonDialog::Kind, const CommonDialog& dialog) {
        sAskedIn = dialog.FileName;
        return paths[0];
    });
    const QString sDirectory = QFileInfo(a).path() + u'/';
    EXPECT_EQ(RecentCaption(1), "&1. " + paths[0].toLower().toStdString()) << "whole in its own run";
    EXPECT_EQ(Settings.sRecentFile[0].Text(), paths[0].toLower().left(100).toStdString());
    for (const bool later : {false, true}) {
        for (int slot = 0; slot < 4; ++slot) {
            sAskedIn.clear();
            Click(Menu::menu_recent, slot + 1);
            EXPECT_EQ(main.ActiveSnapshot()->GetFilename(), paths[slot]);
            EXPECT_EQ(sAskedIn, later && slot == 0 ? sDirectory : QString()) << "the record has cut it";
        }
        ResetRecentFiles(); // from the record, as at the start of a run
    }
    Snapshot(u"hero.sna"_qs);
    Click(Menu::menu_recent, 4);
    EXPECT_EQ(sAskedIn, sDirectory);
    EXPECT_EQ(main.ActiveSnapshot()->GetFilename(), paths[0]);
    EXPECT_EQ(RecentCaption(2), "&2. " + paths[1].toLower().trimmed().toStdString());
}

TEST_F(FileCommands, SaveAsAsksOnlyBeforeAnExistingFileIsOverwritten) {
    const QString old = MakeFile(QStringLiteral("Old.sna"), NoiseBytes(9));
    Open(a);
    files = {old, Path(QStringLiteral("OLD.SNA")), Path(QStringLiteral("gone/x.sna"))};
    answers = {BoxAnswer::No, BoxAnswer::Yes};
    Click(Menu::menu_saveas);
    EXPECT_EQ(boxes, std::vector{u"Save|%1 already exists, overwrite?"_qs.arg(old.toLower())});
    EXPECT_EQ(ReadFile(QStringLiteral("Old.sna")).size(), 9u);
    EXPECT_EQ(main.ActiveSnapshot()->GetFilename(), a);
    // A file that is there in other letters is the one that is meant and written; what fails does not enter the
    // list, and is not asked about.
    for (const unsigned told : {2U, 3U}) {
        Click(Menu::menu_saveas);
        EXPECT_EQ(ReadFile(QStringLiteral("Old.sna")), NoiseBytes(6912));
        EXPECT_EQ(RecentCaption(1), "&1. " + old.toLower().toStdString());
        EXPECT_EQ(boxes.size(), told);
    }
}

TEST_F(FileCommands, GoToTheActiveOfTwoWindows) {
    Open(a);
    frmSnapshot* first = main.ActiveSnapshot();
    Open(MakeFile(QStringLiteral("b.sna"), NoiseBytes(7000, 2)));
    frmSnapshot* second = main.ActiveSnapshot();
    Click(Menu::menu_mode, 3);
    Click(Menu::menu_snapshot, 2);
    Click(Menu::menu_zoom, 4);
    EXPECT_EQ(second->GetMode(), 3);
    EXPECT_EQ(second->GetFlip(), -1);
    EXPECT_EQ(second->GetZoom(), 4);

    QMenu* list = main.Entry(Menu::menu_window)->menu();
    emit list->aboutToShow();
    const QList<QAction*> entries = list->actions();
    ASSERT_EQ(entries.size(), 4); // Close all, a line, the two
    EXPECT_EQ(entries[2]->text(), QStringLiteral("&1 a && b.sna"));
    EXPECT_TRUE(entries[3]->isChecked() && !entries[2]->isChecked());
    entries[2]->trigger();
    ASSERT_EQ(main.ActiveForm(), first);
    EXPECT_EQ(first->GetZoom(), 1);
    files = {Path(QStringLiteral("copy.sna"))};
    Click(Menu::menu_saveas);
    EXPECT_EQ(ReadFile(QStringLiteral("copy.sna")).size(), 6912u);
}

TEST_F(FileCommands, ShortcutsWorkWhileAValueBoxHasTheFocus) {
    Open(a);
    dialogs.clear();
    ValueBox* box = &SnapshotProbe{*main.ActiveSnapshot()}.Box(0);
    box->setFocus();
    ASSERT_TRUE(box->hasFocus());
    files = {QString(), QString()};
    for (const Qt::Key key : {Qt::Key_A, Qt::Key_W, Qt::Key_F4}) {
        QTest::keyClick(box, key, Qt::ControlModifier);
    }
    EXPECT_EQ(dialogs, (std::vector{u"Save snapshot file as..."_qs, u"Open animation file..."_qs}));
    EXPECT_EQ(Settings.bToolbarVisible[3], 0);
    EXPECT_EQ(iSnapshotCount, 1) << "Ctrl+F4 is no Close here";
    // Del belongs to the box.
    int deleted = 0;
    QObject::connect(main.Entry(Menu::menu_edit, 4), &QAction::triggered, box, [&deleted] { ++deleted; });
    main.EnableFunction(kGroupDelete, true);
    QTest::keyClick(box, Qt::Key_Delete);
    box->clearFocus();
    QTest::keyClick(&main, Qt::Key_Delete);
    EXPECT_EQ(deleted, 1);
}

/// The program with three changed documents a, b and c, of which c is active.
class ThreeChanged : public MainStage {
  public:
    ThreeChanged() {
        Start();
        for (const char* name : {"a", "b ", "c"}) { // no blank shows in a question
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
    EXPECT_FALSE(QFile::exists(SettingsFile()));
    stage.answers = {Yes, No};
    MainWindow()->close();
    EXPECT_EQ(stage.Asked(), "bc");
    EXPECT_EQ(stage.ended, 1);
}

TEST(MainWindow, ASaveThatFailsOnTheWayOutCanStopIt) {
    // The answers to the question about a and to the box of its failure; what the dialog is told; whether it ends.
    const std::tuple<std::deque<BoxAnswer>, std::deque<QString>, int> rows[] = {
        {{Yes, Cancel}, {}, 0},
        {{Yes, Yes, Yes}, {QString(300, u'n'), QString()}, 0},
        {{Yes, Yes, No, No, No, No}, {u"c"_qs}, 1}, // not over that file, then not at all
        {{Yes, Yes, Yes, No, No}, {u"c"_qs}, 1},
    };
    for (const auto& [answers, names, ends] : rows) {
        ThreeChanged stage;
        QFile::setPermissions(stage.Path(u"a"_qs), QFile::ReadOwner);
        stage.MakeFile(u"c"_qs, NoiseBytes(9));
        stage.answers = answers;
        for (const QString& name : names) {
            stage.files.push_back(name.isEmpty() ? name : stage.Path(name));
        }
        MainWindow()->close();
        EXPECT_EQ(stage.ended, ends);
        EXPECT_EQ(iSnapshotCount, ends == 1 ? 0 : 3);
        EXPECT_TRUE(stage.answers.empty() && stage.files.empty());
        EXPECT_EQ(stage.ReadFile(u"c"_qs).size(), answers.size() == 5 ? 6912U : 9U);
    }
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

TEST(MainWindow, OneToolIsPressedAndAllButTheNetEndTheSelection) {
    MainStage stage;
    stage.Start();
    OpenSnapshotFile(stage.Snapshot(QStringLiteral("a.sna")));
    const SnapshotProbe probe{*MainWindow()->ActiveSnapshot()};
    const std::tuple<const char*, int, std::int16_t> clicks[] = {
        {"Zoom", 11, kToolMagnify}, {"Select", 12, kToolNet}, {"Pan", 13, kToolPan}, {"Draw", 10, kToolDraw}};
    for (const auto& [name, button, tool] : clicks) {
        for (QToolButton* control : stage.Bar().findChildren<QToolButton*>()) {
            if (control->toolTip().startsWith(QLatin1String(name))) {
                QTest::mouseClick(control, Qt::LeftButton);
                probe.DrawNet(0, 0, 9, 9);
                iCurrentTool = kToolPlacing; // a click on the pressed one is told again
                QTest::mouseClick(control, Qt::LeftButton);
            }
        }
        EXPECT_EQ(iCurrentTool, tool);
        EXPECT_EQ(probe.Net().Visible, tool == kToolNet);
        EXPECT_EQ(MainWindow()->Entry(Menu::menu_exportselect)->isEnabled(), tool == kToolNet);
        for (int other = 10; other <= 13; ++other) {
            EXPECT_EQ(stage.Bar().IsButtonPressed(other), other == button);
        }
    }
}

} // namespace
} // namespace lumrake::testing
