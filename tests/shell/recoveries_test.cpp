#include "animation/anim_support.h"
#include "disk/recovery_run.h"
#include "shell/kept_document.h"
#include "shell/main_stage.h"
#include "shell/window/animation_commands.h"
#include "shell/window/file_commands.h"
#include "snapshot/snapshot_probe.h"

#include <QDir>

namespace lumrake::testing {
namespace {

/// Runs that die with a change of a document, and start again.
struct DyingStage : MainStage {
    template <class Form> Form* Active() { return dynamic_cast<Form*>(MainWindow()->ActiveForm()); }
    /// The end of a process that nobody could answer: its lock is free.
    void Die() {
        EndRun();
        EndRecoveryRun();
        iSnapshotCount = iAnimationCount = 0;
        boxes.clear();
    }
    std::size_t Kept() const {
        return static_cast<std::size_t>(QDir(Path(u"lumrake"_qs)).entryList({u"*.changes"_qs}).size());
    }
    /// The next start, whose one box is answered so.
    void StartAgain(BoxAnswer answer) {
        answers = {answer};
        Start();
        EXPECT_EQ(boxes.size(), 1U);
    }
};

TEST(Recoveries, OfASnapshotAreAskedAboutAtTheNextStart) {
    using Bytes = std::vector<std::uint8_t>;
    const char *offer = "test.sna. Bring them back?", *changed = "changed since", *zeros = "reads 0",
               *gone = "cannot be found";
    // clang-format off
    const struct { const char* meanwhile; BoxAnswer answer; const char* says; bool opens, stays; } rows[] = {
        {"",        BoxAnswer::Yes,    offer,   true,  true},
        {"",        BoxAnswer::No,     offer,   false, false},
        {"",        BoxAnswer::Cancel, offer,   false, true},
        {"changed", BoxAnswer::Yes,    changed, true,  true},
        {"longer",  BoxAnswer::Yes,    changed, true,  true},
        {"shorter", BoxAnswer::Yes,    zeros,   true,  true},
        {"gone",    BoxAnswer::Yes,    gone,    false, true},
        {"gone",    BoxAnswer::Cancel, gone,    false, true},
        {"gone",    BoxAnswer::No,     gone,    false, false},
        {"saved",   BoxAnswer::Cancel, nullptr, false, false},
    };
    // clang-format on
    for (const auto& row : rows) {
        SCOPED_TRACE(::testing::Message() << row.meanwhile << " " << static_cast<int>(row.answer));
        DyingStage stage;
        const QString name = u"Test.SNA"_qs;
        stage.Start();
        OpenSnapshotFile(stage.Snapshot(name));
        for (float x = 0; x < 20; ++x) { // some of them change a bit
            SnapshotProbe{*stage.Active<frmSnapshot>()}.Press(1, x, 3);
        }
        if (&row == rows) {
            EXPECT_TRUE(QTest::qWaitFor([&] { return stage.Kept() == 1; }, 20000)) << "by itself";
            QDir(stage.Path(u"lumrake"_qs)).removeRecursively(); // somebody clears it
            SnapshotProbe{*stage.Active<frmSnapshot>()}.Press(1, 3, 4);
            KeepAllDocuments();
            QDir(stage.Path(u"lumrake"_qs)).removeRecursively();
        }
        const Bytes drawn = SnapshotProbe{*stage.Active<frmSnapshot>()}.Bytes();
        KeepAllDocuments();
        stage.Die();

        Bytes now = stage.ReadFile(name), wanted = drawn;
        const std::string meanwhile = row.meanwhile;
        if (meanwhile == "changed" || meanwhile == "longer") {
            now[0] ^= 1;                   // in the block that is kept
            wanted[6900] = now[6900] ^= 1; // in another one
            now.resize(meanwhile == "changed" ? 6912 : 7000);
            wanted.resize(now.size());
        } else if (meanwhile == "shorter") {
            now.resize(0);
            wanted.resize(4096); // the block that is kept
        }
        stage.MakeFile(name, meanwhile == "saved" ? drawn : now);
        if (meanwhile == "gone") {
            QFile::remove(stage.Path(name));
        }
        stage.answers = {row.answer};
        stage.Start();
        ASSERT_EQ(stage.boxes.size(), row.says == nullptr ? 0U : 1U);
        EXPECT_TRUE(row.says == nullptr || stage.boxes[0].contains(Latin(row.says)))
            << stage.boxes[0].toStdString();
        EXPECT_EQ(stage.Kept(), row.stays ? 1U : 0U);
        ASSERT_EQ(stage.Active<frmSnapshot>() != nullptr, row.opens);
        if (!row.opens) {
            continue;
        }
        stage.Die(); // a second time, before anything was written
        stage.StartAgain(BoxAnswer::Yes);
        const SnapshotProbe probe{*stage.Active<frmSnapshot>()};
        EXPECT_EQ(probe.Bytes(), wanted);
        EXPECT_NE(probe.Changed(), 0);
        EXPECT_EQ(stage.Kept(), 1U);
        if (meanwhile.empty()) {
            stage.answers = {BoxAnswer::No};
        } else {
            EXPECT_FALSE(Save(probe.form));
            EXPECT_TRUE(stage.boxes.back().contains(u"has been changed by another program"_qs));
            stage.answers = {BoxAnswer::Yes};
            stage.files = {stage.Path(name)};
            EXPECT_TRUE(SaveAs(probe.form));
            EXPECT_EQ(stage.ReadFile(name), wanted);
        }
        EXPECT_TRUE(MainWindow()->close());
        EXPECT_EQ(QDir(stage.Path(u"lumrake"_qs)).entryList(QDir::Files | QDir::Hidden).size(), 0);
    }
}

TEST(Recoveries, OfAnimationsBringNewOnesBackToo) {
    for (const bool isNew : {false, true}) {
        DyingStage stage;
        stage.Start();
        const AnimationRecord sample = SampleRecord(stage.Snapshot(u"walk.sna"_qs));
        if (isNew) {
            GlobalAnim = sample;
            const WhenSetup okay([](frmAnimSetup& setup) { Press(setup, "cmdSetup(0)"); });
            NewAnimation();
        } else {
            stage.files = {stage.MakeFile(u"walk.anm"_qs, EncodeAnimation(sample))};
            OpenAnimationDialog();
        }
        stage.Active<frmAnimation>()->SetZoom(3);
        KeepAllDocuments();
        stage.Active<frmAnimation>()->SetZoom(2);
        KeepAllDocuments();
        stage.Die();
        stage.StartAgain(BoxAnswer::Yes);
        auto* form = stage.Active<frmAnimation>();
        ASSERT_NE(form, nullptr);
        EXPECT_EQ(form->GetZoom(), 2);
        EXPECT_TRUE(AnimationProbe{*form}.Changed());
        EXPECT_EQ(form->GetFilename(), isNew ? QString() : stage.Path(u"walk.anm"_qs));
        EXPECT_EQ(stage.Kept(), 1U);
        EXPECT_TRUE(form->SaveAnimation(stage.Path(u"walk.anm"_qs)).IsDone());
        EXPECT_EQ(stage.Kept(), 0U);
    }
}

TEST(Recoveries, AreRefusedAFolderThatIsALinkAndTheUserIsToldOnce) {
    DyingStage stage;
    QDir(stage.Path(QString())).mkdir(u"elsewhere"_qs);
    ASSERT_TRUE(QFile::link(stage.Path(u"elsewhere"_qs), stage.Path(u"lumrake"_qs)));
    stage.Start();
    OpenSnapshotFile(stage.Snapshot(u"Test.SNA"_qs));
    for (const char* told : {"Unsaved changes would be lost", "test.sna"}) {
        SnapshotProbe{*stage.Active<frmSnapshot>()}.Press(1, 3, 3);
        KeepAllDocuments();
        EXPECT_TRUE(MainProbe::Status(*MainWindow()).PanelAt(1).Text.startsWith(Latin(told)));
        MainWindow()->ShowCaption();
    }
    EXPECT_TRUE(QDir(stage.Path(u"elsewhere"_qs)).isEmpty());
}

} // namespace
} // namespace lumrake::testing
