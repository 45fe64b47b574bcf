#include "animation/anim_support.h"
#include "animation/animation_commands.h"
#include "snapshot/frmSnapshot.h"

#include <QCloseEvent>
#include <QMdiArea>
#include <QMdiSubWindow>

namespace lumrake::testing {
namespace {

/// Animations stand in an area like the main window's, or each by itself.
class Player : public ::testing::Test, public Stage {
  protected:
    Player() : record(SampleRecord(MakeFile(QStringLiteral("game.sna"), bytes))) {}
    ~Player() override { GlobalAnim = AnimationRecord(); }
    void AdoptChild(QWidget* child) override {
        if (hosting) {
            area.show();
            area.addSubWindow(child);
        }
    }

    QString Write() const { return MakeFile(QStringLiteral("Walk.anm"), EncodeAnimation(record)); }
    bool Open() { return form.Launch(Write()); }
    bool OpenNew() {
        GlobalAnim = record;
        const WhenSetup driver([](frmAnimSetup& setup) { Press(setup, "cmdSetup(0)"); });
        return form.Launch(QString());
    }

    std::vector<std::uint8_t> bytes = NoiseBytes(256);
    AnimationRecord record;
    bool hosting = false;
    QMdiArea area;
    std::unique_ptr<frmAnimation> owned = std::make_unique<frmAnimation>();
    frmAnimation& form = *owned;
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
    answers = {BoxAnswer::No};
    EXPECT_FALSE(Open());
    answers = {BoxAnswer::Yes};
    {
        const WhenSetup driver([](frmAnimSetup& setup) { Press(setup, "cmdSetup(1)"); });
        EXPECT_FALSE(Open());
    }
    EXPECT_EQ(iAnimationCount, 0);
    answers = {BoxAnswer::Yes};
    const WhenSetup driver([&sThere](frmAnimSetup& setup) {
        Field(setup, 0)->setText(sThere);
        Press(setup, "cmdSetup(0)");
    });
    EXPECT_TRUE(Open());
    EXPECT_EQ(iAnimationCount, 1);
    EXPECT_EQ(probe.Bytes(), 100U) << "the record's length, not the new file's";
    EXPECT_EQ(boxes,
              std::vector<QString>(3, QStringLiteral("Animation|The snapshot associated with this animation "
                                                     "cannot be found.  Select another?")));
}

TEST_F(Player, WhatCannotBeReadIsToldAndOpensNothing) {
    const auto encoded = EncodeAnimation(record);
    MakeFile(QStringLiteral("short.anm"), std::span(encoded).first(758));
    for (const char* file : {"short.anm", "none.anm", "."}) {
        EXPECT_FALSE(form.Launch(Path(QString::fromLatin1(file))));
        EXPECT_TRUE(boxes.back().startsWith(QStringLiteral("Animation|The animation ")));
    }
    EXPECT_EQ(boxes.size(), 3U);
    EXPECT_EQ(iAnimationCount, 0);
}

TEST_F(Player, ButtonsFollowTheState) {
    ASSERT_TRUE(Open());
    const struct {
        std::size_t button;
        const char* enabled; ///< of the five buttons afterwards
        int frame;
    } clicks[] = {{2, "01000", 0}, {1, "10111", 0}, {3, "10111", 1}, {0, "10111", 0}, {0, "10111", 7}};
    for (const auto& click : clicks) {
        probe.Control(click.button).setFocus();
        probe.Control(click.button).click();
        for (std::size_t i = 0; i < 5; ++i) {
            EXPECT_EQ(probe.Control(i).isEnabled(), click.enabled[i] == '1');
        }
        EXPECT_EQ(probe.Playing(), click.enabled[1] == '1');
        EXPECT_EQ(probe.State().iCurrentFrame, click.frame);
        EXPECT_EQ(form.focusWidget(), &probe.Picture());
    }
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
    hosting = true;
    owned.release(); // the frame's from now on
    ASSERT_TRUE(Open());
    probe.State() = {3, -1};
    form.Play();
    const struct {
        Qt::MouseButton button; ///< NoButton: by the menu
        std::int16_t zoom;
        bool changed;
    } steps[] = {{Qt::MiddleButton, 4, false}, {Qt::LeftButton, 5, true}, {Qt::LeftButton, 5, false},
                 {Qt::NoButton, 2, true},      {Qt::NoButton, 2, false},  {Qt::RightButton, 1, true},
                 {Qt::RightButton, 1, false}};
    for (const auto& step : steps) {
        form.SetChanged(0);
        step.button == Qt::NoButton ? form.SetZoom(step.zoom)
                                    : QTest::mouseClick(&probe.Picture(), step.button, {}, {5, 5});
        EXPECT_EQ(form.GetZoom(), step.zoom);
        EXPECT_EQ(probe.Changed(), step.changed);
        EXPECT_TRUE(probe.Playing());
        const int factor = 1 << (step.zoom - 1);
        EXPECT_EQ(probe.Picture().size(), QSize(16 * factor + 4, 8 * factor + 4));
        EXPECT_EQ(ChildFrame(&form)->size(), QSize(step.zoom == 5 ? 282 : 176, 8 * factor + 74));
        QCoreApplication::sendPostedEvents();
        EXPECT_TRUE(form.rect().contains(probe.Control(4).geometry()));
    }
    form.SetZoom(6);
    EXPECT_EQ(probe.State().iCurrentFrame, 3);
    EXPECT_EQ(probe.State().iDirection, -1);
}

TEST_F(Player, SetupGoesBackToFrame0AndReadsNoFile) {
    record.sSnapFile.Set("GAME.SNA"); // found beside the animation, by the dialog too, without regard to case
    ASSERT_TRUE(Open());
    MakeFile(QStringLiteral("game.sna"), NoiseBytes(99, 2));
    for (const bool change : {false, true}) {
        probe.Control(3).click();
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
        EXPECT_EQ(probe.Record().lFileLength, 256);
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

void PrintTo(const Closing& row, std::ostream* out) {
    *out << "saved: " << row.saved;
}

class Closes : public Player, public ::testing::WithParamInterface<Closing> {};

TEST_P(Closes, AsTheUserAnswers) {
    const Closing& each = GetParam();
    Settings.bPromptSave = each.prompt ? std::int16_t{1} : std::int16_t{0};
    ASSERT_TRUE(each.named ? Open() : OpenNew());
    EXPECT_EQ(probe.Changed(), !each.named);
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
        EXPECT_EQ(boxes[0], each.named ? QStringLiteral("Animation|Save changes to %1?")
                                             .arg(Path(QStringLiteral("walk.anm")).toLower())
                                       : QStringLiteral("Animation|Save new animation?"));
    }
    for (const char* file : {"Walk.anm", "new.anm"}) {
        const QString name = QString::fromLatin1(file);
        EXPECT_EQ(QFile::exists(Path(name)) && ReadFile(name).at(234) == 2, std::string(file) == each.saved)
            << file;
    }
    Settings.bPromptSave = 0;
    QCloseEvent again;
    QCoreApplication::sendEvent(&form, &again);
    EXPECT_TRUE(again.isAccepted());
    EXPECT_EQ(iAnimationCount, 0) << "counted out once";
}

using enum BoxAnswer;
// clang-format off
INSTANTIATE_TEST_SUITE_P(All, Closes, ::testing::Values(
    Closing{false, true,  true,  {},              {},                     true,  ""},
    Closing{true,  false, true,  {},              {},                     true,  ""},
    Closing{true,  true,  true,  {Cancel},        {},                     false, ""},
    Closing{true,  true,  true,  {No},            {},                     true,  ""},
    Closing{true,  true,  true,  {Yes},           {},                     true,  "Walk.anm"},
    Closing{true,  true,  false, {Yes},           {"New.ANM"},            true,  "new.anm"},
    Closing{true,  true,  false, {Yes},           {""},                   true,  ""}, // no name, no file
    Closing{true,  true,  false, {Yes, Yes, Yes}, {"no/x", "", "new.anm"}, true, "new.anm"},
    Closing{true,  true,  false, {Yes, No},       {"no/x"},               true,  ""}),
    [](const auto& test) { return "Row" + std::to_string(test.index); });
// clang-format on

TEST_F(Player, SaveAsksForANameAndAFailureTakesItBack) {
    record.iZoom = 3; // not the new window's
    ASSERT_TRUE(OpenNew());
    EXPECT_EQ(form.GetZoom(), 1);
    const AnimationRecord before = probe.Record();
    files = {QString(), Path(QStringLiteral("no/x.anm")), Path(QStringLiteral("NEW.anm")),
             Path(QStringLiteral("new.anm"))};
    EXPECT_FALSE(SaveAnimationCommand(form)); // cancelled
    EXPECT_FALSE(SaveAnimationCommand(form)); // no such directory
    EXPECT_TRUE(boxes.at(0).startsWith(QStringLiteral("Animation|The animation ")));
    EXPECT_EQ(probe.Record(), before);
    EXPECT_TRUE(probe.Changed() && form.GetFilename().isEmpty());
    EXPECT_TRUE(SaveAnimationCommand(form));
    EXPECT_EQ(form.GetFilename(), Path(QStringLiteral("new.anm")));
    EXPECT_FALSE(probe.Changed());
    EXPECT_TRUE(SaveAnimationCommand(form)); // to its own file, without a question
    answers = {BoxAnswer::No};
    EXPECT_FALSE(SaveAnimationAs(form));
    EXPECT_TRUE(answers.empty() && files.empty());
}

TEST_F(Player, AnimateSeedsTheDialogFromTheView) {
    const struct {
        std::int16_t mode, width, lines, columns, seededMode;
        std::int32_t step;
    } views[] = {{kGraphics, 256, 192, 1, 0, 6144},
                 {kLineMasks, 16, 8, 4, 3, 32},
                 {kByteMasks, 24, 5, 2, 4, 30},
                 {kScreen, 256, 192, 1, 0, 6144},
                 {kText, 64, 16, 1, 0, 128}};
    for (const auto& view : views) {
        Settings.iDefaultMode = view.mode;
        Settings.iDefaultWidth = view.width;
        Settings.iDefaultLines = view.lines;
        Settings.iDefaultColumns = view.columns;
        frmSnapshot snapshot;
        ASSERT_TRUE(snapshot.Launch(Path(QStringLiteral("game.sna")), QStringLiteral("game.sna")));
        const WhenSetup driver([](frmAnimSetup& setup) { setup.close(); });
        AnimateSnapshot(snapshot);
        const AnimationRecord& seed = GlobalAnim;
        EXPECT_EQ(std::tuple(seed.iMode, seed.iWidth, seed.iLines, seed.iFrames, seed.lStep),
                  std::tuple(view.seededMode, view.width, view.lines, view.columns, view.step));
        EXPECT_EQ(seed.sSnapFile.Trimmed(), snapshot.GetFilename().toStdString());
    }
    EXPECT_EQ(iAnimationCount, 0);
}

} // namespace
} // namespace lumrake::testing
