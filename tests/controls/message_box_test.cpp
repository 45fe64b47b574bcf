#include "controls/message_box.h"

#include "support/when_open.h"

#include <QLabel>
#include <QMessageBox>

namespace lumrake::testing {

TEST(MsgBox, ShowsItsTextPlainIsWiderThanItsTitleAndAnswersByKeys) {
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
    const QString text = u"<b>a &amp; b</b> &c"_qs, title(40, u'W');
    for (const auto& [buttons, icon, shown, key, answer] : cases) {
        const WhenOpen<QMessageBox> driver([&, shown = shown, key = key](QMessageBox& box) {
            const auto* label = box.findChild<QLabel*>(QStringLiteral("qt_msgbox_label"));
            EXPECT_TRUE(label->text() == text && label->textFormat() == Qt::PlainText);
            EXPECT_TRUE(box.windowTitle() == title && box.icon() == shown);
            EXPECT_GT(box.width(), box.fontMetrics().horizontalAdvance(title) + 100);
            QTest::keyClick(&box, Qt::Key(key));
        });
        EXPECT_EQ(MsgBox(text, buttons, icon, title), answer) << key;
    }
}

} // namespace lumrake::testing
