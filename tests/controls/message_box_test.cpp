#include "controls/message_box.h"

#include "support/when_open.h"

#include <QLabel>
#include <QMessageBox>

namespace lumrake::testing {

TEST(MsgBox, ShowsItsTextPlainAndAnswersByKeys) {
    using enum BoxAnswer;
    SetMessageBoxAnswerer({});
    const std::tuple<BoxButtons, BoxIcon, QMessageBox::Icon, int, BoxAnswer> cases[] = {
        {BoxButtons::Ok, BoxIcon::Information, QMessageBox::Information, Qt::Key_Escape, Ok},
        {BoxButtons::YesNo, BoxIcon::Exclamation, QMessageBox::Warning, Qt::Key_Escape, No},
        {BoxButtons::YesNo, BoxIcon::Question, QMessageBox::Question, Qt::Key_Return, Yes},
        {BoxButtons::YesNoCancel, BoxIcon::None, QMessageBox::NoIcon, Qt::Key_Return, Yes},
        {BoxButtons::YesNoCancel, BoxIcon::None, QMessageBox::NoIcon, Qt::Key_N, No},
        {BoxButtons::YesNoCancel, BoxIcon::None, QMessageBox::NoIcon, Qt::Key_Escape, Cancel},
    };
    const QString text = QStringLiteral("<b>a &amp; b</b> &c");
    for (const auto& [buttons, icon, shown, key, answer] : cases) {
        const WhenOpen<QMessageBox> driver([&, shown = shown, key = key](QMessageBox& box) {
            const auto* label = box.findChild<QLabel*>(QStringLiteral("qt_msgbox_label"));
            EXPECT_TRUE(label->text() == text && label->textFormat() == Qt::PlainText);
            EXPECT_TRUE(box.windowTitle() == QStringLiteral("Title") && box.icon() == shown);
            QTest::keyClick(&box, Qt::Key(key));
        });
        EXPECT_EQ(MsgBox(text, buttons, icon, QStringLiteral("Title")), answer) << key;
    }
}

} // namespace lumrake::testing
