/// The player and its setup dialog.
#include "animation/anim_support.h"
#include "animation/animation_commands.h"
#include "platform/tab_strip.h"
#include "snapshot/frmColours.h"
#include "snapshot/frmSnapshot.h"

#include <QClipboard>
#include <QDir>
#include <QMdiSubWindow>
#include <QRandomGenerator>

namespace lumrake::testing {
namespace {

const QString kTooLong = u"Animation Setup|Snapshot filename must not be longer than 100 characters"_qs;

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
    QMdiSubWindow frame;
    frmAnimation form; // goes before a frame that it lies in
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
    record.sSnapFile.Set("C:\\gone\\GAME.SNA"); // one of the name lies beside the animation
    record.lFileLength = 100;
    answers = {BoxAnswer::No, BoxAnswer::Yes, BoxAnswer::Yes};
    EXPECT_FALSE(Open(form));
    for (const bool okay : {false, true}) {
        EXPECT_EQ(iAnimationCount, 0);
        const WhenSetup driver([&](frmAnimSetup& setup) {
            EXPECT_EQ(Field(setup, 0)->text(), sThere);
            Press(setup, okay ? "cmdSetup(0)" : "cmdSetup(1)");
        });
        EXPECT_EQ(Open(form), okay);
    }
    EXPECT_EQ(probe.Bytes(), 100U) << "the record's length, not the new file's";
    EXPECT_EQ(boxes,
              std::vector(3, u"Animation|The snapshot associated with this animation cannot be found.  "
                             u"Select another?"_qs));
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
    for (const auto& [button, zoom] :
         {std::pair{Qt::LeftButton, 5}, {Qt::LeftButton, 5}, {Qt::MiddleButton, 5}, {Qt::RightButton, 4}}) {
        QTest::mouseClick(&probe.Picture(), button);
        EXPECT_EQ(form.GetZoom(), zoom);
        EXPECT_TRUE(probe.Playing() && probe.Changed());
        EXPECT_EQ(probe.State().iCurrentFrame, 3);
        EXPECT_EQ(probe.State().iDirection, -1);
    }
}

TEST_F(Player, SetupGoesBackToFrame0AndReadsNoFile) {
    // Found beside the animation without regard to case, by the dialog too, before one in the current directory.
    record.sSnapFile.Set("GAME.SNA");
    const QString sBefore = QDir::currentPath();
    QDir(Path({})).mkdir(QStringLiteral("here"));
    MakeFile(QStringLiteral("here/GAME.SNA"), NoiseBytes(9));
    QDir::setCurrent(Path(QStringLiteral("here")));
    frame.setWidget(&form);
    EXPECT_TRUE(Open(form));
    QDir::setCurrent(sBefore);
    MakeFile(QStringLiteral("game.sna"), NoiseBytes(99, 2));
    for (const bool change : {false, true}) {
        probe.Control(3).setFocus();
        probe.Control(3).click();
        EXPECT_EQ(form.focusWidget(), &probe.Picture());
        const WhenSetup driver([change](frmAnimSetup& setup) {
            if (change) {
                Type(setup, 4, "32");
                Field(setup, 1)->clear();
            }
            Press(setup, "cmdSetup(0)");
        });
        change ? QTest::keyClick(&probe.Picture(), Qt::Key_S, Qt::AltModifier) : probe.Control(4).click();
        EXPECT_EQ(probe.State().iCurrentFrame, 0);
        EXPECT_EQ(probe.Changed(), change);
        EXPECT_EQ(frame.windowTitle(), change ? QString() : u"Walk"_qs);
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

TEST_F(Player, AnimateSeedsTheDialogFromTheView) {
    const QString sLong = Path(QString(100, QLatin1Char('d'))) + u"/game.sna"_qs;
    QDir(Path({})).mkdir(QString(100, QLatin1Char('d')));
    QFile::copy(Path(QStringLiteral("game.sna")), sLong);
    Settings.iDefaultWidth = 64;
    Settings.iDefaultLines = 5;
    const std::tuple<std::int16_t, std::int16_t, std::int32_t> modes[] = {{kByteMasks, 4, 80},
                                                                          {kText, 0, 64}};
    for (const auto& [mode, seed, step] : modes) {
        Settings.iDefaultMode = mode;
        frmSnapshot snapshot;
        ASSERT_TRUE(snapshot.Launch(sLong, QStringLiteral("game.sna")));
        const WhenSetup driver([](frmAnimSetup& setup) { Press(setup, "cmdSetup(0)"), setup.close(); });
        AnimateSnapshot(snapshot);
        EXPECT_EQ(boxes.back(), kTooLong);
        EXPECT_EQ(GlobalAnim.iMode, seed);
        EXPECT_EQ(GlobalAnim.lStep, step);
    }
}

class Setup : public ::testing::Test {
  protected:
    Setup() { GlobalAnim = SampleRecord(stage.MakeFile(QStringLiteral("game.sna"), NoiseBytes(256))); }
    ~Setup() override { GlobalAnim = AnimationRecord(); }

    bool Run(const std::function<void(frmAnimSetup&)>& act) {
        const WhenSetup driver(act);
        bool bOkay = false;
        frmAnimSetup().GetAnimSettings(bOkay);
        return bOkay;
    }

    Stage stage;
};

TEST_F(Setup, OkayWithoutATouchKeepsEveryByteAndIsNoChange) {
    GlobalAnim.sNotes.Set("one\ntwo \r\n"); // line breaks that the screen would write otherwise
    GlobalAnim.iMode = 4;
    const AnimationRecord before = GlobalAnim;
    bAnimChanged = -1;
    EXPECT_TRUE(Run([](frmAnimSetup& form) { Press(form, "cmdSetup(0)"); }));
    EXPECT_EQ(GlobalAnim, before);
    EXPECT_EQ(bAnimChanged, 0);
}

TEST_F(Setup, WhatWasEnteredReachesTheRecordOnOkayOnly) {
    const AnimationRecord before = GlobalAnim;
    for (const char* button : {"cmdSetup(1)", "cmdSetup(0)"}) {
        EXPECT_EQ(GlobalAnim, before);
        Run([button](frmAnimSetup& form) {
            Field(form, 1)->setText(QStringLiteral("Caf\u00e9"));
            Find<QComboBox>(form, "cboAnimSetup(1)")->setCurrentIndex(1); // a mask beside each row
            Type(form, 3, "12");
            QFocusEvent away(QEvent::FocusOut, Qt::ActiveWindowFocusReason); // to another program
            QCoreApplication::sendEvent(Field(form, 3), &away);
            EXPECT_EQ(Field(form, 6)->text(), QStringLiteral("16"));
            Type(form, 4, "3");
            Find(form, "chkAnimSetup(0)")->setFocus();
            EXPECT_EQ(Field(form, 6)->text(), QStringLiteral("9")) << "the step is proposed";
            Type(form, 3, "24");
            Type(form, 6, "4.5");
            QTest::keyClick(Find(form, "txtAnimSetup(8)"), Qt::Key_Return);
            Find<QPlainTextEdit>(form, "txtAnimSetup(8)")->insertPlainText(u"\u00A0"_qs);
            bAnimChanged = 0;
            Find<QCheckBox>(form, "chkAnimSetup(0)")->click();
            EXPECT_EQ(bAnimChanged, -1);
            Press(form, button);
        });
    }
    EXPECT_EQ(GlobalAnim.sTitle.Bytes()[3], '\xE9');
    EXPECT_EQ(GlobalAnim.sNotes.Trimmed(), "\r\n\u00A0");
    EXPECT_EQ(GlobalAnim.iMode, 3);
    EXPECT_EQ(GlobalAnim.iWidth, 24);
    EXPECT_EQ(GlobalAnim.iLines, 3);
    EXPECT_EQ(GlobalAnim.lStep, 4); // a half goes to the even neighbour
    EXPECT_EQ(GlobalAnim.iUpsideDown, 1);
}

TEST_F(Setup, AFaultBringsItsFieldToTheFront) {
    const std::string tooLong(101, 'x');
    const std::pair<int, const char*> faults[] = {
        {0, tooLong.c_str()}, {0, "/nowhere"}, {2, "256"}, {3, "12"}, {4, "0"}, {5, "1"}, {6, "0"}, {7, "0"}};
    for (const auto& [field, typed] : faults) {
        EXPECT_FALSE(Run([field = field, typed = typed](frmAnimSetup& form) {
            Type(form, field, typed);
            auto* strip = Find<TabStrip>(form, "SSTab1");
            strip->SetTab(1);
            Press(form, "cmdSetup(0)");
            EXPECT_EQ(strip->CurrentTab(), 0);
            EXPECT_EQ(form.focusWidget(), Field(form, field));
            form.close();
        }));
    }
    EXPECT_EQ(stage.boxes.size(), std::size(faults));
    EXPECT_EQ(stage.boxes[0], kTooLong);
}

TEST_F(Setup, TextsHoldWhatFitsAndUndoOnlyWhatWasThere) {
    const QStringList kKeys =
        u"Ctrl+Z|Ctrl+Shift+Z|Backspace|Return|Shift+Return|A|Up|Shift+Up|Ctrl+Home|Ctrl+A"_qs.split(u'|');
    const QString kPasted[] = {QString(1 << 20, u'z'), u"a\r\nb\rc\u2028"_qs, QString(90, u'\r'),
                               u"\u0438\U0001F3AE"_qs};
    for (const char fill : {'\n', 'x'}) { // so many bare line feeds have no room to become CR LF
        GlobalAnim.sNotes.Set(std::string(250, 'x') + std::string(150, fill) + 'x');
        Run([&](frmAnimSetup& form) {
            Type(form, 1, "ab");
            QApplication::clipboard()->setText(QString(20, QChar(0x438)));
            QTest::keySequence(Field(form, 1), QKeySequence::Paste);
            QCoreApplication::processEvents();
            QTest::keyClicks(Field(form, 1), QStringLiteral("c"));
            EXPECT_EQ(Field(form, 1)->text(), u"ab"_qs + QString(14, QChar(0x438))); // 30 bytes
            QTest::keySequence(Field(form, 1), QKeySequence::Undo);
            EXPECT_EQ(Field(form, 1)->text(), u"ab"_qs);

            auto* notes = Find<LimitedText>(form, "txtAnimSetup(8)");
            Find<TabStrip>(form, "SSTab1")->SetTab(1);
            QApplication::clipboard()->clear();
            QTest::keySequence(notes, QKeySequence::Paste);
            QStringList seen;
            QRandomGenerator random(1);
            for (int round = 0; round < 500; ++round) {
                seen << notes->Text();
                if (const int act = random.bounded(15); act < kKeys.size()) {
                    QTest::keySequence(notes, kKeys[act]);
                    ASSERT_TRUE(act > 1 || seen.contains(notes->Text()));
                } else if (act == 10) {
                    QInputMethodEvent commit;
                    commit.setCommitString(u"\u00E9\u0438"_qs);
                    QApplication::sendEvent(notes, &commit);
                } else {
                    QApplication::clipboard()->setText(kPasted[act - 11]);
                    QTest::keySequence(notes, QKeySequence::Paste);
                    if (notes->Text() != seen.last()) { // a step of its own
                        notes->undo();
                        ASSERT_EQ(notes->Text(), seen.last());
                        notes->redo();
                    }
                }
                ASSERT_TRUE(FixedString<500>::Fits(
                    NotesInRecord(notes->Text().toStdString(), GlobalAnim.sNotes.Trimmed())));
            }
            form.close();
        });
    }
}

TEST_F(Setup, OnlyAnotherAttributeIsAChange) {
    constexpr int kSelect = 0, kCancel = 1;
    const std::tuple<bool, int, int> uses[] = {{true, kCancel, 0}, {false, kSelect, 0}, {true, kSelect, -1}};
    EXPECT_TRUE(Run([&uses](frmAnimSetup& form) {
        for (const auto& [bright, button, changed] : uses) {
            const WhenOpen<frmColours> picker([bright = bright, button = button](frmColours& colours) {
                colours.findChild<QCheckBox*>()->setChecked(bright);
                colours.findChildren<QPushButton*>().at(button)->click();
            });
            Press(form, "cmdSetup(4)");
            EXPECT_EQ(bAnimChanged, changed);
        }
        Press(form, "cmdSetup(0)");
    }));
    EXPECT_EQ(GlobalAnim.byAttribute, 120); // 56 and bright
}

} // namespace
} // namespace lumrake::testing
