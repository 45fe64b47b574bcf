#include "platform/colour_button.h"
#include "platform/panel_bar.h"
#include "snapshot/snapshot_probe.h"

#include <QMdiSubWindow>
#include <QPushButton>

#include <gtest/gtest.h>

namespace lumrake {
namespace {

using testing::NoiseBytes;
using testing::SnapshotStage;

class SnapshotView : public ::testing::Test {
  protected:
    SnapshotProbe Open(std::size_t bytes, int width = 64, int lines = 40, int columns = 1, int mode = 0) {
        Settings.iDefaultWidth = static_cast<std::int16_t>(width);
        Settings.iDefaultLines = static_cast<std::int16_t>(lines);
        Settings.iDefaultColumns = static_cast<std::int16_t>(columns);
        Settings.iDefaultMode = static_cast<std::int16_t>(mode);
        frmSnapshot* form = stage.Open(NoiseBytes(bytes));
        EXPECT_NE(form, nullptr);
        const SnapshotProbe probe{*form};
        probe.Drawn();
        return probe;
    }
    static void Type(const SnapshotProbe& probe, int box, const char* keys) {
        probe.Box(box).selectAll();
        QTest::keyClicks(&probe.Box(box), QString::fromLatin1(keys));
    }
    static void Click(SpinBar& bar, bool atEnd) {
        const bool upright = bar.orientation() == Qt::Vertical;
        const QPoint place = atEnd ? QPoint(bar.width() - 4, bar.height() - 4) : QPoint(4, 4);
        QTest::mouseClick(&bar, Qt::LeftButton, {}, upright ? QPoint(8, place.y()) : QPoint(place.x(), 8));
    }
    static int Place(const SnapshotProbe& probe) { return probe.Thumb().y() - probe.Track().y(); }

    SnapshotStage stage;
};

TEST_F(SnapshotView, TypedNumbersAreHeldWithinTheirLimits) {
    struct Case {
        int box;
        const char *keys, *texts, *message;
    };
    const Case cases[] = {
        {0, "999", "999 64 40 1", ""},
        {0, "1000", "999 64 40 1", "Snapshot|Offset must be between 0 and 999!"},
        {0, "9x9", "99 64 40 1", ""},
        {1, "16", "99 64 40 1", ""},
        {2, "7", "99 64 7 1", ""},
        {2, "0", "99 64 1 1", "Snapshot|Lines must be between 1 and 512!"},
        {2, "9999", "99 64 512 1", "Snapshot|Lines must be between 1 and 512!"},
        {3, "17", "99 64 512 16", "Snapshot|Columns must be between 1 and 16!"},
        {3, "\b", "99 64 512 ", ""},
        {2, "\b", "99 64  ", ""},
        {0, "\b", " 64  ", ""},
    };
    const SnapshotProbe probe = Open(1000);
    for (const Case& one : cases) {
        stage.boxes.clear();
        Type(probe, one.box, one.keys);
        EXPECT_EQ(probe.Texts(), one.texts) << one.keys;
        const bool told = one.message[0] != 0;
        EXPECT_EQ(stage.boxes.size(), told ? 1U : 0U) << one.keys;
        if (told && !stage.boxes.empty()) {
            EXPECT_EQ(stage.boxes[0].toStdString(), one.message);
            EXPECT_EQ(probe.Box(one.box).cursorPosition(), probe.Box(one.box).text().size());
            EXPECT_FALSE(probe.Box(one.box).hasSelectedText());
        }
    }
    EXPECT_EQ(probe.View().lOffset, 0);
    EXPECT_EQ(probe.View().iLines, 1);
    EXPECT_EQ(probe.View().iColumns, 1);
    EXPECT_EQ(probe.Picture().size(), QSize(64, 1));
}

TEST_F(SnapshotView, NoIllegalNumberIsSeenWhileTheMessageIsOpen) {
    const SnapshotProbe probe = Open(1000);
    SetMessageBoxAnswerer([&probe](const MessageBox&) {
        EXPECT_LT(probe.View().lOffset, 1000);
        EXPECT_LE(probe.View().iLines, 512);
        probe.form.ShowMem(); // a paint of the palette dialog, a timer
        return BoxAnswer::Ok;
    });
    Type(probe, 0, "5000");
    Type(probe, 2, "800");
    EXPECT_EQ(probe.Texts(), "999 64 512 1");
    EXPECT_TRUE(probe.Drawn());
}

TEST_F(SnapshotView, AnOffsetTypedMovesThePictureAndNotTheThumb) {
    const SnapshotProbe probe = Open(100000);
    Type(probe, 0, "50000");
    EXPECT_TRUE(probe.Drawn());
    EXPECT_EQ(Place(probe), 0);
    Click(probe.Spin(0), true);
    EXPECT_EQ(probe.Texts(), "50001 64 40 1");
    EXPECT_GT(Place(probe), 0);
}

TEST_F(SnapshotView, MillionsKeepTheirDigits) {
    const SnapshotProbe probe = Open(1234568);
    Type(probe, 0, "1234567");
    EXPECT_EQ(probe.Texts(), "123456 64 40 1") << "six digits can be typed";
    QTest::keyClick(&probe.Bar(), Qt::Key_Down);
    QTest::keyClick(&probe.Bar(), Qt::Key_Up);
    probe.View().lOffset = 1234559;
    probe.form.Form_Activate();
    Click(probe.Bar(), true);
    EXPECT_EQ(probe.Texts(), "1234567 64 40 1");
    probe.Box(0).end(false);
    QTest::keyClicks(&probe.Box(0), QStringLiteral("8"));
    EXPECT_EQ(probe.Texts(), "1234567 64 40 1");
    QTest::keyClick(&probe.Box(0), Qt::Key_Backspace);
    EXPECT_EQ(probe.form.GetOffset(), 123456) << "and shortened again";
}

TEST_F(SnapshotView, SpinButtonsStopAtTheirLimitsWithoutDrawing) {
    const SnapshotProbe probe = Open(1000, 248, 13, 16);
    struct Case {
        int box;
        bool up;
        const char* texts;
        bool drawn;
    };
    const Case cases[] = {
        {0, false, "0 248 13 16", false}, {1, true, "0 256 13 16", true},  {1, true, "0 256 13 16", false},
        {2, false, "0 256 8 16", true},   {2, false, "0 256 8 16", false}, {3, true, "0 256 8 16", false},
        {3, false, "0 256 8 15", true},   {0, true, "1 256 8 15", true},
    };
    for (const Case& one : cases) {
        Click(probe.Spin(one.box), one.up);
        EXPECT_EQ(probe.Texts(), one.texts);
        EXPECT_EQ(probe.Drawn(), one.drawn) << one.texts;
        EXPECT_EQ(probe.Spin(one.box).value(), 5) << "the button itself rests";
    }
    EXPECT_TRUE(stage.boxes.empty());
}

TEST_F(SnapshotView, TheAddressBarStepsAndRests) {
    Settings.iSmallChange = 2;
    Settings.iLargeChange = 4;
    const SnapshotProbe probe = Open(49179, 256, 192);
    QTest::keyClick(&probe.Bar(), Qt::Key_Up);
    EXPECT_FALSE(probe.Drawn()) << "at place 0 an up arrow has nowhere to go";
    QTest::keyClick(&probe.Bar(), Qt::Key_PageDown);
    EXPECT_EQ(probe.form.GetOffset(), 1536);
    Click(probe.Bar(), true);
    EXPECT_EQ(probe.form.GetOffset(), 1600);
    EXPECT_TRUE(probe.Drawn());
    EXPECT_EQ(probe.Bar().value(), Place(probe));
    EXPECT_EQ(probe.Bar().sliderPosition(), Place(probe));
    QTest::keyClick(&probe.Thumb(), Qt::Key_Up); // the thumb hands its keys on
    EXPECT_EQ(probe.form.GetOffset(), 1536);
    Type(probe, 0, "49170");
    Click(probe.Spin(0), false);
    Click(probe.Bar(), true);
    EXPECT_EQ(probe.form.GetOffset(), 49178) << "held at the last byte";
    EXPECT_TRUE(probe.Drawn());
    QTest::keyClick(&probe.Bar(), Qt::Key_PageDown);
    EXPECT_FALSE(probe.Drawn());
    QTest::mouseClick(&probe.Bar(), Qt::MiddleButton, {}, QPoint(8, 60));
    EXPECT_EQ(probe.form.GetOffset(), 49178);
}

TEST_F(SnapshotView, TheThumbIsDraggedPastBothEnds) {
    for (const std::size_t length : {std::size_t{1}, std::size_t{20}, std::size_t{600}, std::size_t{70000}}) {
        const SnapshotProbe probe = Open(length);
        QPushButton& thumb = probe.Thumb();
        const int travel = probe.Bar().height() - 48;
        const auto last = static_cast<std::int32_t>(length) - 1;
        QTest::mousePress(&thumb, Qt::LeftButton, {}, QPoint(8, 5));
        QTest::mouseMove(&thumb, QPoint(8, 5 + 100));
        EXPECT_EQ(Place(probe), 100);
        EXPECT_EQ(probe.form.GetOffset(), 0) << "trails by one event";
        EXPECT_EQ(probe.Bar().value(), 0) << "the bar rests until the release";
        QTest::mouseMove(&thumb, QPoint(8, 6));
        const float scale = static_cast<float>(length) / static_cast<float>(travel);
        EXPECT_EQ(probe.form.GetOffset(), static_cast<std::int32_t>(100 * scale));
        QTest::mouseMove(&thumb, QPoint(8, 4000));
        EXPECT_EQ(Place(probe), travel);
        EXPECT_EQ(probe.form.GetOffset(), last);
        QTest::mouseRelease(&thumb, Qt::LeftButton, {}, QPoint(8, 5));
        EXPECT_EQ(probe.Bar().value(), travel);
        QTest::mousePress(&thumb, Qt::LeftButton, {}, QPoint(8, 5));
        QTest::mouseMove(&thumb, QPoint(8, -4000));
        QTest::mouseRelease(&thumb, Qt::LeftButton, {}, QPoint(8, 5));
        EXPECT_EQ(Place(probe), 0);
        EXPECT_EQ(probe.form.GetOffset(), 0);
        EXPECT_EQ(probe.Bar().value(), 0);
    }
}

TEST_F(SnapshotView, ModesSetSizesAndControls) {
    struct Step {
        std::int16_t mode;
        const char* texts;
        bool sizes, columns;
    };
    struct Case {
        int lines;
        std::vector<Step> steps;
    };
    const Case cases[] = {
        {40,
         {{kScreen, "0 256 192 1", false, false},
          {kText, "0 256 192 1", false, false},
          {kGraphics, "0 256 192 1", true, true}}},
        {13, {{kText, "0 64 8 1", true, false}, {kLineMasks, "0 64 8 1", true, true}}},
        {7, {{kByteMasks, "0 64 7 3", true, true}, {kText, "0 64 8 1", true, false}}},
        {16, {{kText, "0 64 16 1", true, false}}},
    };
    for (const Case& one : cases) {
        const SnapshotProbe probe = Open(20000, 64, one.lines, 3);
        for (const Step& step : one.steps) {
            probe.form.SetMode(step.mode, true);
            EXPECT_EQ(probe.Texts(), step.texts) << step.mode;
            EXPECT_EQ(probe.Picture().size(), QSize(probe.View().ScreenWidth(), probe.View().ScreenHeight()));
            EXPECT_EQ(probe.Box(1).isEnabled() && probe.Spin(2).isEnabled(), step.sizes) << step.mode;
            EXPECT_EQ(probe.Box(3).isEnabled(), step.columns) << step.mode;
            EXPECT_EQ(probe.Spin(3).isEnabled(), step.columns) << step.mode;
        }
        probe.Drawn();
        probe.form.SetMode(probe.form.GetMode(), false);
        EXPECT_FALSE(probe.Drawn()) << "nothing changed, nothing drawn";
    }
    EXPECT_TRUE(stage.boxes.empty());
}

TEST_F(SnapshotView, TextModeTakesNoKeys) {
    const SnapshotProbe probe = Open(20000, 64, 16, 1, kText);
    Type(probe, 0, "5\b");
    QTest::keyClick(&probe.Box(2), Qt::Key_Delete);
    probe.Box(0).selectAll();
    probe.Box(0).insert(QStringLiteral("7")); // as a paste does
    EXPECT_EQ(probe.Texts(), "0 64 16 1");
    Click(probe.Spin(0), true);
    Click(probe.Spin(2), true);
    EXPECT_EQ(probe.Texts(), "1 64 24 1");
}

TEST_F(SnapshotView, BoxesTakeDigitsOnlyAndLeaveCtrlToTheMenu) {
    const SnapshotProbe probe = Open(1000);
    ValueBox& box = probe.Box(0);
    for (const char* pasted : {"12a", "1234567", "-5", "\xd9\xa1"}) {
        box.selectAll();
        box.insert(QString::fromUtf8(pasted));
        EXPECT_EQ(probe.form.GetOffset(), 0) << pasted;
    }
    for (const auto& [key, modifiers] :
         {std::pair{Qt::Key_C, Qt::ControlModifier}, {Qt::Key_A, Qt::ControlModifier}}) {
        QKeyEvent event(QEvent::ShortcutOverride, key, modifiers);
        QCoreApplication::sendEvent(&box, &event);
        EXPECT_FALSE(event.isAccepted());
    }
    QKeyEvent del(QEvent::ShortcutOverride, Qt::Key_Delete, Qt::NoModifier);
    QCoreApplication::sendEvent(&box, &del);
    EXPECT_TRUE(del.isAccepted()) << "Del belongs to the box that has the focus";
}

TEST_F(SnapshotView, AttributeAndItsButtons) {
    const SnapshotProbe probe = Open(1000);
    const auto colours = [&probe] {
        return std::pair(probe.ColourOf(0).Colour().rgb(), probe.ColourOf(1).Colour().rgb());
    };
    probe.form.SetAttribute(71, false);
    EXPECT_EQ(colours(), std::pair(qRgb(255, 255, 255), qRgb(0, 0, 0)));
    EXPECT_FALSE(probe.Drawn());
    probe.form.SetAttribute(56, false);
    EXPECT_EQ(colours(), std::pair(qRgb(0, 0, 0), qRgb(208, 208, 208)));
    for (int i = 0; i < 8; ++i) {
        QTest::mouseClick(&probe.ColourOf(0), Qt::LeftButton);
        EXPECT_TRUE(probe.Drawn());
    }
    EXPECT_EQ(probe.form.GetAttribute(), 56);
    QTest::mouseClick(&probe.ColourOf(1), Qt::LeftButton);
    EXPECT_EQ(probe.form.GetAttribute(), 0);
    EXPECT_EQ(probe.form.focusWidget(), &probe.Bar()) << "the arrow keys go on scrolling";
    EXPECT_EQ(probe.Changed(), 0);

    Settings.lPalette[0] = 65536 * 7 + 256 * 8 + 9;
    probe.form.ReShow();
    EXPECT_EQ(colours().first, qRgb(9, 8, 7));
    EXPECT_EQ(probe.Picture().hDC().Picture().foreColour, qRgb(9, 8, 7));
}

TEST_F(SnapshotView, ZoomByPanelScalesTheNet) {
    const SnapshotProbe probe = Open(2000);
    const auto click = [&probe](Qt::MouseButton button) {
        PanelBar& bar = probe.Status();
        QTest::mouseClick(&bar, button, {}, QPoint(bar.PanelLeft(3) + 10, 9));
        return bar.PanelAt(3).Text.toStdString();
    };
    probe.Net().Left = 10;
    probe.Net().Width = 20;
    probe.Net().Height = 3;
    EXPECT_EQ(click(Qt::RightButton), "1x");
    EXPECT_TRUE(probe.Drawn()) << "at the limit it draws all the same";
    EXPECT_EQ(click(Qt::LeftButton), "2x");
    EXPECT_EQ(probe.Net().Left, 20);
    EXPECT_EQ(probe.Net().Height, 6);
    EXPECT_EQ(click(Qt::MiddleButton), "2x");
    for (const char* text : {"4x", "8x", "16x", "16x"}) {
        EXPECT_EQ(click(Qt::LeftButton), text);
    }
    EXPECT_EQ(probe.Picture().size(), QSize(64 * 16, 40 * 16));
    probe.form.SetZoom(1);
    EXPECT_EQ(probe.Net().Left, 10);
    EXPECT_EQ(probe.Net().Width, 20);
    probe.form.SetZoom(6);
    EXPECT_EQ(probe.form.GetZoom(), 1);
    EXPECT_EQ(probe.View().iZoomFactor, 1);
    probe.form.SetZoom(5);
    probe.View().iColumns = 16;
    probe.View().iWidth = 256;
    probe.form.ShowMem();
    EXPECT_EQ(probe.Picture().width(), 65536) << "wider than 16 bits";
}

TEST_F(SnapshotView, LayoutHoldsAtEverySize) {
    const SnapshotProbe probe = Open(1000);
    Type(probe, 0, "700");
    QWidget* frame = ChildFrame(&probe.form);
    EXPECT_EQ(frame->size(), QSize(390, 294));
    for (const QSize size : {QSize(100, 100), QSize(390, 294), QSize(640, 560)}) {
        frame->resize(size);
        QCoreApplication::sendPostedEvents();
        const QSize inner = probe.form.size();
        EXPECT_EQ(frame->size(), size.expandedTo(QSize(267, 260)));
        EXPECT_EQ(probe.Container().geometry(), QRect(8, 8, inner.width() - 122, inner.height() - 38));
        EXPECT_EQ(probe.Bar().x(), probe.Container().width() + 12);
        EXPECT_EQ(probe.Bar().maximum(), probe.Bar().height() - 47);
        EXPECT_EQ(Place(probe),
                  static_cast<int>(700 / (1000.0F / static_cast<float>(probe.Bar().height() - 48))));
        EXPECT_EQ(probe.form.GetOffset(), 700) << "a new limit of the bar is no scroll step";
        // Nothing overlaps and nothing is cut off.
        const PanelBar& status = probe.Status();
        EXPECT_GE(status.PanelWidth(1), 40);
        EXPECT_EQ(probe.ColourOf(0).pos(), QPoint(status.PanelLeft(4) + 2, inner.height() - 15));
        EXPECT_LE(probe.ColourOf(1).geometry().right(), status.PanelLeft(4) + status.PanelWidth(4));
        EXPECT_GT(probe.Options().y(), probe.Box(3).geometry().bottom());
        EXPECT_LT(probe.Spin(0).geometry().right(), inner.width());
    }
    frame->showMinimized();
    const QRect before = probe.Container().geometry();
    frame->showNormal();
    EXPECT_EQ(probe.Container().geometry(), before);
}

TEST_F(SnapshotView, ActivationShowsThisWindowAndDrawsNothing) {
    const SnapshotProbe probe = Open(1000, 64, 40, 1, kLineMasks);
    probe.form.SetFlip(-1);
    probe.Drawn();
    struct Case {
        bool visible;
        std::int32_t width;
        bool groups;
    };
    for (const Case& one : {Case{true, 2, true}, Case{true, 1, false}, Case{false, 9, false}}) {
        probe.Net().Visible = one.visible;
        probe.Net().Width = one.width;
        stage.notices.clear();
        probe.form.Form_Activate();
        const QString flag = one.groups ? QStringLiteral("1") : QStringLiteral("0");
        const QStringList expected = {QStringLiteral("SetStatusText test.sna"),
                                      QStringLiteral("UpdateToolbars SNAPSHOT 1"),
                                      QStringLiteral("UpdateToolbars ANIMATION 0"),
                                      QStringLiteral("ShowModeTick 3"),
                                      QStringLiteral("ShowFlipTick 1"),
                                      QStringLiteral("EnableFunction 1 ") + flag,
                                      QStringLiteral("EnableFunction 2 ") + flag,
                                      QStringLiteral("EnableFunction 4 ") + flag,
                                      QStringLiteral("EnableFunction 5 ") + flag};
        EXPECT_EQ(QStringList(stage.notices.begin(), stage.notices.end()), expected);
    }
    EXPECT_FALSE(probe.Drawn());
}

TEST_F(SnapshotView, PromptsFollowTheMouse) {
    const SnapshotProbe probe = Open(1000);
    PanelBar& status = probe.Status();
    struct Case {
        QWidget* widget;
        QPoint place;
        int key;
    };
    const Case cases[] = {
        {&probe.form, {2, 2}, 0},      {&probe.Container(), {200, 200}, 0},
        {&probe.Track(), {8, 30}, 2},  {&probe.Thumb(), {8, 8}, 2},
        {&probe.Box(0), {9, 9}, 3},    {&probe.Box(3), {9, 9}, 6},
        {&probe.Options(), {9, 9}, 7}, {&probe.ColourOf(1), {9, 9}, 11},
        {&status, {5, 9}, 8},          {&status, {status.PanelLeft(3) + 9, 9}, 10},
    };
    for (const Case& one : cases) {
        stage.notices.clear();
        QTest::mouseMove(one.widget, one.place);
        const QString last = stage.notices.empty() ? QString() : stage.notices.back();
        EXPECT_EQ(last, QStringLiteral("ShowPrompt %1").arg(one.key));
    }
    stage.notices.clear();
    QTest::mouseMove(&status, QPoint(status.PanelLeft(3), 9));
    EXPECT_TRUE(stage.notices.empty()) << "between two panels";
}

TEST_F(SnapshotView, FocusSelectsTheBoxAndAClickTakesItToThePicture) {
    const SnapshotProbe probe = Open(1000);
    QApplication::setActiveWindow(&stage.area);
    probe.Box(2).setFocus(Qt::TabFocusReason);
    EXPECT_EQ(probe.Box(2).selectedText(), QStringLiteral("40"));
    QTest::mouseClick(&probe.Box(0), Qt::LeftButton, {}, QPoint(6, 9));
    EXPECT_EQ(probe.form.focusWidget(), &probe.Box(0));
    EXPECT_EQ(probe.Box(0).selectedText(), QStringLiteral("0"));
    QTest::mouseClick(&probe.Picture(), Qt::LeftButton, {}, QPoint(5, 5));
    EXPECT_EQ(probe.form.focusWidget(), &probe.Picture());
}

} // namespace
} // namespace lumrake
