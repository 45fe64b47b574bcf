#include "platform/toolbar.h"

#include <QTest>
#include <QToolButton>
#include <QWindow>

#include <gtest/gtest.h>

#include <vector>

namespace lumrake {
namespace {

class ToolbarTest : public ::testing::Test {
  protected:
    ToolbarTest() {
        const QString picture = QStringLiteral("toolbar/open.svg");
        bar.AddButton({{}, ButtonStyle::Separator, {}, {}});
        bar.AddButton({QStringLiteral("A"), ButtonStyle::Plain, picture, QStringLiteral("Do A")});
        bar.AddButton({QStringLiteral("B"), ButtonStyle::Group, picture, QStringLiteral("Tool B")});
        bar.AddButton({QStringLiteral("C"), ButtonStyle::Group, picture, QStringLiteral("Tool C")});
        bar.ButtonClick = [this](int index) { clicks.push_back(index); };
        bar.MouseMove = [this](double x) { moves.push_back(x); };
        bar.show();
    }
    QToolButton* Control(int button) const { return bar.findChildren<QToolButton*>()[button]; }

    Toolbar bar;
    std::vector<int> clicks;
    std::vector<double> moves;
};

TEST_F(ToolbarTest, MovesOverEveryButtonReachTheBar) {
    bar.SetButtonEnabled(2, false);
    for (const int button : {0, 1}) {
        const QPoint middle = Control(button)->geometry().center();
        moves.clear();
        QTest::mouseMove(bar.windowHandle(), middle);
        QTest::mouseMove(bar.windowHandle(), middle + QPoint(1, 0));
        ASSERT_FALSE(moves.empty()) << button;
        EXPECT_EQ(moves.back(), middle.x() + 1) << button;
    }
}

TEST_F(ToolbarTest, OneToolIsPressedAndAClickOnItIsToldAgain) {
    bar.PressButton(3);
    EXPECT_TRUE(clicks.empty());
    for (const int button : {1, 2, 2, 0}) {
        QTest::mouseClick(Control(button), Qt::LeftButton);
    }
    EXPECT_EQ(clicks, (std::vector<int>{3, 4, 4, 2}));
    EXPECT_TRUE(bar.IsButtonPressed(4));
    EXPECT_FALSE(bar.IsButtonPressed(3) || bar.IsButtonPressed(2));
}

} // namespace
} // namespace lumrake
