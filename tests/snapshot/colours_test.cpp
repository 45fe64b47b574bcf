#include "snapshot/frmColours.h"

#include "support/forms_support.h"

#include <QCheckBox>
#include <QLabel>
#include <QPushButton>
#include <QTest>
#include <QTimer>

#include <gtest/gtest.h>

#include <array>
#include <functional>

namespace lumrake {

struct ColoursProbe {
    frmColours& form;

    QWidget* Swatch(int index) const { return form.lblColour[static_cast<std::size_t>(index)]; }
    QCheckBox* Bright() const { return form.chkBright; }
    QPushButton* Select() const { return form.cmdColour[0]; }
    QPushButton* Cancel() const { return form.cmdColour[1]; }
    void Press(int index, Qt::MouseButton button) const { QTest::mouseClick(Swatch(index), button); }
    /// True when the sample shows these two entries of the palette.
    bool Shows(int ink, int paper) const {
        const auto entry = [this](QPalette::ColorRole role) {
            const QColor colour = Swatch(8)->palette().color(role);
            return colour.red() + 256 * colour.green() + 65536 * colour.blue();
        };
        return entry(QPalette::WindowText) == Settings.lPalette[static_cast<std::size_t>(ink)] &&
               entry(QPalette::Window) == Settings.lPalette[static_cast<std::size_t>(paper)];
    }
};

namespace {

class Colours : public ::testing::Test {
  protected:
    /// Opens the picker, does `work` in it and gives its result. A picker left open is closed by its close
    /// box.
    int Pick(int iColour, const std::function<void()>& work) {
        QTimer::singleShot(0, &form, [this, &work] {
            EXPECT_TRUE(QTest::qWaitForWindowActive(&form));
            work();
            form.close();
        });
        return form.GetColour(static_cast<std::int16_t>(iColour));
    }

    testing::Stage stage;
    frmColours form;
    ColoursProbe open{form};
};

TEST_F(Colours, SelectGivesBackWhatItStartedFrom) {
    const std::array<int, 4> cases[] = {// start, result, ink and paper as entries of the palette
                                        {-1, 7, 7, 0},
                                        {0, 0, 0, 0},
                                        {71, 71, 15, 8},
                                        {56, 56, 0, 7},
                                        {255, 127, 15, 15}};
    for (const auto& [start, result, ink, paper] : cases) {
        EXPECT_EQ(Pick(start, [this] { open.Select()->click(); }), result);
        EXPECT_TRUE(open.Shows(ink, paper)) << start;
    }
}

TEST_F(Colours, ButtonsOfTheMouseChooseInkAndPaper) {
    const auto choose = [this] {
        open.Press(2, Qt::LeftButton);
        open.Press(6, Qt::RightButton);
        open.Press(5, Qt::MiddleButton);
        open.Press(8, Qt::LeftButton); // the sample offers no colour
        open.Press(8, Qt::RightButton);
        open.Bright()->click();
        EXPECT_TRUE(open.Shows(10, 14));
        open.Bright()->click();
        open.Select()->click();
    };
    EXPECT_EQ(Pick(-1, choose), 50);
}

TEST_F(Colours, EveryOtherWayOutIsACancelAndKeysAreNone) {
    const auto change = [this] {
        open.Press(1, Qt::LeftButton);
        for (const Qt::Key key : {Qt::Key_Escape, Qt::Key_Return, Qt::Key_Enter}) {
            QTest::keyClick(open.Bright(), key);
            EXPECT_TRUE(form.isVisible()) << key;
        }
    };
    EXPECT_EQ(Pick(9, change), -1); // the close box
    EXPECT_EQ(Pick(9, [this] { open.Cancel()->click(); }), -1);
}

} // namespace
} // namespace lumrake
