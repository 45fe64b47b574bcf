#include "about/frmAbout.h"
#include "support/forms_support.h"

#include <QLabel>

namespace lumrake::testing {
namespace {

TEST(About, NamesTheProgramAndItsHelpers) {
    Stage stage;
    const frmAbout about;
    EXPECT_EQ(about.findChild<QLabel*>(QStringLiteral("lblVersion"))->text(),
              QStringLiteral("Version 2.00      "));
    const auto* people = about.findChild<QLabel*>(QStringLiteral("lblPeople"));
    const QStringList rows = people->text().split(QStringLiteral("\n\n"));
    ASSERT_EQ(rows.size(), 6); // each row has its empty line, the last one too
    EXPECT_TRUE(rows[1].endsWith(QLatin1String(" - an excellent find")));
    EXPECT_TRUE(rows[4].contains(QLatin1Char('/')) && rows[4].endsWith(QLatin1String(" - ideas")));
    for (const QLabel* label : about.findChildren<QLabel*>()) {
        EXPECT_LE(label->heightForWidth(label->width()), label->height());
    }
}

} // namespace
} // namespace lumrake::testing
