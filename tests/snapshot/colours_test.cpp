#include "snapshot/frmColours.h"

#include "support/forms_support.h"

#include <QCheckBox>
#include <QLabel>
#include <QPushButton>
#include <QTimer>

namespace lumrake {

struct ColoursProbe {
    frmColours form;

    void Press(std::size_t index, Qt::MouseButton button) {
        QTest::mouseClick(form.lblColour[index], button);
    }
    void Button(std::size_t index) { form.cmdColour[index]->click(); } ///< 0 Select, 1 Cancel
    QCheckBox& Bright() { return *form.chkBright; }
    QRgb Swatch(std::size_t index) const { return form.lblColour[index]->grab().toImage().pixel(9, 9); }
    QColor Shown(QPalette::ColorRole role) const { return form.lblColour[8]->palette().color(role); }

    /// Opens the picker, does `work` in it and gives its result. A picker left open is closed by its close box.
    int Pick(std::int16_t iColour, const std::function<void()>& work) {
        QTimer::singleShot(0, &form, [this, &work] {
            testing::WaitForActive(form);
            work();
            form.close();
        });
        return form.GetColour(iColour);
    }
};

namespace {

struct Colours : ::testing::Test {
    Colours() { Settings.lPalette = {0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15}; }
    void ExpectShown(int ink, int paper) {
        for (int i = 0; i < 8; ++i) {
            EXPECT_EQ(open.Swatch(static_cast<std::size_t>(i)), qRgb(i + (ink & 8), 0, 0)) << i;
        }
        EXPECT_EQ(open.Swatch(8), qRgb(paper, 0, 0));
        EXPECT_EQ(open.Shown(QPalette::WindowText), QColor(ink, 0, 0));
    }

    testing::Stage stage;
    ColoursProbe open;
};

TEST_F(Colours, SelectGivesBackWhatItStartedFrom) {
    // start, result, ink and paper as entries of the palette
    const std::int16_t cases[][4] = {{-1, 7, 7, 0}, {0, 0, 0, 0}, {71, 71, 15, 8}, {255, 127, 15, 15}};
    for (const auto& [start, result, ink, paper] : cases) {
        EXPECT_EQ(open.Pick(start, [this] { open.Button(0); }), result);
        ExpectShown(ink, paper);
    }
}

TEST_F(Colours, ButtonsOfTheMouseChooseInkAndPaperAndKeysChooseNothing) {
    for (const bool select : {true, false}) { // else by the close box, which is a Cancel as well
        const auto choose = [this, select] {
            open.Press(2, Qt::LeftButton);
            open.Press(6, Qt::RightButton);
            open.Press(5, Qt::MiddleButton);
            open.Press(8, Qt::LeftButton); // the sample offers no colour
            open.Bright().click();
            ExpectShown(10, 14);
            open.Bright().click();
            for (const Qt::Key key : {Qt::Key_Escape, Qt::Key_Return, Qt::Key_Enter}) {
                QTest::keyClick(&open.Bright(), key);
                EXPECT_TRUE(open.form.isVisible()) << key;
            }
            select ? open.Button(0) : void();
        };
        EXPECT_EQ(open.Pick(-1, choose), select ? 50 : -1);
    }
    EXPECT_EQ(open.Pick(9, [this] { open.Button(1); }), -1);
}

} // namespace
} // namespace lumrake
