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
    GlobalAnim.iRepeat = kPingPong;
    GlobalAnim.iMode = 4;
    GlobalAnim.lOffset = 100;
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
            Find<QComboBox>(form, "cboAnimSetup(0)")->setCurrentIndex(2);
            Find<QComboBox>(form, "cboAnimSetup(1)")->setCurrentIndex(1);
            Type(form, 3, "12");
            QFocusEvent away(QEvent::FocusOut,
                             Qt::ActiveWindowFocusReason); // another program comes to the front
            QCoreApplication::sendEvent(Field(form, 3), &away);
            EXPECT_EQ(Field(form, 6)->text(), QStringLiteral("16"));
            Type(form, 4, "3");
            Find(form, "chkAnimSetup(0)")->setFocus();
            EXPECT_EQ(Field(form, 6)->text(),
                      QStringLiteral("9")); // the step is proposed: a mask beside each row
            Type(form, 3, "24");
            Type(form, 6, "4.5");
            auto* notes = Find<QPlainTextEdit>(form, "txtAnimSetup(8)");
            bAnimChanged = 0;
            QTest::keyClicks(notes, QStringLiteral("a"));
            EXPECT_EQ(bAnimChanged, -1);
            QTest::keyClick(notes, Qt::Key_Return);
            bAnimChanged = 0;
            Find<QCheckBox>(form, "chkAnimSetup(0)")->click();
            EXPECT_EQ(bAnimChanged, -1);
            Press(form, button);
        });
    }
    EXPECT_EQ(GlobalAnim.sTitle.Bytes()[3], '\xE9');
    EXPECT_EQ(GlobalAnim.iRepeat, kPingPong);
    EXPECT_EQ(GlobalAnim.iMode, 3);
    EXPECT_EQ(GlobalAnim.iWidth, 24);
    EXPECT_EQ(GlobalAnim.lStep, 4); // a half goes to the even neighbour
    EXPECT_EQ(GlobalAnim.sNotes.Trimmed(), "a\r\n");
    EXPECT_EQ(GlobalAnim.iUpsideDown, 1);
}

TEST_F(Setup, AFaultBringsItsFieldToTheFront) {
    const struct {
        int field;
        const char* typed;
    } faults[] = {{0, "/nowhere"}, {2, "256"}, {3, "12"}, {4, "0"}, {5, "1"}, {6, "0"}, {7, "0"}};
    for (const auto& fault : faults) {
        EXPECT_FALSE(Run([&fault](frmAnimSetup& form) {
            Type(form, fault.field, fault.typed);
            auto* strip = Find<TabStrip>(form, "SSTab1");
            strip->SetTab(1);
            EXPECT_EQ(form.focusWidget()->objectName(), QStringLiteral("txtAnimSetup(8)"));
            Press(form, "cmdSetup(0)");
            EXPECT_EQ(strip->CurrentTab(), 0);
            EXPECT_EQ(form.focusWidget(), Field(form, fault.field));
            form.close();
        }));
    }
    EXPECT_EQ(stage.boxes.size(), std::size(faults));
}

TEST_F(Setup, LimitsBindTheKeyboardAndNotTheProgram) {
    GlobalAnim.lOffset = 1234567;
    stage.files = {QString(), QString(150, QLatin1Char('d'))};
    Run([this](frmAnimSetup& form) {
        auto* offset = Field(form, 2);
        QTest::keyClicks(offset, QStringLiteral("8"));
        EXPECT_EQ(offset->text(), QStringLiteral("1234567"));
        QTest::keyClick(offset, Qt::Key_Backspace);
        QTest::keyClicks(offset, QStringLiteral("9"));
        EXPECT_EQ(offset->text(), QStringLiteral("123456"));
        auto* notes = Find<QPlainTextEdit>(form, "txtAnimSetup(8)");
        notes->insertPlainText(QString(497, QLatin1Char('x')));
        QTest::keyClick(notes, Qt::Key_Return); // two characters in the record
        QTest::keyClicks(notes, QStringLiteral("abc"));
        EXPECT_EQ(notes->toPlainText().mid(496), QStringLiteral("x\na"));
        Press(form, "cmdSetup(2)");
        EXPECT_EQ(Field(form, 0)->text(), stage.Path(QStringLiteral("game.sna"))) << "a cancelled dialog";
        Press(form, "cmdSetup(2)");
        EXPECT_EQ(Field(form, 0)->text().size(), 150);
        form.close();
    });
}

TEST_F(Setup, OnlyAnotherAttributeIsAChange) {
    constexpr int kSelect = 0, kCancel = 1;
    const struct {
        bool bright;
        int button, changed;
    } uses[] = {{true, kCancel, 0}, {false, kSelect, 0}, {true, kSelect, -1}};
    EXPECT_TRUE(Run([&uses](frmAnimSetup& form) {
        for (const auto& use : uses) {
            const WhenOpen<frmColours> picker([&use](frmColours& colours) {
                colours.findChild<QCheckBox*>()->setChecked(use.bright);
                colours.findChildren<QPushButton*>().at(use.button)->click();
            });
            Press(form, "cmdSetup(4)");
            EXPECT_EQ(bAnimChanged, use.changed);
        }
        Press(form, "cmdSetup(0)");
    }));
    EXPECT_EQ(GlobalAnim.byAttribute, 120); // 56 and bright
}

} // namespace
} // namespace lumrake::testing
