#include "about/frmAbout.h"
#include "about/frmSplash.h"
#include "support/forms_support.h"

#include <QLabel>
#include <QPushButton>
#include <QScreen>
#include <QTest>

#include <gtest/gtest.h>

namespace lumrake::testing {
namespace {

template <class Widget = QWidget> Widget* Find(const QWidget& form, const char* name) {
    return form.findChild<Widget*>(QLatin1String(name));
}

TEST(About, FlipsItsPagesAndTellsWhatIsUnderTheMouse) {
    Stage stage;
    frmAbout about;
    about.show();
    const struct {
        bool credits;
        const char* control;
        int number;
    } cases[] = {{false, "Image1", 12}, {false, "cmdOkay", 13}, {false, "cmdFlip", 14},
                 {false, "Label2", 15}, {false, "Label1", 0},   {false, "Frame1", 0},
                 {true, "cmdFlip", 16}, {true, "cmdOkay", 13},  {true, "lblPeople", 0}};
    auto* cmdFlip = Find<QPushButton>(about, "cmdFlip");
    bool credits = false;
    for (const auto& one : cases) {
        if (credits != one.credits) {
            cmdFlip->click();
            credits = !credits;
        }
        EXPECT_EQ(Find(about, "Frame1")->isVisible(), !credits);
        EXPECT_EQ(Find(about, "Frame2")->isVisible(), credits);
        QTest::mouseMove(Find(about, one.control), QPoint(3, 3));
        EXPECT_EQ(stage.notices, std::vector{QStringLiteral("ShowPrompt %1").arg(one.number)}) << one.control;
        stage.notices.clear();
    }
    cmdFlip->click();
    EXPECT_EQ(cmdFlip->text(), QStringLiteral("C&redit"));
    QTest::mousePress(cmdFlip, Qt::LeftButton);
    QTest::mouseMove(cmdFlip, QPoint(-5, -5));
    EXPECT_FALSE(cmdFlip->isDown());
    Find<QPushButton>(about, "cmdOkay")->click();
    EXPECT_FALSE(about.isVisible());
}

TEST(About, NamesTheProgramAndItsHelpers) {
    Stage stage;
    const frmAbout about;
    EXPECT_EQ(Find<QLabel>(about, "lblVersion")->text(), QStringLiteral("Version 2.00      "));
    const QStringList rows = Find<QLabel>(about, "lblPeople")->text().split(QStringLiteral("\n\n"));
    ASSERT_EQ(rows.size(), 6); // each row has its empty line, the last one too
    EXPECT_TRUE(rows[1].endsWith(QLatin1String(" - an excellent find")));
    EXPECT_TRUE(rows[4].contains(QLatin1Char('/')) && rows[4].endsWith(QLatin1String(" - ideas")));
    for (const QLabel* label : about.findChildren<QLabel*>()) {
        EXPECT_LE(label->heightForWidth(label->width()), label->height())
            << label->objectName().toStdString();
    }
}

TEST(Splash, ShowsItsPictureInTheMiddleOfTheScreen) {
    frmSplash splash;
    splash.show();
    splash.Refresh();
    const QRect screen = splash.screen()->availableGeometry();
    EXPECT_EQ(splash.pos(),
              screen.topLeft() + QPoint((screen.width() - 380) / 2, (screen.height() - 210) / 2));
    EXPECT_EQ(splash.grab().toImage().pixelColor(5, 205), QColor(0x0b, 0x0d, 0x22)); // below the film
}

} // namespace
} // namespace lumrake::testing
