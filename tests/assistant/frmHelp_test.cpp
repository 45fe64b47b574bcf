#include "assistant/frmHelp.h"

#include "assistant/help_file.h"
#include "assistant/prompts.h"
#include "support/forms_support.h"

#include <QFile>
#include <QImage>
#include <QLabel>
#include <QMdiArea>
#include <QTest>

#include <gtest/gtest.h>

namespace lumrake::testing {
namespace {

const QString kGreeting = QStringLiteral(
    "Hello, I'm Mr Fizzlet. I'm here to help you find your way around LMK. You can turn me off by "
    "de-selecting my option from the Help menu.");
const QString kStolen = QStringLiteral(
    "It would appear that somebody has stolen the help file.  It's called LMKHELP.DAT and was last seen "
    "in the directory where you installed LMK.");
const QString kUnknown = QStringLiteral("Sorry, I can't help you with that one!");

/// The assistant in an area of 600 x 400 pixels.
class Assistant : public ::testing::Test {
  protected:
    Assistant() {
        area.resize(600, 400);
        area.show();
    }

    /// What the bubble says; empty when it is not to be seen.
    QString Bubble() const { return label->isVisible() && tail->isVisible() ? label->text() : QString(); }
    /// Whether the assistant, and not what lies behind him, gets the mouse at this place of his.
    bool Catches(int x, int y) const {
        const QWidget* hit = area.childAt(form.pos() + QPoint(x, y));
        return hit != nullptr && (hit == &form || form.isAncestorOf(hit));
    }
    void WriteHelp(const QByteArray& bytes) {
        stage.MakeFile(QStringLiteral("LMKHELP.DAT"), {reinterpret_cast<const std::uint8_t*>(bytes.data()),
                                                       static_cast<std::size_t>(bytes.size())});
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
    EXPECT_TRUE(figure->isVisible());
    EXPECT_EQ(Bubble(), QString());
    EXPECT_TRUE(area.subWindowList().isEmpty());

    form.SetPrompt(QStringLiteral("a <b>word</b>"));
    EXPECT_EQ(Bubble(), QStringLiteral("a <b>word</b>"));
    form.SetPrompt({});
    EXPECT_EQ(Bubble(), QString());
    form.SetPrompt(kUnknown);
    QTest::mouseMove(&form, QPoint(15, 15)); // the bubble beside the label
    EXPECT_EQ(Bubble(), QString());
    QTest::mouseMove(figure, QPoint(20, 30));
    EXPECT_EQ(Bubble(), kGreeting);
    QTest::mouseMove(label, QPoint(20, 30));
    EXPECT_EQ(Bubble(), kGreeting);
    QEvent leave(QEvent::Leave);
    QCoreApplication::sendEvent(&form, &leave);
    EXPECT_EQ(Bubble(), QString());

    form.SetPrompt(kUnknown);
    form.move(3, 4);
    form.Launch(); // the main window became active
    EXPECT_EQ(Bubble(), QString());
    EXPECT_EQ(form.pos(), QPoint(3, 4));
    form.Kill();
    EXPECT_FALSE(form.isVisible());
    form.Launch();
    EXPECT_EQ(form.pos(), corner);
}

TEST_F(Assistant, OnlyWhatIsSeenCatchesTheMouse) {
    const struct {
        int x, y;
        bool idle, speaking;
    } cases[] = {
        {2, 2, false, false},   {100, 8, false, true},    {240, 20, false, true},   {245, 141, false, true},
        {3, 200, false, false}, {160, 150, false, true},  {206, 180, false, false}, {207, 180, true, true},
        {246, 222, true, true}, {247, 180, false, false}, {220, 145, false, false}, {230, 152, true, true},
    };
    form.Launch();
    for (const bool speaking : {false, true, false}) {
        form.SetPrompt(speaking ? kUnknown : QString());
        for (const auto& one : cases) {
            EXPECT_EQ(Catches(one.x, one.y), speaking ? one.speaking : one.idle) << one.x << ',' << one.y;
        }
    }
}

TEST_F(Assistant, IsDraggedByTheLeftButtonAlone) {
    form.Launch();
    form.SetPrompt(kUnknown);
    const struct {
        QWidget* control;
        Qt::MouseButton button;
        QPoint moved;
        QString said;
    } cases[] = {
        {label, Qt::LeftButton, {-50, -70}, kUnknown},   {label, Qt::RightButton, {0, 0}, kUnknown},
        {figure, Qt::LeftButton, {-50, -70}, kGreeting}, {tail, Qt::LeftButton, {-50, -70}, kGreeting},
        {figure, Qt::RightButton, {0, 0}, kGreeting},
    };
    for (const auto& one : cases) {
        form.SetPosition();
        QTest::mousePress(one.control, one.button, {}, QPoint(5, 6));
        // The point that was grabbed follows the mouse: the same way twice is twice the way.
        QMouseEvent move(QEvent::MouseMove, QPointF(-20, -29), one.control->mapToGlobal(QPointF(-20, -29)),
                         Qt::NoButton, one.button, {});
        QCoreApplication::sendEvent(one.control, &move);
        QCoreApplication::sendEvent(one.control, &move);
        QTest::mouseRelease(one.control, one.button, {}, QPoint(5, 6));
        EXPECT_EQ(form.pos() - corner, one.moved) << one.control->objectName().toStdString() << one.button;
        EXPECT_EQ(Bubble(), one.said);
    }
    form.move(-300, 900);
    area.resize(700, 500);
    form.SetPosition();
    EXPECT_EQ(form.pos(), corner + QPoint(100, 100));
}

TEST_F(Assistant, LooksUpWhatHeSays) {
    const auto said = [this](std::int32_t number) {
        ShowHelpPrompt(form, true, number);
        return Bubble();
    };
    form.Launch();
    EXPECT_EQ(said(1), kStolen);
    ShowHelpPrompt(form, false, 0);
    EXPECT_EQ(Bubble(), kStolen); // switched off, he keeps still
    EXPECT_EQ(said(0), QString());
    EXPECT_EQ(said(-1), QString());
    WriteHelp("");
    EXPECT_EQ(said(1), kUnknown);
    WriteHelp("001,Caf\xe9; please\n002,Caf\xc3\xa9\n003,\"a\r\nb\"\n004,\n");
    EXPECT_EQ(said(1), QString::fromUtf8("Caf\u00e9, please"));
    EXPECT_EQ(said(2), QString::fromUtf8("Caf\u00e9"));
    EXPECT_EQ(said(3), QStringLiteral("a\nb"));
    EXPECT_EQ(said(4), QString());
    EXPECT_EQ(said(5), kUnknown);
    QFile::rename(stage.Path(QStringLiteral("LMKHELP.DAT")), stage.Path(QStringLiteral("lmkhelp.dat")));
    EXPECT_EQ(said(5), kUnknown);
}

TEST_F(Assistant, NoTextOfTheProgramIsCut) {
    QFile file(QStringLiteral(LUMRAKE_HELP_FILE));
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    WriteHelp(file.readAll());
    form.Launch();
    QStringList texts{kGreeting, kStolen, kUnknown};
    for (int number = 1; number <= 98; ++number) {
        texts << HelpPrompt(number);
    }
    ASSERT_EQ(label->size(), QSize(201, 97));
    for (const QString& text : texts) {
        form.SetPrompt(text);
        EXPECT_LE(label->heightForWidth(label->width()), label->height()) << text.toStdString();
        EXPECT_LE(label->minimumSizeHint().width(), label->width()) << text.toStdString(); // the longest word
    }
}

} // namespace
} // namespace lumrake::testing
