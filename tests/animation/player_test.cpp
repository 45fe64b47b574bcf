#include "animation/anim_support.h"
#include "animation/animation_commands.h"

namespace lumrake::testing {
namespace {

class Player : public ::testing::Test, public Stage {
  protected:
    Player() : record(SampleRecord(MakeFile(QStringLiteral("game.sna"), bytes))) {}
    ~Player() override { GlobalAnim = AnimationRecord(); }
    bool Open(frmAnimation& player) {
        return player.Launch(MakeFile(QStringLiteral("Walk.anm"), EncodeAnimation(record)));
    }
    bool OpenNew(frmAnimation& player) {
        GlobalAnim = record;
        const WhenSetup driver([](frmAnimSetup& setup) { Press(setup, "cmdSetup(0)"); });
        return player.Launch(QString());
    }

    std::vector<std::uint8_t> bytes = NoiseBytes(256);
    AnimationRecord record;
    frmAnimation form;
    AnimationProbe probe{form};
};

TEST_F(Player, OpensStoppedOnFrame0AndSavesTheRecordAsHeld) {
    record.sAnimFile.Set("/another/place.anm");
    record.iWidth = 17;
    record.iZoom = 9;
    record.lFileLength = 120; // the last frame has 8 bytes left
    ASSERT_TRUE(Open(form));
    EXPECT_EQ(form.windowTitle(), QStringLiteral("Walk"));
    EXPECT_EQ(iAnimationCount, 1);
    EXPECT_FALSE(probe.Playing() || probe.Changed());
    EXPECT_EQ(probe.State().iCurrentFrame, 0);
    form.PreviousFrame();
    const lmk::BitPicture& shown = probe.Picture().hDC().Picture();
    EXPECT_EQ(shown.Row(3)[1], bytes[7 * 16 + 7]);
    EXPECT_EQ(shown.Row(4)[0], 0);
    EXPECT_TRUE(SaveAnimationCommand(form));
    AnimationRecord expected = HeldForUse(record, 256);
    expected.sAnimFile.Set(form.GetFilename().toStdString());
    const auto saved = EncodeAnimation(expected);
    EXPECT_EQ(ReadFile(QStringLiteral("Walk.anm")), std::vector<std::uint8_t>(saved.begin(), saved.end()));
}

TEST_F(Player, EachWayOutOfAMissingSnapshot) {
    const QString sThere = QString::fromStdString(record.sSnapFile.Trimmed());
    record.sSnapFile.Set("/gone.sna");
    record.lFileLength = 100;
    answers = {BoxAnswer::No, BoxAnswer::Yes, BoxAnswer::Yes};
    EXPECT_FALSE(Open(form));
    for (const bool okay : {false, true}) {
        EXPECT_EQ(iAnimationCount, 0);
        const WhenSetup driver([&](frmAnimSetup& setup) {
            Field(setup, 0)->setText(sThere);
            Press(setup, okay ? "cmdSetup(0)" : "cmdSetup(1)");
        });
        EXPECT_EQ(Open(form), okay);
    }
    EXPECT_EQ(probe.Bytes(), 100U) << "the record's length, not the new file's";
    EXPECT_EQ(boxes,
              std::vector<QString>(3, QStringLiteral("Animation|The snapshot associated with this animation "
                                                     "cannot be found.  Select another?")));
}

TEST_F(Player, WhatIsNoAnimationIsToldAndOpensNothing) {
    const auto encoded = EncodeAnimation(record);
    MakeFile(QStringLiteral("short.anm"), std::span(encoded).first(758));
    for (const char* file : {"short.anm", "."}) {
        EXPECT_FALSE(form.Launch(Path(QString::fromLatin1(file))));
        EXPECT_TRUE(boxes.back().startsWith(QStringLiteral("Animation|The animation ")));
    }
    EXPECT_EQ(boxes.size(), 2U);
    EXPECT_EQ(iAnimationCount, 0);
}

TEST_F(Player, OnceOnlyComesToRestOnFrame0) {
    record.iRepeat = kOnceOnly;
    record.iPause = 1;
    ASSERT_TRUE(Open(form));
    form.Play();
    EXPECT_TRUE(QTest::qWaitFor([&] { return probe.State().iCurrentFrame > 0; }, 20000));
    EXPECT_TRUE(QTest::qWaitFor([&] { return !probe.Playing(); }, 20000));
    EXPECT_EQ(probe.State().iCurrentFrame, 0);
}

TEST_F(Player, ZoomingGoesOnPlayingOnTheSameFrame) {
    record.iZoom = 4;
    record.iPause = 30000;
    ASSERT_TRUE(Open(form));
    probe.State() = {3, -1};
    form.Play();
    for (const int zoom : {5, 5}) {
        QTest::mouseClick(&probe.Picture(), Qt::LeftButton);
        EXPECT_EQ(form.GetZoom(), zoom);
        EXPECT_TRUE(probe.Playing() && probe.Changed());
        EXPECT_EQ(probe.State().iCurrentFrame, 3);
        EXPECT_EQ(probe.State().iDirection, -1);
    }
}

TEST_F(Player, SetupGoesBackToFrame0AndReadsNoFile) {
    record.sSnapFile.Set("GAME.SNA"); // found beside the animation, by the dialog too, without regard to case
    ASSERT_TRUE(Open(form));
    MakeFile(QStringLiteral("game.sna"), NoiseBytes(99, 2));
    for (const bool change : {false, true}) {
        probe.Control(3).setFocus();
        probe.Control(3).click();
        EXPECT_EQ(form.focusWidget(), &probe.Picture());
        const WhenSetup driver([change](frmAnimSetup& setup) {
            if (change) {
                Type(setup, 4, "32");
            }
            Press(setup, "cmdSetup(0)");
        });
        change ? QTest::keyClick(&probe.Picture(), Qt::Key_S, Qt::AltModifier) : probe.Control(4).click();
        EXPECT_EQ(probe.State().iCurrentFrame, 0);
        EXPECT_EQ(probe.Changed(), change);
        EXPECT_EQ(probe.Picture().height(), change ? 36 : 12);
        EXPECT_EQ(probe.Bytes(), bytes.size());
        EXPECT_EQ(probe.Record().sSnapFile, record.sSnapFile);
    }
}

TEST_F(Player, ClosesAsTheUserAnswers) {
    using enum BoxAnswer;
    // named, changed, prompt, what is asked and answered; a new one is named in a dialog that is then cancelled
    const std::tuple<bool, bool, std::int16_t, std::deque<BoxAnswer>> cases[] = {
        {true, false, 1, {}},   {true, true, 0, {}},     {true, true, 1, {Cancel}}, {true, true, 1, {No}},
        {true, true, 1, {Yes}}, {false, true, 1, {Yes}}, {false, true, 1, {Cancel}}};
    for (const auto& [named, changed, prompt, answer] : cases) {
        frmAnimation player;
        iAnimationCount = 0;
        Settings.bPromptSave = prompt;
        ASSERT_TRUE(named ? Open(player) : OpenNew(player));
        player.SetZoom(2);
        player.SetChanged(changed ? std::int16_t{-1} : std::int16_t{0});
        answers = answer;
        files.assign(!named && answer == std::deque{Yes} ? 1 : 0, QString());
        const bool closes = answer != std::deque{Cancel};
        EXPECT_EQ(player.close(), closes);
        EXPECT_EQ(iAnimationCount, closes ? 0 : 1);
        EXPECT_EQ(TakeNotices(QStringLiteral("UpdateToolbars ANIMATION 0")), closes ? 1 : 0);
        EXPECT_TRUE(answers.empty() && files.empty());
        if (named) {
            EXPECT_EQ(ReadFile(QStringLiteral("Walk.anm")).at(234) == 2, answer == std::deque{Yes});
        }
    }
    EXPECT_TRUE(boxes.front().startsWith(QLatin1String("Animation|Save changes to /")));
    EXPECT_EQ(boxes.back(), QStringLiteral("Animation|Save new animation?"));
}

} // namespace
} // namespace lumrake::testing
