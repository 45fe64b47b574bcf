#include "animation/anim_support.h"
#include "platform/tab_strip.h"

#include <QCheckBox>
#include <QLabel>

namespace lumrake::testing {
namespace {

class Setup : public ::testing::Test {
  protected:
    Setup() {
        sSnapshot = stage.MakeFile(QStringLiteral("game.sna"), NoiseBytes(256));
        GlobalAnim = SampleRecord(sSnapshot);
    }
    ~Setup() override { GlobalAnim = AnimationRecord(); }

    /// Runs the dialog, does `act` and gives what came of it.
    bool Run(const std::function<void(frmAnimSetup&)>& act) {
        const WhenSetup driver(act);
        bool bOkay = false;
        frmAnimSetup().GetAnimSettings(bOkay);
        return bOkay;
    }
    static QString Text(frmAnimSetup& form, const char* field) {
        return Find<QLineEdit>(form, field)->text();
    }

    Stage stage;
    QString sSnapshot;
};

TEST_F(Setup, OkayWithoutATouchKeepsEveryByteAndIsNoChange) {
    GlobalAnim.sNotes.Set("one\ntwo \r\n"); // line breaks that the screen would write otherwise
    GlobalAnim.iRepeat = kPingPong;
    GlobalAnim.iMode = 4;
    GlobalAnim.lOffset = 100;
    const AnimationRecord before = GlobalAnim;
    bAnimChanged = -1;
    EXPECT_TRUE(Run([](frmAnimSetup& form) { Press(form, "cmdSetup(0)"); }));
    EXPECT_EQ(EncodeAnimation(GlobalAnim), EncodeAnimation(before));
    EXPECT_EQ(bAnimChanged, 0);
    EXPECT_TRUE(stage.boxes.empty());
}

TEST_F(Setup, WhatWasTypedReachesTheRecord) {
    EXPECT_TRUE(Run([](frmAnimSetup& form) {
        Find<QLineEdit>(form, "txtAnimSetup(1)")->setText(QStringLiteral("Caf\u00e9"));
        Find<QComboBox>(form, "cboAnimSetup(0)")->setCurrentIndex(2);
        Find<QComboBox>(form, "cboAnimSetup(1)")->setCurrentIndex(1);
        Type(form, "txtAnimSetup(3)", QStringLiteral("24"));
        Type(form, "txtAnimSetup(4)", QStringLiteral("3"));
        EXPECT_EQ(Text(form, "txtAnimSetup(6)"), QStringLiteral("48")) << "proposed when the width was left";
        Type(form, "txtAnimSetup(6)", QStringLiteral("4.5"));
        Type(form, "txtAnimSetup(7)", QStringLiteral("1"));
        auto* notes = Find<QPlainTextEdit>(form, "txtAnimSetup(8)");
        QTest::keyClicks(notes, QStringLiteral("a"));
        QTest::keyClick(notes, Qt::Key_Return);
        QTest::keyClicks(notes, QStringLiteral("b"));
        Press(form, "cmdSetup(0)");
    }));
    EXPECT_EQ(GlobalAnim.sTitle.Bytes()[3], '\xE9');
    EXPECT_EQ(GlobalAnim.iRepeat, kPingPong);
    EXPECT_EQ(GlobalAnim.iMode, 3);
    EXPECT_EQ(GlobalAnim.iWidth, 24);
    EXPECT_EQ(GlobalAnim.lStep, 4); // a half goes to the even neighbour
    EXPECT_EQ(GlobalAnim.iPause, 1);
    EXPECT_EQ(GlobalAnim.sNotes.Trimmed(), "a\r\nb");
    EXPECT_EQ(bAnimChanged, -1);
}

TEST_F(Setup, EachWayOutButOkayLeavesTheRecord) {
    const AnimationRecord before = GlobalAnim;
    for (const bool button : {true, false}) {
        EXPECT_FALSE(Run([button](frmAnimSetup& form) {
            Type(form, "txtAnimSetup(5)", QStringLiteral("3"));
            button ? Press(form, "cmdSetup(1)") : static_cast<void>(form.close());
        }));
        EXPECT_EQ(GlobalAnim, before);
        EXPECT_EQ(bAnimChanged, button ? 0 : -1);
    }
}

TEST_F(Setup, AFreshRunShowsZerosAndEmptyTexts) {
    GlobalAnim = AnimationRecord();
    EXPECT_FALSE(Run([this](frmAnimSetup& form) {
        for (int i = 0; i < 8; ++i) {
            const QByteArray name = QByteArrayLiteral("txtAnimSetup(") + QByteArray::number(i) + ')';
            EXPECT_EQ(Text(form, name.constData()), i < 2 ? QString() : QStringLiteral("0"));
        }
        EXPECT_EQ(Find<QComboBox>(form, "cboAnimSetup(0)")->currentText(), QStringLiteral("Once only"));
        EXPECT_EQ(Find<QComboBox>(form, "cboAnimSetup(1)")->currentText(), QStringLiteral("Graphics"));
        Press(form, "cmdSetup(0)"); // told, and stays open
        EXPECT_TRUE(form.isVisible());
        Press(form, "cmdSetup(1)");
    }));
    EXPECT_EQ(stage.boxes,
              std::vector<QString>{QStringLiteral("Animation Setup|Snapshot filename must be entered")});
}

TEST_F(Setup, AFaultBringsItsFieldToTheFront) {
    const struct {
        const char *field, *typed;
    } faults[] = {{"txtAnimSetup(0)", "/nowhere"}, {"txtAnimSetup(2)", "256"}, {"txtAnimSetup(3)", "12"},
                  {"txtAnimSetup(4)", "0"},        {"txtAnimSetup(5)", "1"},   {"txtAnimSetup(6)", "0"},
                  {"txtAnimSetup(7)", "0"}};
    for (const auto& fault : faults) {
        EXPECT_FALSE(Run([&fault](frmAnimSetup& form) {
            Type(form, fault.field, QString::fromLatin1(fault.typed));
            auto* strip = form.findChild<TabStrip*>();
            strip->SetTab(1);
            EXPECT_EQ(form.focusWidget()->objectName(), QStringLiteral("txtAnimSetup(8)"));
            Press(form, "cmdSetup(0)");
            EXPECT_EQ(strip->CurrentTab(), 0);
            EXPECT_EQ(form.focusWidget()->objectName(), QString::fromLatin1(fault.field));
            Press(form, "cmdSetup(1)");
        }));
    }
    EXPECT_EQ(stage.boxes.size(), std::size(faults));
}

TEST_F(Setup, TheStepIsProposedWhenTheUserLeavesTheField) {
    EXPECT_FALSE(Run([](frmAnimSetup& form) {
        auto* width = Find<QLineEdit>(form, "txtAnimSetup(3)");
        const auto leave = [width](Qt::FocusReason reason) {
            QFocusEvent out(QEvent::FocusOut, reason);
            QCoreApplication::sendEvent(width, &out);
        };
        width->setText(QStringLiteral("12"));
        leave(Qt::ActiveWindowFocusReason); // another program came to the front
        EXPECT_EQ(Text(form, "txtAnimSetup(6)"), QStringLiteral("16"));
        Find<QLineEdit>(form, "txtAnimSetup(4)")->setText(QStringLiteral("3"));
        leave(Qt::MouseFocusReason);
        EXPECT_EQ(Text(form, "txtAnimSetup(6)"), QStringLiteral("4.5"));
        Press(form, "cmdSetup(1)");
    }));
}

TEST_F(Setup, LimitsBindTheKeyboardAndNotTheProgram) {
    GlobalAnim.lOffset = 1234567;
    EXPECT_FALSE(Run([](frmAnimSetup& form) {
        auto* offset = Find<QLineEdit>(form, "txtAnimSetup(2)");
        EXPECT_EQ(offset->text(), QStringLiteral("1234567"));
        QTest::keyClick(offset, Qt::Key_End);
        QTest::keyClicks(offset, QStringLiteral("8"));
        EXPECT_EQ(offset->text(), QStringLiteral("1234567"));
        QTest::keyClick(offset, Qt::Key_Backspace);
        QTest::keyClicks(offset, QStringLiteral("9"));
        EXPECT_EQ(offset->text(), QStringLiteral("123456"));
        auto* notes = Find<QPlainTextEdit>(form, "txtAnimSetup(8)");
        notes->insertPlainText(QString(498, QLatin1Char('x')));
        QTest::keyClicks(notes, QStringLiteral("abcd"));
        EXPECT_EQ(notes->toPlainText().size(), 500);
        EXPECT_TRUE(notes->toPlainText().endsWith(QStringLiteral("xab")));
        notes->setPlainText(QString(499, QLatin1Char('x')));
        notes->moveCursor(QTextCursor::End);
        QTest::keyClick(notes, Qt::Key_Return); // two characters in the record
        EXPECT_EQ(notes->toPlainText().size(), 499);
        Press(form, "cmdSetup(1)");
    }));
}

TEST_F(Setup, CheckBoxAndAttributeAreChanges) {
    EXPECT_TRUE(Run([](frmAnimSetup& form) {
        Find<QCheckBox>(form, "chkAnimSetup(0)")->click();
        EXPECT_EQ(bAnimChanged, -1);
        bAnimChanged = 0;
        for (const QString& button : {QStringLiteral("&Cancel"), QStringLiteral("&Select")}) {
            const WhenOpen<QDialog> picker([&button](QDialog& dialog) {
                EXPECT_EQ(dialog.windowTitle(), QStringLiteral("Colours"));
                for (auto* each : dialog.findChildren<QPushButton*>()) {
                    if (each->text() == button) {
                        each->click();
                    }
                }
            });
            Press(form, "cmdSetup(4)");
            EXPECT_EQ(bAnimChanged, 0) << "no other attribute was chosen";
        }
        const WhenOpen<QDialog> picker([](QDialog& dialog) {
            dialog.findChild<QCheckBox*>()->click();
            for (auto* each : dialog.findChildren<QPushButton*>()) {
                if (each->text() == QStringLiteral("&Select")) {
                    each->click();
                }
            }
        });
        Press(form, "cmdSetup(4)");
        const QColor paper = Find<QLabel>(form, "lblColour(0)")->palette().color(QPalette::Window);
        const Colour expected = AttributeColour(120, "BACK");
        EXPECT_EQ(paper, QColor(expected & 255, (expected >> 8) & 255, (expected >> 16) & 255));
        Press(form, "cmdSetup(0)");
    }));
    EXPECT_EQ(bAnimChanged, -1);
    EXPECT_EQ(GlobalAnim.byAttribute, 120); // 56 and bright
    EXPECT_EQ(GlobalAnim.iUpsideDown, 1);
}

TEST_F(Setup, AFileFromTheDialogIsTakenWhole) {
    stage.files = {QString(), stage.Path(QString(90, QLatin1Char('d')) + QStringLiteral(".sna"))};
    EXPECT_FALSE(Run([this](frmAnimSetup& form) {
        Press(form, "cmdSetup(2)");
        EXPECT_EQ(Text(form, "txtAnimSetup(0)"), sSnapshot) << "a cancelled dialog changes nothing";
        const QString sLong =
            stage.MakeFile(QString(90, QLatin1Char('d')) + QStringLiteral(".sna"), NoiseBytes(9));
        Press(form, "cmdSetup(2)");
        EXPECT_EQ(Text(form, "txtAnimSetup(0)"), sLong);
        Press(form, "cmdSetup(0)");
        EXPECT_TRUE(form.isVisible());
        Press(form, "cmdSetup(1)");
    }));
    EXPECT_EQ(stage.boxes, std::vector<QString>{QStringLiteral(
                               "Animation Setup|Snapshot filename must not be longer than 100 characters")});
}

TEST_F(Setup, FocusAndMouseAskForTheirPrompts) {
    EXPECT_FALSE(Run([this](frmAnimSetup& form) {
        stage.notices.clear();
        Find(form, "cboAnimSetup(1)")->setFocus();
        EXPECT_EQ(stage.notices,
                  (std::vector<QString>{QStringLiteral("SetStatusText Select the display mode"),
                                        QStringLiteral("ShowPrompt 52")}));
        stage.notices.clear();
        Find(form, "cmdSetup(4)")->setFocus();
        EXPECT_EQ(stage.notices, std::vector<QString>{QStringLiteral("ShowPrompt 60")});
        auto* strip = form.findChild<TabStrip*>();
        const struct {
            QPoint place; // from the strip's corner
            int key;
        } moves[] = {{{1, 3}, 46},  {{51, 18}, 46}, {{52, 10}, 0}, {{56, 3}, 47}, {{94, 18}, 47},
                     {{95, 10}, 0}, {{30, 2}, 0},   {{30, 19}, 0}, {{8, 60}, 0}};
        for (const auto& move : moves) {
            stage.notices.clear();
            QWidget* under = strip->childAt(move.place);
            under = under == nullptr ? strip : under;
            QTest::mouseMove(under, under->mapFrom(strip, move.place));
            EXPECT_EQ(stage.notices, std::vector<QString>{QStringLiteral("ShowPrompt %1").arg(move.key)})
                << move.place.x() << "," << move.place.y();
        }
        stage.notices.clear();
        QTest::mouseMove(Find(form, "txtAnimSetup(7)"), {5, 5});
        EXPECT_EQ(stage.notices, std::vector<QString>{QStringLiteral("ShowPrompt 58")});
        Press(form, "cmdSetup(1)");
    }));
}

} // namespace
} // namespace lumrake::testing
