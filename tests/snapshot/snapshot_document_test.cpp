#include "platform/panel_bar.h"
#include "snapshot/snapshot_probe.h"

#include <QDir>
#include <QFile>
#include <QMdiSubWindow>
#include <QProgressBar>

#include <gtest/gtest.h>

namespace lumrake {
namespace {

using testing::NoiseBytes;
using testing::SnapshotStage;

QStringList Listed(const SnapshotStage& stage) {
    return {stage.boxes.begin(), stage.boxes.end()};
}

TEST(Launch, ShowsTheFileByItsLowerCaseName) {
    SnapshotStage stage;
    Settings.lDefaultOffset = 1000;
    frmSnapshot* form = stage.Open(NoiseBytes(1000), QStringLiteral("Mixed Case.SNA"));
    ASSERT_NE(form, nullptr);
    const SnapshotProbe probe{*form};
    EXPECT_EQ(form->GetFilename(), stage.Path(QStringLiteral("Mixed Case.SNA")));
    EXPECT_EQ(form->windowTitle(), QStringLiteral("mixed case.sna"));
    EXPECT_EQ(probe.Status().PanelAt(1).Text, form->GetFilename().toLower());
    EXPECT_EQ(probe.Status().PanelAt(2).Text, QStringLiteral("1000 bytes"));
    EXPECT_EQ(probe.Status().PanelAt(3).Text, QStringLiteral("1x"));
    EXPECT_EQ(probe.Texts(), "999 256 192 1") << "an offset at the length is the last byte";
    EXPECT_EQ(iSnapshotCount, 1);
    EXPECT_TRUE(ChildFrame(form)->isVisible() && form->isVisible());
    EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
}

TEST(Launch, OpensWhatIsThereInAnotherCase) {
    SnapshotStage stage;
    stage.MakeFile(QStringLiteral("Game.Z80"), NoiseBytes(10));
    frmSnapshot* form = stage.OpenPath(stage.Path(QStringLiteral("game.z80")), QStringLiteral("game.z80"));
    ASSERT_NE(form, nullptr);
    EXPECT_EQ(form->GetFilename(), stage.Path(QStringLiteral("Game.Z80")))
        << "a save goes to the file opened";
}

TEST(Launch, RefusesWhatIsNoDocument) {
    SnapshotStage stage;
    stage.MakeFile(QStringLiteral("empty"), {});
    ASSERT_TRUE(QDir(stage.Path(QString())).mkdir(QStringLiteral("folder")));
    QFile huge(stage.Path(QStringLiteral("huge")));
    ASSERT_TRUE(huge.open(QIODevice::WriteOnly) && huge.resize(2147483648LL));
    ASSERT_TRUE(QFile::link(stage.Path(QStringLiteral("nowhere")), stage.Path(QStringLiteral("dangling"))));
    struct Case {
        const char *name, *message;
    };
    const Case cases[] = {{"missing", "Open file|File not found!"},
                          {"dangling", "Open file|"},
                          {"empty", "The file is empty."},
                          {"folder", "It is a directory."},
                          {"huge", "longer than 2147483647 bytes"}};
    for (const Case& one : cases) {
        stage.boxes.clear();
        const QString name = QString::fromLatin1(one.name);
        EXPECT_EQ(stage.OpenPath(stage.Path(name), name), nullptr) << one.name;
        ASSERT_EQ(stage.boxes.size(), 1U) << one.name;
        EXPECT_TRUE(stage.boxes[0].startsWith(QLatin1String("Open file|")));
        EXPECT_TRUE(stage.boxes[0].contains(QLatin1String(one.message))) << stage.boxes[0].toStdString();
    }
    EXPECT_EQ(iSnapshotCount, 0);
    EXPECT_TRUE(stage.area.subWindowList().isEmpty());
    EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
}

TEST(Launch, OpensAFileOfOneByte) {
    SnapshotStage stage;
    Settings.lDefaultOffset = 27;
    Settings.iDefaultMode = kByteMasks;
    frmSnapshot* form = stage.Open(NoiseBytes(1));
    ASSERT_NE(form, nullptr);
    EXPECT_EQ(form->GetOffset(), 0);
    EXPECT_EQ(SnapshotProbe{*form}.ValueMax(0), 0);
}

TEST(Launch, DrawsInTheDefaultMode) {
    for (const std::int16_t mode : {kGraphics, kScreen, kText, kLineMasks, kByteMasks}) {
        SnapshotStage stage;
        Settings.iDefaultMode = mode;
        Settings.iDefaultWidth = 64;
        Settings.iDefaultLines = 21;
        Settings.iDefaultColumns = 3;
        const auto bytes = NoiseBytes(8000);
        frmSnapshot* form = stage.Open(bytes);
        ASSERT_NE(form, nullptr);
        EXPECT_TRUE(stage.boxes.empty());
        const ViewNumbers view = SnapshotProbe{*form}.View();
        lmk::DeviceContext expected;
        lmk::zxShowMem(&expected, bytes.data(), 0, 8000, view.iWidth, view.iLines, view.iColumns, 16 | mode,
                       15, Settings.lPalette.data());
        const lmk::BitPicture& shown = SnapshotProbe{*form}.Picture().hDC().Picture();
        ASSERT_EQ(shown.Height(), expected.Picture().Height());
        for (int y = 0; y < shown.Height(); ++y) {
            EXPECT_TRUE(std::equal(shown.Row(y), shown.Row(y) + shown.Stride(), expected.Picture().Row(y)));
        }
    }
}

TEST(SaveSnap, WritesTheBytesAndTakesTheName) {
    SnapshotStage stage;
    frmSnapshot* form = stage.Open(NoiseBytes(3000));
    const SnapshotProbe probe{*form};
    probe.WritePixel(3, 0, 1, true);
    EXPECT_FALSE(form->SaveSnap(QString(), QStringLiteral("x")));
    EXPECT_EQ(probe.Changed(), -1) << "no name, nothing done";

    stage.MakeFile(QStringLiteral("Longer"), NoiseBytes(9000, 2));
    EXPECT_TRUE(form->SaveSnap(stage.Path(QStringLiteral("Longer")), QStringLiteral("Longer")));
    EXPECT_EQ(stage.ReadFile(QStringLiteral("Longer")),
              std::vector<std::uint8_t>(probe.Memory().Bytes().begin(), probe.Memory().Bytes().end()));
    EXPECT_EQ(probe.Changed(), 0);
    EXPECT_EQ(form->GetFilename(), stage.Path(QStringLiteral("Longer")));
    EXPECT_EQ(form->windowTitle(), QStringLiteral("longer"));
    EXPECT_EQ(probe.Status().PanelAt(1).Text, form->GetFilename().toLower());
    EXPECT_TRUE(probe.Progress().isHidden());
}

TEST(SaveSnap, KeepsEverythingWhenItFails) {
    SnapshotStage stage;
    frmSnapshot* form = stage.Open(NoiseBytes(10));
    const SnapshotProbe probe{*form};
    probe.WritePixel(0, 0, 1, false);
    const QString sNowhere = stage.Path(QStringLiteral("no/such/dir"));
    EXPECT_FALSE(form->SaveSnap(sNowhere, QStringLiteral("dir")));
    ASSERT_EQ(stage.boxes.size(), 1U);
    EXPECT_TRUE(stage.boxes[0].startsWith(QLatin1String("Save|")));
    QString sReason;
    EXPECT_FALSE(form->SaveSnap(sNowhere, QStringLiteral("dir"), &sReason));
    EXPECT_EQ(stage.boxes.size(), 1U) << "the reason goes to the caller instead";
    EXPECT_FALSE(sReason.isEmpty());
    EXPECT_EQ(probe.Changed(), -1);
    EXPECT_EQ(form->windowTitle(), QStringLiteral("test.sna"));
    EXPECT_TRUE(probe.Progress().isHidden());
}

TEST(Closing, AsksOnceAndCountsTheWindowOut) {
    struct Case {
        std::int16_t changed, prompt;
        BoxAnswer answer;
        bool asked, closed, saved;
    };
    const Case cases[] = {{0, 1, BoxAnswer::No, false, true, false},
                          {-1, 0, BoxAnswer::No, false, true, false},
                          {-1, 1, BoxAnswer::Cancel, true, false, false},
                          {-1, 1, BoxAnswer::No, true, true, false},
                          {-1, 1, BoxAnswer::Yes, true, true, true}};
    for (const Case& one : cases) {
        SnapshotStage stage;
        const auto bytes = NoiseBytes(100);
        frmSnapshot* other = stage.Open(bytes, QStringLiteral("other"));
        frmSnapshot* form = stage.Open(bytes);
        const SnapshotProbe probe{*form};
        probe.Memory().Bytes()[0] ^= 255;
        probe.Changed() = one.changed;
        Settings.bPromptSave = one.prompt;
        if (one.asked) {
            stage.answers = {one.answer};
        }
        stage.notices.clear();
        EXPECT_EQ(ChildFrame(form)->close(), one.closed);
        const QString question =
            QLatin1String("Snapshot|Save changes to ") + stage.Path(QStringLiteral("Test.SNA")).toLower();
        EXPECT_EQ(Listed(stage), one.asked ? QStringList(question + QLatin1Char('?')) : QStringList());
        EXPECT_EQ(iSnapshotCount, one.closed ? 1 : 2);
        EXPECT_EQ(stage.ReadFile(QStringLiteral("Test.SNA")) != bytes, one.saved);
        EXPECT_EQ(stage.TakeNotices(QStringLiteral("UpdateToolbars SNAPSHOT 0")), 0);
        if (one.closed) {
            EXPECT_TRUE(ChildFrame(other)->close());
            EXPECT_EQ(stage.TakeNotices(QStringLiteral("UpdateToolbars SNAPSHOT 0")), 1) << "the last one";
        } else {
            EXPECT_EQ(probe.Changed(), -1);
        }
    }
}

TEST(Closing, DoesNotAskInsideTheQuestion) {
    SnapshotStage stage;
    frmSnapshot* form = stage.Open(NoiseBytes(100));
    SnapshotProbe{*form}.Changed() = -1;
    int questions = 0;
    SetMessageBoxAnswerer([&](const MessageBox&) {
        ++questions;
        form->close(); // answered at once, whatever it is
        EXPECT_EQ(iSnapshotCount, 1);
        return BoxAnswer::No;
    });
    EXPECT_TRUE(ChildFrame(form)->close());
    EXPECT_EQ(questions, 1);
    EXPECT_EQ(iSnapshotCount, 0);
}

TEST(Closing, AsksForAnotherNameWhenTheSaveFails) {
    SnapshotStage stage;
    frmSnapshot* form = stage.Open(NoiseBytes(100));
    SnapshotProbe{*form}.Changed() = -1;
    ASSERT_TRUE(QFile(form->GetFilename()).setPermissions(QFile::ReadOwner));
    stage.answers = {BoxAnswer::Yes, BoxAnswer::Yes};
    stage.files = {stage.Path(QStringLiteral("Rescue"))};
    EXPECT_TRUE(ChildFrame(form)->close());
    EXPECT_EQ(stage.ReadFile(QStringLiteral("rescue")).size(), 100U);
}

TEST(WritePixel, RedrawsOnlyThePixelAndAlwaysMarksTheChange) {
    SnapshotStage stage;
    Settings.iDefaultWidth = 16;
    Settings.iDefaultLines = 8;
    frmSnapshot* form = stage.Open(std::vector<std::uint8_t>(2, 0));
    const SnapshotProbe probe{*form};
    form->SetZoom(3);
    form->SetFlip(1);
    probe.Memory().Bytes()[1] = 0x40; // changed behind the picture's back
    probe.WritePixel(16 * 4 - 1, 8 * 4 - 1, 1, true);
    const lmk::BitPicture& shown = probe.Picture().hDC().Picture();
    EXPECT_EQ(probe.Memory().Bytes()[1], 0x41);
    EXPECT_TRUE(shown.PixelAt(15, 7));
    EXPECT_FALSE(shown.PixelAt(9, 7)) << "the rest of the picture is not drawn again";
    form->ShowMem();
    EXPECT_TRUE(shown.PixelAt(9, 7)) << "the clip is gone";

    probe.Changed() = 0;
    probe.WritePixel(-1, 0, 1, true);
    EXPECT_EQ(probe.Changed(), -1);
    EXPECT_EQ(probe.Memory().Bytes()[0], 0);
}

} // namespace
} // namespace lumrake
