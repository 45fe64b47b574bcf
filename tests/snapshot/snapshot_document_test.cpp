#include "snapshot/snapshot_probe.h"

#include <QCloseEvent>
#include <QMdiSubWindow>

namespace lumrake {
namespace {

using SnapshotDocument = testing::SnapshotTest;

TEST_F(SnapshotDocument, OpensUnderItsLowerCaseName) {
    Settings.lDefaultOffset = 1000;
    const QString sFile = MakeFile(QStringLiteral("Mixed Case.SNA"), testing::NoiseBytes(1000));
    const SnapshotProbe probe{*Launch("MIXED CASE.SNA")};
    EXPECT_EQ(probe.form.GetFilename(), sFile) << "as the disk spells it";
    EXPECT_EQ(probe.form.windowTitle(), QStringLiteral("mixed case.sna"));
    EXPECT_EQ(probe.Status().accessibleDescription(), sFile.toLower() + u"; 1000 bytes; 1x; "_qs);
    EXPECT_EQ(probe.Texts(), "999 256 192 1") << "an offset at the length is the last byte";
    EXPECT_EQ(probe.Box(0).selectedText(), QStringLiteral("999")) << "a number can be typed at once";
}

TEST_F(SnapshotDocument, RefusesWhatIsNone) {
    MakeFile(QStringLiteral("empty"), {});
    QFile huge(Path(QStringLiteral("huge")));
    ASSERT_TRUE(huge.open(QIODevice::WriteOnly) && huge.resize(2147483648LL));
    const char* const cases[][2] = {{"missing", "Open file|File not found!"},
                                    {"empty", "The file is empty."},
                                    {".", "It is a directory."},
                                    {"huge", "longer than 2147483647 bytes"}};
    for (const auto& [name, message] : cases) {
        EXPECT_EQ(Launch(name), nullptr) << name;
        EXPECT_TRUE(boxes.back().startsWith(QLatin1String("Open file|")));
        EXPECT_TRUE(boxes.back().contains(QLatin1String(message))) << message;
    }
    EXPECT_EQ(boxes.size(), std::size(cases));
    EXPECT_EQ(iSnapshotCount, 0);
    EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
}

TEST_F(SnapshotDocument, AsksOnClosingAndCountsTheWindowOut) {
    using enum BoxAnswer;
    // changed, prompt, what is asked and answered
    const std::tuple<std::int16_t, std::int16_t, std::deque<BoxAnswer>> cases[] = {
        {0, 1, {}}, {-1, 0, {}}, {-1, 1, {Cancel}}, {-1, 1, {No}}, {-1, 1, {Yes}}};
    for (const auto& [changed, prompt, answer] : cases) {
        const bool closes = answer != std::deque{Cancel};
        const SnapshotProbe probe = Open(100);
        iSnapshotCount = 2; // another one is open
        probe.Memory().data()[0] ^= 255;
        probe.Changed() = changed;
        Settings.bPromptSave = prompt;
        answers = answer;
        EXPECT_EQ(ChildFrame(&probe.form)->close(), closes);
        EXPECT_TRUE(answers.empty());
        EXPECT_EQ(iSnapshotCount, closes ? 1 : 2);
        EXPECT_EQ(ReadFile(u"Test.SNA"_qs) != testing::NoiseBytes(100), answer == std::deque{Yes});
        EXPECT_TRUE(closes || probe.Changed() == -1);
    }
    EXPECT_EQ(boxes[0], u"Snapshot|Save changes to %1?"_qs.arg(Path(u"Test.SNA"_qs).toLower()));
}

TEST_F(SnapshotDocument, AsksOnceForEachClosing) {
    const SnapshotProbe probe = Open(100);
    Open(100); // the active one
    probe.Changed() = -1;
    int questions = 0;
    SetMessageBoxAnswerer([&](const MessageBox&) {
        ++questions;
        EXPECT_TRUE(area.currentSubWindow()->widget() == &probe.form) << "the one that is asked about";
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
