/// The player and its setup dialog.
#include "animation/anim_support.h"
#include "shell/window/animation_commands.h"
#include "snapshot/frmColours.h"
#include "snapshot/frmSnapshot.h"

#include <QClipboard>
#include <QDir>
#include <QLabel>
#include <QMdiSubWindow>
#include <QRandomGenerator>

namespace lumrake::testing {
namespace {

using namespace std::string_literals;

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

    /// What plays shows at the lower right of its frames the bytes from these places in the snapshot, and can be stopped.
    void ExpectPlayed(const AnimationProbe& player, const std::vector<std::size_t>& places,
                      bool endless) const {
        std::vector<std::uint8_t> shown, expected;
        const auto look = [&, &picture = player.Picture().hDC().Picture()] {
            shown.push_back(picture.Row(picture.Height() - 1)[picture.Width() / 8 - 1]);
            expected.push_back(shown.size() > places.size() ? shown.back() : bytes[places[shown.size() - 1]]);
        };
        look();
        const QObject here; // the form's own handler of the timer came first and has drawn
        QObject::connect(&player.Timer(), &QTimer::timeout, &here, look);
        EXPECT_TRUE(QTest::qWaitFor([&] { return shown.size() >= places.size(); }, 20000));
        EXPECT_EQ(shown, expected);
        for (const bool playing : {endless, false}) {
            EXPECT_EQ(player.Playing(), playing);
            for (std::size_t i = 0; i < 5; ++i) {
                EXPECT_EQ(player.Control(i).isEnabled(), (i == 1) == playing) << i;
            }
            QTest::mouseClick(&player.Control(1), Qt::LeftButton);
        }
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
    EXPECT_EQ(status, QStringLiteral("Walk"));
    EXPECT_EQ(iAnimationCount, 1);
    EXPECT_FALSE(probe.Playing() || probe.Changed());
    EXPECT_EQ(probe.State().iCurrentFrame, 0);
    form.PreviousFrame();
    const lmk::BitPicture& shown = probe.Picture().hDC().Picture();
    EXPECT_EQ(shown.Row(3)[1], bytes[7 * 16 + 7]);
    EXPECT_EQ(shown.Row(4)[0], 0);
    EXPECT_TRUE(Save(form));
    const auto saved = ReadFile(QStringLiteral("Walk.anm"));
    EXPECT_TRUE(saved[230] == 16 && saved[234] == 5 && saved[250] == 120);
    form.SetZoom(5), form.SetZoom(6);
    EXPECT_FALSE(probe.Changed()) << "by the zoom that it has, or that there is not";
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

TEST_F(Player, EachCommandAndFieldReachesTheFramesAndTheFile) {
    bytes = NoiseBytes(70000);
    MakeFile(QStringLiteral("game.sna"), bytes);
    const QString two = MakeFile(QStringLiteral("two.sna"), bytes);
    // What is done with the player, or in its setup before Okay; the bytes that this changes in the file; the places
    // in the snapshot of the byte at the lower right of the frames that are then played.
    const std::tuple<const char*, std::map<int, std::string>, std::vector<std::size_t>> rows[] = {
        // clang-format off
        {"@cmdControl(3) click", {}, {31, 47, 31, 15, 31}},     {"@cmdControl(3) click @cmdControl(0) click", {}, {15, 31}},
        {"@picImage click",        {{234, "\3\0"s}}, {15, 31}}, {"@picImage click click click click", {{234, "\5\0"s}}, {15, 31}},
        {"@picImage right right",  {{234, "\1\0"s}}, {15, 31}}, {"@picImage middle", {}, {15, 31}},
        {"@cmdControl(3) click click @cmdControl(2) click @picImage click", {{234, "\3\0"s}}, {47, 31, 15}}, // plays on
        {"@picImage Right Right Left", {}, {31, 47, 31}},       {"@picImage Right Right Space Left Right", {}, {47, 31, 15}},
        {"@picImage Space Space", {}, {15, 31}},
        {"@txtAnimSetup(0)", {}, {15, 31, 47, 31, 15, 31}},     {"@txtAnimSetup(0) two.sna", {{100, "two.sna "}}, {15, 31}},
        {"@cmdSetup(2) click click", {{100, two.leftJustified(100).toStdString()}}, {15, 31}}, // the second time cancelled
        {"@txtAnimSetup(1) Caf\u00e9", {{200, "Caf\xE9"}}, {15, 31}}, {"@cboAnimSetup(0) O", {{248, "\0\0"s}}, {15, 31, 47, 15}},
        {"@cboAnimSetup(0) C", {{248, "\1\0"s}}, {15, 31, 47, 15}}, {"@cboAnimSetup(1) L", {{755, "\3\0"s}}, {29, 45}},
        {"@cboAnimSetup(1) B", {{755, "\4\0"s}}, {30, 46}},     {"@txtAnimSetup(2) 66051", {{236, "\3\2\1\0"s}}, {66066, 66082}},
        {"@cboAnimSetup(1) L @txtAnimSetup(3) 24", {{755, "\3\0"s}, {230, "\30\0"s}, {242, "\60\0\0\0"s}}, {44, 92}},
        {"@cboAnimSetup(1) B @txtAnimSetup(4) 9",  {{755, "\4\0"s}, {232, "\11\0"s}, {242, "\44\0\0\0"s}}, {34, 70}},
        {"@txtAnimSetup(3) 24", {{230, "\30\0"s}, {242, "\30\0\0\0"s}}, {23, 47}},
        {"@txtAnimSetup(4) 9",  {{232, "\11\0"s}, {242, "\22\0\0\0"s}}, {17, 35}},
        {"@txtAnimSetup(5) 259", {{240, "\3\1"s}}, {15, 31, 47, 63}}, {"@txtAnimSetup(6) 66051", {{242, "\3\2\1\0"s}}, {15, 66066}},
        {"@txtAnimSetup(6) 4.5", {{242, "\4\0\0\0"s}}, {15, 19}},
        {"@txtAnimSetup(6) 5 @txtAnimSetup(7) 770", {{242, "\5\0\0\0"s}, {246, "\2\3"s}}, {15}}, // proposed by sizes only
        {"@chkAnimSetup(0) Space", {{757, "\1\0"s}}, {1, 17}},  {"@txtAnimSetup(8) Ctrl+A Hi Return x", {{255, "Hi\r\nx     "}}, {15, 31}},
        // clang-format on
    };
    record.sAnimFile.Set("/another/place.anm");
    record.sSnapFile.Set("GAME.SNA");
    record.sNotes.Set("one\ntwo \r\n"); // breaks that the screen would write otherwise
    record.iZoom = 2;
    record.iRepeat = kPingPong;
    record.iFrames = 3;
    record.iPause = 1;
    record.lFileLength = 70000;
    for (const auto& [words, written, played] : rows) {
        SCOPED_TRACE(words);
        frmAnimation player;
        const AnimationProbe now{player};
        ASSERT_TRUE(Open(player));
        auto expected = ReadFile(QStringLiteral("Walk.anm"));
        if (const QString steps = QString::fromUtf8(words); !steps.contains(u"Setup("_qs)) {
            Use(player, steps);
        } else {
            files = {two, QString()};
            const WhenSetup driver(
                [&steps](frmAnimSetup& setup) { Use(setup, steps + u" @cmdSetup(0) click"_qs); });
            Use(player, u"@cmdControl(4) click"_qs);
        }
        QByteArray(words).contains("(2) click @pic") ? void() : Use(player, u"@cmdControl(2) click"_qs);
        for (const auto& [place, part] : written) {
            std::ranges::copy(part, expected.begin() + place);
        }
        ExpectPlayed(now, played, expected[248] != 0);
        EXPECT_EQ(player.focusWidget(), &now.Picture());
        EXPECT_EQ(now.Timer().interval(), expected[246] + 256 * expected[247]);
        EXPECT_EQ(player.windowTitle(), QString::fromLatin1(&reinterpret_cast<char&>(expected[200]), 4));
        const lmk::BitPicture& picture = now.Picture().hDC().Picture(); // of attribute 56
        EXPECT_TRUE(picture.foreColour == 0xff000000 && picture.backColour == 0xffd0d0d0);
        std::vector<QString> questions;
        if (!written.empty()) {
            std::ranges::copy(player.GetFilename().leftJustified(100).toStdString(), expected.begin());
            questions = {u"Animation|Save changes to %1?"_qs.arg(player.GetFilename().toLower())};
            answers = {BoxAnswer::Yes};
        }
        EXPECT_TRUE(player.close());
        EXPECT_EQ(std::exchange(boxes, {}), questions);
        EXPECT_EQ(ReadFile(QStringLiteral("Walk.anm")), expected);
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
        Use(form, u"@cmdControl(3) click"_qs);
        EXPECT_EQ(form.focusWidget(), &probe.Picture());
        const WhenSetup driver([change](frmAnimSetup& setup) {
            const QString words = u"@txtAnimSetup(4) Ctrl+A 32 @txtAnimSetup(1) Ctrl+A Backspace "_qs;
            Use(setup, (change ? words : QString()) + u"@cmdSetup(0) click"_qs);
        });
        Use(form, change ? u"Alt+S"_qs : u"@cmdControl(4) click"_qs);
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
    // named, prompt, what is asked and answered; a new one is named in a dialog that is then cancelled
    const std::tuple<bool, std::int16_t, std::deque<BoxAnswer>> cases[] = {
        {true, 0, {}},    {true, 1, {Cancel}}, {true, 1, {No}},
        {true, 1, {Yes}}, {false, 1, {Yes}},   {false, 1, {Cancel}}};
    for (const auto& [named, prompt, answer] : cases) {
        frmAnimation player;
        Settings.bPromptSave = prompt;
        ASSERT_TRUE(named ? Open(player) : OpenNew(player));
        player.SetZoom(2);
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
    EXPECT_EQ(boxes.back(), QStringLiteral("Animation|Save new animation?"));
}

TEST_F(Player, AnimateSeedsTheDialogFromTheView) {
    const QString sLong = Path(QString(100, QLatin1Char('d'))) + u"/game.sna"_qs;
    QDir(Path({})).mkdir(QString(100, QLatin1Char('d')));
    QFile::copy(Path(QStringLiteral("game.sna")), sLong);
    Settings.iDefaultWidth = 64;
    Settings.iDefaultLines = 5;
    Settings.iDefaultColumns = 3;
    Settings.lDefaultOffset = 7;
    Settings.iDefaultAttribute = 71;
    // mode of the view and of the animation, lines, columns, bytes of a strip, upside down
    const std::int16_t views[][6] = {{kGraphics, 0, 5, 3, 40, 1},
                                     {kByteMasks, 4, 5, 3, 80, 0},
                                     {kText, 0, 8, 1, 64, 0},
                                     {kScreen, 0, 192, 1, 6144, 1}};
    for (const auto& [mode, seed, lines, columns, step, flip] : views) {
        Settings.iDefaultMode = mode;
        frmSnapshot snapshot;
        ASSERT_TRUE(snapshot.Launch(sLong, QStringLiteral("game.sna")));
        snapshot.SetFlip(flip);
        AnimationRecord expected = GlobalAnim = SampleRecord(QStringLiteral("another.sna"));
        const WhenSetup driver([](frmAnimSetup& setup) { Press(setup, "cmdSetup(0)"), setup.close(); });
        AnimateSnapshot(snapshot);
        expected.sTitle.Set("New Animation");
        expected.sSnapFile.Set(sLong.toStdString());
        expected.iWidth = mode == kScreen ? std::int16_t{256} : std::int16_t{64};
        std::tie(expected.iMode, expected.iLines, expected.iFrames) = std::tie(seed, lines, columns);
        std::tie(expected.lStep, expected.iUpsideDown) = std::tie(step, flip);
        std::tie(expected.lOffset, expected.byAttribute) = std::tuple(7, 71);
        EXPECT_EQ(GlobalAnim, expected) << mode;
        EXPECT_EQ(boxes.back(), kTooLong);
    }
}

class Setup : public ::testing::Test {
  protected:
    Setup() { GlobalAnim = SampleRecord(stage.MakeFile(QStringLiteral("game.sna"), NoiseBytes(256))); }
    ~Setup() override { GlobalAnim = AnimationRecord(); }

    bool Run(const std::function<void(frmAnimSetup&)>& act) {
        const WhenSetup driver(act);
        bool bOkay = false;
        frmAnimSetup(GlobalAnim).GetAnimSettings(bOkay);
        return bOkay;
    }

    Stage stage;
};

TEST_F(Setup, TabGoesThroughTheFieldsAndTheStatusBarTellsWhatEachIsFor) {
    // the longest text that can be typed, what the status bar then says
    const std::tuple<const char*, int, const char*> rows[] = {
        // clang-format off
        {"txtAnimSetup(0)", 100, "Enter the name of the snapshot file"}, {"cmdSetup(2)", 0, "Click '...' to select snapshot file"},
        {"txtAnimSetup(1)", 30,  "Enter a title for the animation"},     {"cboAnimSetup(0)", 0, "Select the type of repeat"},
        {"cboAnimSetup(1)", 0,   "Select the display mode"}, {"txtAnimSetup(2)", 6, "Enter the file offset of the first frame"},
        {"txtAnimSetup(3)", 3,   "Enter the width in pixels of each frame"},
        {"txtAnimSetup(4)", 3,   "Enter the number of lines in pixels of each frame"},
        {"txtAnimSetup(5)", 3,   "Enter the number of frames in the animation"},
        {"txtAnimSetup(6)", 5,   "Enter the number of bytes between each frame"},
        {"txtAnimSetup(7)", 5,   "Enter the pause between each frame (milliseconds)"}, // the next two leave it there
        {"chkAnimSetup(0)", 0,   "Enter the pause between each frame (milliseconds)"},
        {"cmdSetup(4)",     0,   "Enter the pause between each frame (milliseconds)"},
        {"cmdSetup(1)", 0, "Click 'CANCEL' to abort action"}, {"cmdSetup(0)", 0, "Click 'OKAY' to confirm information"},
        // clang-format on
    };
    GlobalAnim.sNotes.Set("a b");
    const AnimationRecord before = GlobalAnim;
    EXPECT_FALSE(Run([&](frmAnimSetup& form) {
        for (const auto& [name, longest, status] : rows) {
            QWidget* control = form.focusWidget();
            ASSERT_EQ(control->objectName(), QLatin1String(name));
            EXPECT_EQ(stage.status, QLatin1String(status)) << name;
            if (auto* text = qobject_cast<QLineEdit*>(control)) {
                EXPECT_EQ(text->selectedText(), text->text()) << name;
                QTest::keyClicks(text, QString(120, u'1'));
                EXPECT_EQ(text->text().size(), longest) << name;
            }
            const QString step = Field(form, 6)->text();
            QFocusEvent away(QEvent::FocusOut, Qt::ActiveWindowFocusReason); // to another program
            QCoreApplication::sendEvent(control, &away);
            EXPECT_EQ(Field(form, 6)->text(), step) << "proposed, though no field was left";
            QTest::keyClick(control, Qt::Key_Tab);
        }
        for (const char* first : {"txtAnimSetup(8)", "txtAnimSetup(0)", "txtAnimSetup(8)"}) {
            Use(form, QStringLiteral("Ctrl+PgDown"));
            EXPECT_EQ(form.focusWidget(), Find(form, first));
        }
        EXPECT_EQ(stage.status, QStringLiteral("Enter any notes you wish to make about the animation"));
        EXPECT_EQ(Find<QPlainTextEdit>(form, "txtAnimSetup(8)")->textCursor().position(), 3);
        Press(form, "cmdSetup(1)");
    }));
    EXPECT_EQ(GlobalAnim, before);
}

TEST_F(Setup, AFaultBringsItsFieldToTheFront) {
    const std::string tooLong(101, 'x');
    const std::pair<int, const char*> faults[] = {
        {0, tooLong.c_str()}, {0, "/nowhere"}, {2, "256"}, {3, "12"}, {4, "0"}, {5, "1"}, {6, "0"}, {7, "0"}};
    for (const auto& [field, typed] : faults) {
        EXPECT_FALSE(Run([field = field, typed = typed](frmAnimSetup& form) {
            const QString words = u"@txtAnimSetup(%1) Ctrl+A %2 Ctrl+PgDown @cmdSetup(0) click"_qs;
            Use(form, words.arg(field).arg(QLatin1String(typed)));
            EXPECT_TRUE(Field(form, field)->isVisible());
            EXPECT_EQ(form.focusWidget(), Field(form, field));
            form.close();
        }));
    }
    EXPECT_EQ(stage.boxes.size(), std::size(faults));
    EXPECT_EQ(stage.boxes[0], kTooLong);
}

TEST_F(Setup, TextsHoldWhatFitsAndUndoOnlyWhatWasThere) {
    const QStringList kWords =
        u"Ctrl+Z Ctrl+Shift+Z Backspace Return Shift+Return A Up Shift+Up Ctrl+Home Ctrl+A \u00E9\u0438"_qs
            .split(u' ');
    const QString kPasted[] = {QString(1 << 20, u'z'), u"a\r\nb\rc\u2028"_qs, QString(90, u'\r'),
                               u"\u0438\U0001F3AE"_qs};
    for (const char fill : {'\n', 'x'}) { // so many bare line feeds have no room to become CR LF
        GlobalAnim.sNotes.Set(std::string(250, 'x') + std::string(150, fill) + 'x');
        Run([&](frmAnimSetup& form) {
            Use(form, u"@txtAnimSetup(1) Ctrl+A ab"_qs);
            QApplication::clipboard()->setText(QString(20, QChar(0x438)));
            QTest::keySequence(Field(form, 1), QKeySequence::Paste);
            QCoreApplication::processEvents();
            QTest::keyClicks(Field(form, 1), QStringLiteral("c"));
            EXPECT_EQ(Field(form, 1)->text(), u"ab"_qs + QString(14, QChar(0x438))); // 30 bytes
            QTest::keySequence(Field(form, 1), QKeySequence::Undo);
            EXPECT_EQ(Field(form, 1)->text(), u"ab"_qs);

            auto* notes = Find<LimitedText>(form, "txtAnimSetup(8)");
            QApplication::clipboard()->clear();
            Use(form, u"@txtAnimSetup(8) Ctrl+V"_qs);
            QStringList seen;
            QRandomGenerator random(1);
            for (int round = 0; round < 500; ++round) {
                seen << notes->Text();
                if (const int act = random.bounded(15); act < kWords.size()) {
                    Use(form, kWords[act]);
                    ASSERT_TRUE(act > 1 || seen.contains(notes->Text()));
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
    const std::pair<const char*, int> uses[] = {{"@chkBright click @cmdColour(1) click", 0},
                                                {"@cmdColour(0) click", 0},
                                                {"@chkBright click @cmdColour(0) click", -1}};
    EXPECT_TRUE(Run([&uses](frmAnimSetup& form) {
        for (const auto& [words, changed] : uses) {
            const WhenOpen<frmColours> picker(
                [words = words](frmColours& colours) { Use(colours, QLatin1String(words)); });
            Press(form, "cmdSetup(4)");
            EXPECT_EQ(bAnimChanged, changed);
            const QRgb paper = changed == 0 ? 0xffd0d0d0 : 0xffffffff;
            EXPECT_EQ(Find(form, "lblColour(0)")->grab().toImage().pixel(1, 1), paper);
            EXPECT_EQ(Find(form, "lblColour(1)")->grab().toImage().pixel(1, 1), 0xff000000);
        }
        Press(form, "cmdSetup(0)");
    }));
    EXPECT_EQ(GlobalAnim.byAttribute, 120); // 56 and bright
}

} // namespace
} // namespace lumrake::testing
