#include "snapshot/frmColours.h"

#include "support/forms_support.h"

#include <QApplication>
#include <QCheckBox>
#include <QLabel>
#include <QPushButton>
#include <QTest>
#include <QTimer>

#include <gtest/gtest.h>

#include <functional>

namespace lumrake {

struct ColoursProbe {
    frmColours& form;

    QWidget* Swatch(int index) const { return form.lblColour[static_cast<std::size_t>(index)]; }
    QColor Back(int index) const { return Swatch(index)->palette().color(QPalette::Window); }
    QColor Fore(int index) const { return Swatch(index)->palette().color(QPalette::WindowText); }
    QCheckBox* Bright() const { return form.chkBright; }
    QPushButton* Select() const { return form.cmdColour[0]; }
    QPushButton* Cancel() const { return form.cmdColour[1]; }
    void Press(int index, Qt::MouseButton button) const { QTest::mouseClick(Swatch(index), button); }
};

namespace {

class Colours : public ::testing::Test {
  protected:
    /// Opens the picker, does `work` in it and gives its result. A picker left open is closed.
    std::int16_t Pick(std::int16_t iColour, const std::function<void(const ColoursProbe&)>& work) {
        QTimer::singleShot(0, &form, [this, &work] {
            EXPECT_TRUE(QTest::qWaitForWindowActive(&form));
            work(probe);
            form.close();
        });
        return form.GetColour(iColour);
    }

    testing::Stage stage;
    frmColours form;
    ColoursProbe probe{form};
};

QColor PaletteColour(std::size_t entry) {
    const Colour colour = Settings.lPalette[entry];
    return QColor(colour & 255, colour >> 8 & 255, colour >> 16 & 255);
}

TEST_F(Colours, SelectGivesBackWhatItStartedFrom) {
    struct Case {
        std::int16_t start, result;
        std::size_t ink, paper; // entries of the palette that the sample shows
    };
    const Case cases[] = {{-1, 7, 7, 0},  {0, 0, 0, 0},       {71, 71, 15, 8},
                          {56, 56, 0, 7}, {127, 127, 15, 15}, {128 + 71, 71, 15, 8}};
    for (const Case& c : cases) {
        EXPECT_EQ(Pick(c.start,
                       [&c](const ColoursProbe& open) {
                           EXPECT_EQ(open.Fore(8), PaletteColour(c.ink)) << c.start;
                           EXPECT_EQ(open.Back(8), PaletteColour(c.paper)) << c.start;
                           EXPECT_EQ(open.Back(2), PaletteColour(c.ink < 8 && c.paper < 8 ? 2 : 10))
                               << c.start;
                           open.Select()->click();
                       }),
                  c.result);
    }
}

TEST_F(Colours, ButtonsOfTheMouseChooseInkAndPaper) {
    EXPECT_EQ(Pick(-1,
                   [](const ColoursProbe& open) {
                       open.Press(2, Qt::LeftButton);
                       open.Press(6, Qt::RightButton);
                       open.Press(5, Qt::MiddleButton);
                       open.Press(8, Qt::LeftButton); // the sample offers no colour
                       open.Press(8, Qt::RightButton);
                       EXPECT_EQ(open.Fore(8), PaletteColour(2));
                       EXPECT_EQ(open.Back(8), PaletteColour(6));
                       open.Bright()->click();
                       EXPECT_EQ(open.Fore(8), PaletteColour(10));
                       EXPECT_EQ(open.Back(7), PaletteColour(15));
                       open.Bright()->click();
                       open.Select()->click();
                   }),
              50);
    EXPECT_EQ(Pick(0,
                   [](const ColoursProbe& open) {
                       open.Press(3, Qt::LeftButton);
                       QTest::mouseDClick(open.Swatch(3), Qt::RightButton); // a second press
                       QTest::mouseRelease(open.Swatch(3), Qt::RightButton);
                       open.Select()->click();
                   }),
              27);
}

TEST_F(Colours, EveryOtherWayOutIsACancel) {
    const auto change = [](const ColoursProbe& open) { open.Press(1, Qt::LeftButton); };
    EXPECT_EQ(Pick(9,
                   [&](const ColoursProbe& open) {
                       change(open);
                       open.Cancel()->click();
                   }),
              -1);
    EXPECT_EQ(Pick(9, change), -1); // the close box
    EXPECT_EQ(Pick(9,
                   [](const ColoursProbe& open) { // Enter and Escape leave the dialog open
                       for (const Qt::Key key : {Qt::Key_Escape, Qt::Key_Return, Qt::Key_Enter}) {
                           QTest::keyClick(&open.form, key);
                           QTest::keyClick(open.Bright(), key);
                           EXPECT_TRUE(open.form.isVisible()) << key;
                       }
                       EXPECT_EQ(open.Bright()->isChecked(), false);
                       open.Select()->click();
                   }),
              9);
}

TEST_F(Colours, TheMouseIsTheOnlyWayToASwatch) {
    for (int index = 0; index < 9; ++index) {
        EXPECT_EQ(probe.Swatch(index)->focusPolicy(), Qt::NoFocus);
    }
}

TEST_F(Colours, SpeaksThroughTheAssistant) {
    Pick(-1, [this](const ColoursProbe& open) {
        struct Case {
            QWidget* control;
            int prompt;
        };
        const Case cases[] = {{open.Swatch(0), 64},
                              {open.Swatch(7), 64},
                              {open.Swatch(8), 65},
                              {open.Bright(), 66},
                              {open.Cancel(), 67},
                              {open.Select(), 68},
                              {open.Swatch(0)->parentWidget(), 0},
                              {&open.form, 0}};
        for (const Case& c : cases) {
            stage.notices.clear();
            QTest::mouseMove(c.control, QPoint(3, 3));
            ASSERT_FALSE(stage.notices.empty());
            EXPECT_EQ(stage.notices.back(), QStringLiteral("ShowPrompt %1").arg(c.prompt));
        }
        open.Select()->setFocus(Qt::OtherFocusReason);
        stage.notices.clear();
        open.Bright()->setFocus(Qt::TabFocusReason);
        EXPECT_EQ(stage.TakeNotices(QStringLiteral("ShowPrompt 66")), 1);
        open.Select()->setFocus(Qt::ActiveWindowFocusReason); // coming back from another program
        EXPECT_EQ(stage.TakeNotices(QStringLiteral("ShowPrompt 68")), 0);
    });
}

} // namespace
} // namespace lumrake
