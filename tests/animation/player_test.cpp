#include "animation/anim_support.h"
#include "animation/animation_commands.h"
#include "snapshot/frmSnapshot.h"

namespace lumrake::testing {
namespace {

class Player : public ::testing::Test, public Stage {
  protected:
    Player() : record(SampleRecord(MakeFile(QStringLiteral("game.sna"), bytes))) {}
    ~Player() override { GlobalAnim = AnimationRecord(); }
    bool Open() { return form.Launch(MakeFile(QStringLiteral("Walk.anm"), EncodeAnimation(record))); }
    bool OpenNew() {
        GlobalAnim = record;
        const WhenSetup driver([](frmAnimSetup& setup) { Press(setup, "cmdSetup(0)"); });
        return form.Launch(QString());
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
    record.iUpsideDown = 1;
    record.lFileLength = 120; // the last frame has 8 bytes left
    ASSERT_TRUE(Open());
    EXPECT_EQ(form.windowTitle(), QStringLiteral("Walk"));
    EXPECT_EQ(form.GetFilename(), Path(QStringLiteral("Walk.anm")));
    EXPECT_EQ(iAnimationCount, 1);
    EXPECT_FALSE(probe.Playing() || probe.Changed());
    const lmk::BitPicture& shown = probe.Picture().hDC().Picture();
    EXPECT_EQ(shown.Row(4)[1], bytes[7]);
    form.PreviousFrame();
    EXPECT_EQ(shown.Row(4)[1], bytes[7 * 16 + 7]);
    EXPECT_EQ(shown.Row(3)[0], 0);
    EXPECT_TRUE(SaveAnimationCommand(form));
    const auto saved = ReadFile(QStringLiteral("Walk.anm"));
    ASSERT_EQ(saved.size(), kAnimationBytes);
    AnimationRecord expected = HeldForUse(record, 256);
    expected.sAnimFile.Set(form.GetFilename().toStdString());
    EXPECT_EQ(DecodeAnimation(std::span(saved).first<kAnimationBytes>()), expected);
}

TEST_F(Player, EachWayOutOfAMissingSnapshot) {
    const QString sThere = QString::fromStdString(record.sSnapFile.Trimmed());
    record.sSnapFile.Set("/gone.sna");
    record.lFileLength = 100;
    answers = {BoxAnswer::No, BoxAnswer::Yes, BoxAnswer::Yes};
    EXPECT_FALSE(Open());
    for (const char* button : {"cmdSetup(1)", "cmdSetup(0)"}) {
        EXPECT_EQ(iAnimationCount, 0);
        const WhenSetup driver([&](frmAnimSetup& setup) {
            Field(setup, 0)->setText(sThere);
            Press(setup, button);
        });
        EXPECT_EQ(Open(), button == std::string("cmdSetup(0)"));
    }
    EXPECT_EQ(iAnimationCount, 1);
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
    ASSERT_TRUE(Open());
    form.Play();
    EXPECT_TRUE(QTest::qWaitFor([&] { return probe.State().iCurrentFrame > 0; }, 20000));
    EXPECT_TRUE(QTest::qWaitFor([&] { return !probe.Playing(); }, 20000));
    EXPECT_EQ(probe.State().iCurrentFrame, 0);
}

TEST_F(Player, ZoomingGoesOnPlayingOnTheSameFrame) {
    record.iZoom = 4;
    record.iPause = 30000;
    ASSERT_TRUE(Open());
    probe.State() = {3, -1};
    form.Play();
    const std::pair<Qt::MouseButton, std::int16_t> clicks[] = {{Qt::MiddleButton, 4},
                                                               {Qt::LeftButton, 5},
                                                               {Qt::LeftButton, 5},
                                                               {Qt::RightButton, 4},
                                                               {Qt::RightButton, 3}};
    for (const auto& [button, zoom] : clicks) {
        QTest::mouseClick(&probe.Picture(), button, {}, {5, 5});
        EXPECT_EQ(form.GetZoom(), zoom);
        EXPECT_EQ(probe.Changed(), button != Qt::MiddleButton);
        EXPECT_EQ(probe.Picture().width(), (16 << (zoom - 1)) + 4);
        EXPECT_TRUE(probe.Playing());
    }
    EXPECT_EQ(probe.State().iCurrentFrame, 3);
    EXPECT_EQ(probe.State().iDirection, -1);
}

TEST_F(Player, SetupGoesBackToFrame0AndReadsNoFile) {
    record.sSnapFile.Set("GAME.SNA"); // found beside the animation, by the dialog too, without regard to case
    ASSERT_TRUE(Open());
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

struct Closing {
    bool changed, prompt, named;
    std::deque<BoxAnswer> answers;
    std::deque<const char*> files; ///< what the Save as dialog gives; "" is a cancel
    bool closes;
    const char* saved; ///< the file that holds the zoom 2 afterwards, "" for none
};

class Closes : public Player, public ::testing::WithParamInterface<Closing> {};

TEST_P(Closes, AsTheUserAnswers) {
    const Closing& each = GetParam();
    Settings.bPromptSave = each.prompt ? std::int16_t{1} : std::int16_t{0};
    ASSERT_TRUE(each.named ? Open() : OpenNew());
    form.SetZoom(2);
    form.SetChanged(each.changed ? std::int16_t{-1} : std::int16_t{0});
    answers = each.answers;
    for (const char* file : each.files) {
        files.push_back(*file == '\0' ? QString() : Path(QString::fromLatin1(file)));
    }
    EXPECT_EQ(form.close(), each.closes);
    EXPECT_EQ(iAnimationCount, each.closes ? 0 : 1);
    EXPECT_EQ(TakeNotices(QStringLiteral("UpdateToolbars ANIMATION 0")), each.closes ? 1 : 0);
    EXPECT_TRUE(answers.empty() && files.empty());
    if (!boxes.empty()) {
        EXPECT_TRUE(boxes[0].startsWith(
            QLatin1String(each.named ? "Animation|Save changes to /" : "Animation|Save new animation?")));
    }
    for (const char* file : {"Walk.anm", "new.anm"}) {
        const QString name = QString::fromLatin1(file);
        EXPECT_EQ(QFile::exists(Path(name)) && ReadFile(name).at(234) == 2, std::string(file) == each.saved);
    }
}

using enum BoxAnswer;
// clang-format off
INSTANTIATE_TEST_SUITE_P(All, Closes, ::testing::Values(
    Closing{false, true,  true,  {},              {},                     true,  ""},
    Closing{true,  false, true,  {},              {},                     true,  ""},
    Closing{true,  true,  true,  {Cancel},        {},                     false, ""},
    Closing{true,  true,  true,  {Yes},           {},                     true,  "Walk.anm"},
    Closing{true,  true,  false, {Yes},           {"New.ANM"},            true,  "new.anm"},
    Closing{true,  true,  false, {Yes},           {""},                   true,  ""}, // no name, no file
    Closing{true,  true,  false, {Yes, Yes, Yes}, {"no/x", "", "new.anm"}, true, "new.anm"},
    Closing{true,  true,  false, {Yes, No},       {"no/x"},               true,  ""}));
// clang-format on

TEST_F(Player, SaveAsksForANameOnce) {
    ASSERT_TRUE(OpenNew());
    files = {Path(QStringLiteral("new.anm")), Path(QStringLiteral("NEW.anm"))};
    EXPECT_TRUE(SaveAnimationCommand(form));
    EXPECT_TRUE(SaveAnimationCommand(form)); // to its own file, without a question
    answers = {BoxAnswer::No};               // not over the old one
    EXPECT_FALSE(SaveAnimationAs(form));
    EXPECT_TRUE(answers.empty() && files.empty());
}

TEST_F(Player, AnimateSeedsTheDialogFromTheView) {
    using View = std::tuple<std::int16_t, std::int16_t, std::int16_t, std::int16_t, std::int32_t>;
    const std::pair<std::int16_t, View> views[] = {
        {kLineMasks, {3, 16, 8, 4, 32}}, {kByteMasks, {4, 24, 5, 2, 30}}, {kText, {0, 64, 16, 1, 128}}};
    for (const auto& [mode, view] : views) {
        Settings.iDefaultMode = mode;
        std::tie(std::ignore, Settings.iDefaultWidth, Settings.iDefaultLines, Settings.iDefaultColumns,
                 std::ignore) = view;
        frmSnapshot snapshot;
        ASSERT_TRUE(snapshot.Launch(Path(QStringLiteral("game.sna")), QStringLiteral("game.sna")));
        const WhenSetup driver([](frmAnimSetup& setup) { setup.close(); });
        AnimateSnapshot(snapshot);
        const AnimationRecord& seed = GlobalAnim;
        EXPECT_EQ(View(seed.iMode, seed.iWidth, seed.iLines, seed.iFrames, seed.lStep), view);
        EXPECT_EQ(seed.sSnapFile.Trimmed(), snapshot.GetFilename().toStdString());
    }
    EXPECT_EQ(iAnimationCount, 0);
}

} // namespace
} // namespace lumrake::testing
