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

TEST(About, FlipsItsPages) {
    const Stage stage;
    frmAbout about;
    about.show();
    auto* cmdFlip = Find<QPushButton>(about, "cmdFlip");
    for (const bool credits : {true, false}) {
        cmdFlip->click();
        EXPECT_EQ(Find(about, "Frame1")->isVisible(), !credits);
        EXPECT_EQ(Find(about, "Frame2")->isVisible(), credits);
        EXPECT_EQ(cmdFlip->text(), QLatin1String(credits ? "&About" : "C&redit"));
    }
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
