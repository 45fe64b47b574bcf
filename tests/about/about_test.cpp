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

QRect MiddleOfScreen(const QWidget& window) {
    const QRect screen = window.screen()->availableGeometry();
    return {screen.x() + (screen.width() - window.width()) / 2,
            screen.y() + (screen.height() - window.height()) / 2, window.width(), window.height()};
}

TEST(About, FlipsBetweenItsPages) {
    Stage stage;
    frmAbout about;
    about.show();
    EXPECT_EQ(QRect(about.pos(), about.size()), MiddleOfScreen(about));
    auto* cmdFlip = Find<QPushButton>(about, "cmdFlip");
    for (const bool credits : {false, true, false}) {
        EXPECT_EQ(Find(about, "Frame1")->isVisible(), !credits);
        EXPECT_EQ(Find(about, "Frame2")->isVisible(), credits);
        EXPECT_EQ(cmdFlip->text(), credits ? QStringLiteral("&About") : QStringLiteral("C&redit"));
        cmdFlip->click();
    }
    Find<QPushButton>(about, "cmdOkay")->click();
    EXPECT_FALSE(about.isVisible());
    EXPECT_EQ(about.result(), QDialog::Rejected); // exec() has come back
}

TEST(About, NamesTheProgramAndItsHelpers) {
    Stage stage;
    const frmAbout about;
    EXPECT_EQ(Find<QLabel>(about, "lblApp")->text(), QStringLiteral("Lumrake"));
    EXPECT_EQ(Find<QLabel>(about, "lblApp2")->text(), QStringLiteral("Lumrake"));
    EXPECT_EQ(Find<QLabel>(about, "lblVersion")->text(), QStringLiteral("Version 2.00      "));
    const QStringList rows = Find<QLabel>(about, "lblPeople")->text().split(QStringLiteral("\n\n"));
    const char* contributions[] = {"programming help", "an excellent find", "testing and ideas",
                                   "Windows graphics tips", "ideas"};
    ASSERT_EQ(rows.size(), 6);
    for (int row = 0; row < 5; ++row) {
        EXPECT_TRUE(rows[row].endsWith(QLatin1String(" - ") + QLatin1String(contributions[row]))) << row;
        EXPECT_EQ(rows[row].contains(QLatin1Char('/')), row == 4) << row;
    }
    for (const QLabel* label : about.findChildren<QLabel*>()) {
        EXPECT_LE(label->heightForWidth(label->width()), label->height())
            << label->objectName().toStdString();
    }
}

TEST(About, TellsTheAssistantWhatIsUnderTheMouse) {
    Stage stage;
    frmAbout about;
    about.show();
    const struct {
        const char* control;
        int number;
    } first[] = {{"Image1", 12}, {"cmdOkay", 13}, {"cmdFlip", 14}, {"Label2", 15},
                 {"Label1", 0},  {"lblApp", 0},   {"Frame1", 0}},
      second[] = {{"cmdFlip", 16}, {"cmdOkay", 13}, {"lblPeople", 0}, {"Frame2", 0}};
    const auto check = [&](const auto& rows) {
        for (const auto& row : rows) {
            QTest::mouseMove(Find(about, row.control), QPoint(3, 3));
            EXPECT_EQ(stage.notices, std::vector{QStringLiteral("ShowPrompt %1").arg(row.number)})
                << row.control;
            stage.notices.clear();
        }
    };
    check(first);
    Find<QPushButton>(about, "cmdFlip")->click();
    check(second);
    QTest::mouseMove(&about, QPoint(150, 235));
    EXPECT_EQ(stage.TakeNotices(QStringLiteral("ShowPrompt 0")), 1);
}

TEST(Splash, ShowsItsPictureInTheMiddleOfTheScreen) {
    frmSplash splash;
    splash.show();
    splash.Refresh();
    EXPECT_EQ(QRect(splash.pos(), splash.size()), MiddleOfScreen(splash));
    const QImage shown = splash.grab().toImage();
    EXPECT_EQ(shown.size() / shown.devicePixelRatio(), QSize(380, 210));
    EXPECT_EQ(shown.pixelColor(5, 205), QColor(0x0b, 0x0d, 0x22)); // the ground below the film
}

} // namespace
} // namespace lumrake::testing
