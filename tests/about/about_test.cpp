#include "about/frmAbout.h"
#include "support/forms_support.h"

#include <QLabel>
#include <QPushButton>

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
        EXPECT_LE(label->heightForWidth(label->width()), label->height());
    }
}

} // namespace
} // namespace lumrake::testing
