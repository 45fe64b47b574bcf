#include "animation/anim_support.h"
#include "platform/tab_strip.h"
#include "snapshot/frmColours.h"

namespace lumrake::testing {
namespace {

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
            bAnimChanged = 0;
            Find<QCheckBox>(form, "chkAnimSetup(0)")->click();
            EXPECT_EQ(bAnimChanged, -1);
            Press(form, button);
        });
    }
    EXPECT_EQ(GlobalAnim.sTitle.Bytes()[3], '\xE9');
    EXPECT_EQ(GlobalAnim.sNotes.Trimmed(), "\r\n");
    EXPECT_EQ(GlobalAnim.iMode, 3);
    EXPECT_EQ(GlobalAnim.iWidth, 24);
    EXPECT_EQ(GlobalAnim.iLines, 3);
    EXPECT_EQ(GlobalAnim.lStep, 4); // a half goes to the even neighbour
    EXPECT_EQ(GlobalAnim.iUpsideDown, 1);
}

TEST_F(Setup, AFaultBringsItsFieldToTheFront) {
    const std::pair<int, const char*> faults[] = {{0, "/nowhere"}, {2, "256"}, {3, "12"}, {4, "0"},
                                                  {5, "1"},        {6, "0"},   {7, "0"}};
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
}

TEST_F(Setup, NotesTakeWhatTheRecordHolds) {
    Run([](frmAnimSetup& form) {
        auto* notes = Find<QPlainTextEdit>(form, "txtAnimSetup(8)");
        notes->insertPlainText(QString(497, QLatin1Char('x')));
        QTest::keyClick(notes, Qt::Key_Return); // two characters in the record
        QTest::keyClicks(notes, QStringLiteral("abc"));
        EXPECT_EQ(notes->toPlainText().mid(496), QStringLiteral("x\na"));
        form.close();
    });
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
