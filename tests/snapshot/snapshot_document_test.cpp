#include "snapshot/snapshot_probe.h"

#include <QCloseEvent>
#include <QDir>
#include <QFile>
#include <QMdiSubWindow>
#include <QProgressBar>

namespace lumrake {
namespace {

using SnapshotDocument = testing::SnapshotTest;

TEST_F(SnapshotDocument, OpensUnderItsLowerCaseName) {
    Settings.lDefaultOffset = 1000;
    stage.MakeFile(QStringLiteral("Mixed Case.SNA"), testing::NoiseBytes(1000));
    frmSnapshot* form = Launch("MIXED CASE.SNA");
    ASSERT_NE(form, nullptr);
    const SnapshotProbe probe{*form};
    EXPECT_EQ(form->GetFilename(), stage.Path(QStringLiteral("Mixed Case.SNA"))) << "as the disk spells it";
    EXPECT_EQ(form->windowTitle(), QStringLiteral("mixed case.sna"));
    EXPECT_EQ(probe.Status().accessibleDescription(),
              form->GetFilename().toLower() + QLatin1String("; 1000 bytes; 1x; "));
    EXPECT_EQ(probe.Texts(), "999 256 192 1") << "an offset at the length is the last byte";
    EXPECT_EQ(probe.Box(0).selectedText(), QStringLiteral("999")) << "a number can be typed at once";
    EXPECT_EQ(iSnapshotCount, 1);
    EXPECT_TRUE(form->isVisible());
    EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
}

TEST_F(SnapshotDocument, RefusesWhatIsNone) {
    stage.MakeFile(QStringLiteral("empty"), {});
    ASSERT_TRUE(QDir(stage.Path(QString())).mkdir(QStringLiteral("folder")));
    QFile huge(stage.Path(QStringLiteral("huge")));
    ASSERT_TRUE(huge.open(QIODevice::WriteOnly) && huge.resize(2147483648LL));
    const char* const cases[][2] = {{"missing", "Open file|File not found!"},
                                    {"empty", "The file is empty."},
                                    {"folder", "It is a directory."},
                                    {"huge", "longer than 2147483647 bytes"}};
    for (const auto& [name, message] : cases) {
        EXPECT_EQ(Launch(name), nullptr) << name;
        EXPECT_TRUE(stage.boxes.back().startsWith(QLatin1String("Open file|")));
        EXPECT_TRUE(stage.boxes.back().contains(QLatin1String(message))) << message;
    }
    EXPECT_EQ(stage.boxes.size(), std::size(cases));
    EXPECT_EQ(iSnapshotCount, 0);
    EXPECT_TRUE(stage.area.subWindowList().isEmpty());
    EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
}

TEST_F(SnapshotDocument, IsSavedWholeAndTakesTheName) {
    const SnapshotProbe probe = Open(3000);
    const QString sLonger = stage.MakeFile(QStringLiteral("Longer"), testing::NoiseBytes(9000, 2));
    probe.WritePixel(3, 0, 1);
    EXPECT_FALSE(probe.form.SaveSnap(QString(), QStringLiteral("x"))) << "no name, nothing done";
    QString sReason;
    EXPECT_FALSE(probe.form.SaveSnap(stage.Path(QStringLiteral("no/dir")), QStringLiteral("dir"), &sReason));
    EXPECT_FALSE(sReason.isEmpty());
    EXPECT_TRUE(stage.boxes.empty()) << "a reason that goes to the caller is not told";
    EXPECT_FALSE(probe.form.SaveSnap(stage.Path(QStringLiteral("no/dir")), QStringLiteral("dir")));
    EXPECT_TRUE(stage.boxes.at(0).startsWith(QLatin1String("Save|")));
    EXPECT_EQ(probe.Changed(), -1);
    EXPECT_EQ(probe.form.windowTitle(), QStringLiteral("test.sna"));
    EXPECT_TRUE(probe.Progress().isHidden());

    EXPECT_TRUE(probe.form.SaveSnap(sLonger, QStringLiteral("Longer")));
    const auto bytes = probe.Memory().Bytes();
    EXPECT_EQ(stage.ReadFile(QStringLiteral("Longer")),
              std::vector<std::uint8_t>(bytes.begin(), bytes.end()));
    EXPECT_EQ(probe.Changed(), 0);
    EXPECT_EQ(probe.form.GetFilename(), sLonger);
    EXPECT_EQ(probe.form.windowTitle(), QStringLiteral("longer"));
    EXPECT_EQ(probe.Status().PanelAt(1).Text, sLonger.toLower());
    EXPECT_TRUE(probe.Progress().isHidden());
}

TEST_F(SnapshotDocument, AsksOnClosingAndCountsTheWindowOut) {
    struct Case {
        std::int16_t changed, prompt;
        BoxAnswer answer;
        bool asked, closed, saved;
    };
    // clang-format off
    const Case cases[] = {
        { 0, 1, BoxAnswer::No,     false, true,  false},
        {-1, 0, BoxAnswer::No,     false, true,  false},
        {-1, 1, BoxAnswer::Cancel, true,  false, false},
        {-1, 1, BoxAnswer::No,     true,  true,  false},
        {-1, 1, BoxAnswer::Yes,    true,  true,  true},
    };
    // clang-format on
    for (const Case& one : cases) {
        const SnapshotProbe other = Open(100), probe = Open(100);
        iSnapshotCount = 2;
        probe.Memory().data()[0] ^= 255;
        probe.Changed() = one.changed;
        Settings.bPromptSave = one.prompt;
        stage.answers = {one.answer};
        stage.boxes.clear();
        stage.notices.clear();
        EXPECT_EQ(ChildFrame(&probe.form)->close(), one.closed);
        EXPECT_EQ(stage.boxes.size(), one.asked ? 1U : 0U);
        const QString sFile = stage.Path(QStringLiteral("Test.SNA")).toLower();
        EXPECT_TRUE(!one.asked ||
                    stage.boxes[0] == QLatin1String("Snapshot|Save changes to ") + sFile + QLatin1Char('?'));
        EXPECT_EQ(iSnapshotCount, one.closed ? 1 : 2);
        EXPECT_EQ(stage.ReadFile(QStringLiteral("Test.SNA")) != testing::NoiseBytes(100), one.saved);
        EXPECT_EQ(stage.TakeNotices(QStringLiteral("UpdateToolbars SNAPSHOT 0")), 0);
        EXPECT_TRUE(one.closed || probe.Changed() == -1);
        EXPECT_TRUE(ChildFrame(&other.form)->close());
        EXPECT_EQ(stage.TakeNotices(QStringLiteral("UpdateToolbars SNAPSHOT 0")), one.closed ? 1 : 0);
    }
}

TEST_F(SnapshotDocument, AsksOnceForEachClosing) {
    const SnapshotProbe probe = Open(100);
    Open(100); // the active one
    probe.Changed() = -1;
    int questions = 0;
    SetMessageBoxAnswerer([&](const MessageBox&) {
        ++questions;
        EXPECT_TRUE(stage.area.currentSubWindow()->widget() == &probe.form) << "the one that is asked about";
        QCloseEvent again;
        QCoreApplication::sendEvent(&probe.form, &again);
        EXPECT_FALSE(again.isAccepted());
        return BoxAnswer::No;
    });
    EXPECT_TRUE(probe.form.close());
    QCloseEvent after;
    QCoreApplication::sendEvent(&probe.form, &after);
    EXPECT_TRUE(after.isAccepted());
    EXPECT_EQ(questions, 1);
    EXPECT_EQ(iSnapshotCount, 1);
}

TEST_F(SnapshotDocument, AsksForAnotherNameWhenTheSaveOnClosingFails) {
    const SnapshotProbe probe = Open(100);
    probe.Changed() = -1;
    ASSERT_TRUE(QFile(probe.form.GetFilename()).setPermissions(QFile::ReadOwner));
    stage.answers = {BoxAnswer::Yes, BoxAnswer::Yes};
    stage.files = {stage.Path(QStringLiteral("Rescue"))};
    EXPECT_TRUE(ChildFrame(&probe.form)->close());
    EXPECT_EQ(stage.ReadFile(QStringLiteral("rescue")).size(), 100U);
}

TEST_F(SnapshotDocument, APixelIsRedrawnAloneAndAlwaysMarksTheChange) {
    const SnapshotProbe probe = Open(2, 16, 8);
    const auto bytes = probe.Memory().Bytes();
    bytes[0] = bytes[1] = 0;
    probe.form.SetZoom(3);
    probe.form.SetFlip(1);
    bytes[1] = 0x40; // behind the picture's back
    probe.WritePixel(16 * 4 - 1, 8 * 4 - 1, 1);
    const lmk::BitPicture& shown = probe.Picture().hDC().Picture();
    EXPECT_EQ(bytes[1], 0x41);
    EXPECT_TRUE(shown.PixelAt(15, 7));
    EXPECT_FALSE(shown.PixelAt(9, 7)) << "the rest of the picture is not drawn again";
    probe.form.ShowMem();
    EXPECT_TRUE(shown.PixelAt(9, 7)) << "the clip is gone";
    probe.Changed() = 0;
    probe.WritePixel(-1, 0, 1);
    EXPECT_EQ(probe.Changed(), -1);
}

} // namespace
} // namespace lumrake
