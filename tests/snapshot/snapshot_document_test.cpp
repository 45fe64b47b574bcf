#include "snapshot/snapshot_probe.h"

#include <QCloseEvent>
#include <QDir>
#include <QMdiSubWindow>

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
}

TEST_F(SnapshotDocument, RefusesWhatIsNone) {
    stage.MakeFile(QStringLiteral("empty"), {});
    QFile huge(stage.Path(QStringLiteral("huge")));
    ASSERT_TRUE(huge.open(QIODevice::WriteOnly) && huge.resize(2147483648LL));
    const char* const cases[][2] = {{"missing", "Open file|File not found!"},
                                    {"empty", "The file is empty."},
                                    {".", "It is a directory."},
                                    {"huge", "longer than 2147483647 bytes"}};
    for (const auto& [name, message] : cases) {
        EXPECT_EQ(Launch(name), nullptr) << name;
        EXPECT_TRUE(stage.boxes.back().startsWith(QLatin1String("Open file|")));
        EXPECT_TRUE(stage.boxes.back().contains(QLatin1String(message))) << message;
    }
    EXPECT_EQ(stage.boxes.size(), std::size(cases));
    EXPECT_EQ(iSnapshotCount, 0);
    EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
}

TEST_F(SnapshotDocument, AsksOnClosingAndCountsTheWindowOut) {
    using enum BoxAnswer;
    const std::tuple<std::int16_t, std::int16_t, std::deque<BoxAnswer>, bool> cases[] = {
        {0, 1, {}, true},
        {-1, 0, {}, true},
        {-1, 1, {Cancel}, false},
        {-1, 1, {No}, true},
        {-1, 1, {Yes}, true}};
    for (const auto& [changed, prompt, answers, closes] : cases) {
        const SnapshotProbe probe = Open(100);
        iSnapshotCount = 2; // another one is open
        probe.Memory().data()[0] ^= 255;
        probe.Changed() = changed;
        Settings.bPromptSave = prompt;
        stage.answers = answers;
        EXPECT_EQ(ChildFrame(&probe.form)->close(), closes);
        EXPECT_TRUE(stage.answers.empty()) << "it was asked";
        EXPECT_EQ(iSnapshotCount, closes ? 1 : 2);
        EXPECT_EQ(stage.ReadFile(QStringLiteral("Test.SNA")) != testing::NoiseBytes(100),
                  answers == std::deque{Yes});
        EXPECT_TRUE(closes || probe.Changed() == -1);
    }
    EXPECT_EQ(stage.boxes[0], u"Snapshot|Save changes to %1?"_qs.arg(stage.Path(u"Test.SNA"_qs).toLower()));
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
    EXPECT_EQ(questions, 1);
    EXPECT_EQ(iSnapshotCount, 1);
}

} // namespace
} // namespace lumrake
