#include "assistant/frmHelp.h"

#include "assistant/prompts.h"
#include "support/forms_support.h"

#include <QLabel>
#include <QMdiArea>

#include <set>

namespace lumrake::testing {
namespace {

// The opening words; whether the rest of a text fits is tested below.
const QString kGreeting = u"Hello, I'm Mr Fizzlet. I'm here to help you"_qs;
const QString kStolen = u"It would appear that somebody has stolen the help file.  It's called"_qs;
const QString kUnknown = u"Sorry, I can't help you with that one!"_qs;

/// The assistant in an area of 600 x 400 pixels.
class Assistant : public ::testing::Test {
  protected:
    Assistant() {
        area.resize(600, 400);
        area.show();
    }
    /// Whether the bubble is there and begins with this; an empty text asks for no bubble.
    bool Says(const QString& text) const {
        const bool shown = label->isVisible() && tail->isVisible();
        return text.isEmpty() ? !shown : shown && label->text().startsWith(text);
    }

    Stage stage;
    QMdiArea area;
    frmHelp& form = *new frmHelp(&area); // goes with the area
    QLabel* label = form.findChild<QLabel*>(QStringLiteral("lblBubble"));
    QWidget* figure = form.findChild<QWidget*>(QStringLiteral("imgFizzlet0"));
    QWidget* tail = form.findChild<QWidget*>(QStringLiteral("imgFizzlet1"));
    const QPoint corner{600 - 257, 400 - 231}; // 250 x 224 pixels and 100 twips
};

TEST_F(Assistant, GoesThroughHisStates) {
    EXPECT_FALSE(form.isVisible());
    form.Launch();
    EXPECT_EQ(form.geometry(), QRect(corner, QSize(250, 224)));
    EXPECT_TRUE(figure->isVisible() && Says({}));
    form.SetPrompt(kUnknown);
    EXPECT_TRUE(Says(kUnknown));
    QTest::mouseMove(&form, QPoint(15, 15)); // the bubble beside the label
    EXPECT_TRUE(Says({}));
    QTest::mouseMove(figure, QPoint(20, 30));
    EXPECT_TRUE(Says(kGreeting));
    QEvent leave(QEvent::Leave);
    QCoreApplication::sendEvent(&form, &leave);
    EXPECT_TRUE(Says({}));

    area.setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
    EXPECT_EQ(form.y(), area.viewport()->height() - 231) << "on his feet";
    form.SetPrompt(kUnknown);
    form.move(3, 4);
    area.setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    form.Launch(); // the main window became active
    EXPECT_TRUE(Says({}));
    EXPECT_EQ(form.pos(), QPoint(3, 4));
    form.Kill();
    form.Launch();
    EXPECT_EQ(form.pos(), corner);
}

TEST_F(Assistant, OnlyWhatIsSeenCatchesTheMouse) {
    const std::tuple<QPoint, bool, bool> cases[] = {
        // the place, and whether it is his when idle and speaking
        {{2, 2}, false, false},    {{100, 8}, false, true},    {{245, 141}, false, true},
        {{160, 150}, false, true}, {{206, 180}, false, false}, {{207, 180}, true, true},
        {{246, 222}, true, true},  {{247, 180}, false, false}, {{220, 145}, false, false}};
    form.Launch();
    for (const bool speaking : {false, true, false}) {
        form.SetPrompt(speaking ? kUnknown : QString());
        for (const auto& [place, idle, talking] : cases) {
            const QWidget* hit = area.childAt(form.pos() + place);
            EXPECT_EQ(hit == &form || form.isAncestorOf(hit), speaking ? talking : idle)
                << place.x() << ',' << place.y();
        }
    }
}

TEST_F(Assistant, IsDraggedByTheLeftButtonAlone) {
    form.Launch();
    form.SetPrompt(kUnknown);
    for (QWidget* control : {static_cast<QWidget*>(label), figure, tail}) {
        for (const auto button : {Qt::LeftButton, Qt::RightButton}) {
            form.SetPosition(); // back to the corner, as after a resize of the main window
            QTest::mousePress(control, button, {}, QPoint(5, 6));
            const QPointF place(-20, -29); // as far again at the second move: the form has come along
            QMouseEvent move(QEvent::MouseMove, place, place, Qt::NoButton, button, {});
            QCoreApplication::sendEvent(control, &move);
            QCoreApplication::sendEvent(control, &move);
            QTest::mouseRelease(control, button, {}, QPoint(5, 6));
            EXPECT_EQ(form.pos() - corner, button == Qt::LeftButton ? QPoint(-50, -70) : QPoint(0, 0));
            EXPECT_TRUE(Says(control == label ? kUnknown : kGreeting));
        }
    }
}

TEST_F(Assistant, LooksUpWhatHeSays) {
    const auto says = [this](std::int32_t number, const QString& text) {
        ShowHelpPrompt(form, true, number);
        return Says(text);
    };
    form.Launch();
    EXPECT_TRUE(says(1, kStolen));
    ShowHelpPrompt(form, false, 0);
    EXPECT_TRUE(Says(kStolen)); // switched off, he keeps still
    EXPECT_TRUE(says(-1, {}));
    const std::string help = "001,Caf\xe9; please\n002,\"Caf\xc3\xa9\r\nb\"\n004,\n";
    stage.MakeFile(u"LMKHELP.DAT"_qs, std::vector<std::uint8_t>(help.begin(), help.end()));
    EXPECT_TRUE(says(1, QStringLiteral("Caf\u00e9, please")));
    EXPECT_TRUE(says(2, QStringLiteral("Caf\u00e9\nb")));
    EXPECT_TRUE(says(4, {}));
}

TEST_F(Assistant, TheFileOfTheProgramAnswersEveryNumberInUseAndNoTextIsCut) {
    QStringList texts{HelpPrompt(1)}; // no file yet
    ASSERT_TRUE(QFile::copy(QStringLiteral(LUMRAKE_HELP_FILE), stage.Path(u"LMKHELP.DAT"_qs)));
    const std::set<int> unused{17, 18, 19, 23, 27, 32, 35};
    for (int number = 1; number <= 98; ++number) {
        texts << HelpPrompt(number);
        EXPECT_EQ(texts.back() == kUnknown, unused.contains(number)) << number;
    }
    QTest::mouseMove(figure, QPoint(20, 30));
    texts << label->text();
    ASSERT_EQ(label->size(), QSize(201, 97));
    for (const QString& text : texts) {
        form.SetPrompt(text);
        EXPECT_LE(label->heightForWidth(label->width()), label->height()) << text.toStdString();
        EXPECT_TRUE(u".!?"_qs.contains(text.back())) << text.toStdString() << ": cut at a comma";
    }
}

} // namespace
} // namespace lumrake::testing
