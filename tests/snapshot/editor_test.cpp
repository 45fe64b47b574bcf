/// The tools, the net and the clipboard of a snapshot window.
#include "snapshot/snapshot_probe.h"

#include <QPaintEvent>
#include <QScreen>

namespace lumrake {
namespace {

using Bytes = std::vector<std::uint8_t>;
using Window = testing::SnapshotWindow;

struct Editor : testing::EditorTest {};

TEST_F(Editor, DrawSetsWithTheLeftButtonAloneAndClearsWithAllOthers) {
    struct Case {
        int button;
        float X, Y;
        std::int16_t iFlip;
        Bytes after;
    };
    // clang-format off
    const Case cases[] = {
        {1,  7, 0, 0, {0xf1, 0x00, 0xff, 0xff}},
        {3,  0, 0, 0, {0x70, 0x00, 0xff, 0xff}}, // left and right together
        {4,  0, 0, 0, {0x70, 0x00, 0xff, 0xff}},
        {1,  9, 1, 1, {0xf0, 0x40, 0xff, 0xff}}, // upside down: under the pointer
        {1, 16, 0, 0, {0xf0, 0x00, 0xff, 0xff}}, // beside the picture is no pixel
    };
    // clang-format on
    for (const Case& c : cases) {
        Window window(stage, {0xf0, 0x00, 0xff, 0xff}, 16, 2);
        window.form->SetFlip(c.iFlip);
        stage.notices.clear();
        window.probe.Press(c.button, c.X, c.Y);
        EXPECT_EQ(window.Memory(), c.after) << "button " << c.button << " at " << c.X << "," << c.Y;
        EXPECT_EQ(window.probe.Changed(), -1);
        EXPECT_EQ(stage.TakeNotices(QStringLiteral("ShowCoords 0 %1,%2").arg(c.X).arg(c.Y)), 1);
    }
}

TEST_F(Editor, MagnifyKeepsThePointUnderTheMouse) {
    struct Case {
        int button;
        float X;
        std::int16_t iZoom, iNewZoom;
        int newLeft;
    };
    // clang-format off
    const Case cases[] = {
        {1, 300, 1, 2, -400},
        {2, 101, 3, 2,  -50}, // -49.5: a half goes to the even neighbour
        {2, 301, 3, 2,    0}, // 50.5: never inside the container's edge
        {1, 300, 5, 5, -100},
        {2, 300, 1, 1, -100},
        {4, 300, 2, 2, -100},
    };
    // clang-format on
    Window window(stage, Bytes(6144), 256, 192);
    iCurrentTool = kToolMagnify;
    for (const Case& c : cases) {
        window.form->SetZoom(c.iZoom);
        window.form->SetPosition(-100, -100);
        window.probe.Press(c.button, c.X, c.X);
        EXPECT_EQ(window.form->GetZoom(), c.iNewZoom) << c.button << " at " << c.X;
        EXPECT_EQ(window.probe.Picture().pos(), QPoint(c.newLeft, c.newLeft)) << c.button << " at " << c.X;
    }
}

TEST_F(Editor, PanHoldsTheGrabbedPointAndItsCursor) {
    Window window(stage, Bytes(6144), 256, 192);
    const auto tag = [&window] { return window.probe.Picture().property("Tag").toInt(); };
    window.probe.Move(0, 1, 1);
    iCurrentTool = kToolPan;
    window.probe.Press(2, 100, 50);
    window.probe.Move(2, 90, 70);
    EXPECT_EQ(window.probe.Picture().pos(), QPoint(-10, 20));
    window.probe.Press(1, 0, 0); // a second button leaves the anchor
    window.probe.Move(3, 400, 50);
    EXPECT_EQ(window.probe.Picture().pos(), QPoint(290, 20));
    EXPECT_EQ(tag(), kToolDraw) << "the cursor changes with a move without a button";
    window.probe.Release(2, 400, 50);
    window.probe.Move(0, 1, 1);
    EXPECT_EQ(tag(), kToolPan);
}

TEST_F(Editor, NetFollowsTheDragAndSwitchesItsCommands) {
    struct Case {
        std::int16_t iZoom;
        float fromX, fromY, toX, toY;
        NetRect net;
        int commands;
    };
    // clang-format off
    const Case cases[] = {
        {3, 10, 10, 21, 10, { 8, 8, 12, 0}, 1}, // wide enough, though without height
        {3, 10, 10,  7,  7, { 4, 4,  4, 4}, 1},
        {1,  5,  5,  6,  9, { 5, 5,  1, 4}, 0}, // one screen pixel
        {2,  4,  4,  6,  8, { 4, 4,  2, 4}, 1}, // one picture pixel of two screen pixels
        {1,  5,  5, -9,  6, {-9, 5, 14, 1}, 1},
    };
    // clang-format on
    Window window(stage, Bytes(6144), 256, 192);
    for (const Case& c : cases) {
        window.form->SetZoom(c.iZoom);
        stage.notices.clear();
        window.probe.DrawNet(c.fromX, c.fromY, c.toX, c.toY);
        EXPECT_EQ(window.probe.Net(), c.net);
        EXPECT_EQ(stage.TakeNotices(QStringLiteral("EnableFunction 5 %1").arg(c.commands)), 1) << c.toX;
    }
    window.form->SetZoom(4); // the net stays on its pixels
    EXPECT_EQ(window.probe.Net(), (NetRect{-72, 40, 112, 8}));
    Window other(stage, Bytes(64), 16, 16); // and its commands follow the active child
    EXPECT_EQ(stage.TakeNotices(QStringLiteral("EnableFunction 1 0")), 1);
    window.form->Form_Activate();
    EXPECT_EQ(stage.TakeNotices(QStringLiteral("EnableFunction 1 1")), 1);
}

/// Where the border crosses the picture its pixels are inverted; all others are as without a net, at rest
/// some of the border too. Thin nets must not invert a corner twice.
TEST_F(Editor, NetInvertsItsBorder) {
    Window window(stage, testing::NoiseBytes(64), 32, 16);
    for (const QRect net : {QRect(2, -3, 18, 12), QRect(3, 3, 1, 5), QRect(3, 3, 6, 2), QRect(4, 4, 2, 2)}) {
        window.form->ClearNet();
        const QImage plain = window.probe.Picture().grab().toImage();
        iCurrentTool = kToolNet;
        window.probe.Press(1, static_cast<float>(net.left()), static_cast<float>(net.top()));
        window.probe.Move(1, static_cast<float>(net.right() + 1), static_cast<float>(net.bottom() + 1));
        const QImage withNet = window.probe.Picture().grab().toImage();
        window.probe.Release(1, 0, 0);
        const QImage atRest = window.probe.Picture().grab().toImage();
        int dots = 0, lines = 0;
        for (int y = 0; y < plain.height(); ++y) {
            for (int x = 0; x < plain.width(); ++x) {
                const bool border = net.contains(x, y) && (x == net.left() || x == net.right() ||
                                                           y == net.top() || y == net.bottom());
                ASSERT_EQ(withNet.pixel(x, y), plain.pixel(x, y) ^ (border ? 0x00ffffffU : 0U))
                    << x << "," << y;
                lines += border ? 1 : 0;
                dots += atRest.pixel(x, y) != plain.pixel(x, y) ? 1 : 0;
            }
        }
        EXPECT_NEAR(dots, lines / 2, 2);
    }
}

TEST_F(Editor, RepaintsOnlyWhatChanged) {
    struct Watch : QObject {
        QRegion painted;
        bool eventFilter(QObject*, QEvent* event) override {
            if (event->type() == QEvent::Paint) {
                painted += static_cast<QPaintEvent*>(event)->region();
            }
            return false;
        }
        QRegion Take() {
            QCoreApplication::processEvents();
            return std::exchange(painted, {});
        }
    } watch;
    Window window(stage, Bytes(6144), 256, 192);
    ASSERT_TRUE(QTest::qWaitForWindowExposed(window.form.get()));
    window.form->SetZoom(3);
    window.probe.Picture().installEventFilter(&watch);
    watch.Take();
    window.probe.Press(1, 42, 17);
    EXPECT_EQ(watch.Take(), QRegion(40, 16, 4, 4)); // one picture pixel
    iCurrentTool = kToolNet;
    window.probe.Press(1, 8, 8);
    window.probe.Move(1, 88, 48);
    watch.Take();
    window.probe.Move(1, 92, 48);
    const auto border = [](const QRect& net) { return QRegion(net) - QRegion(net.adjusted(1, 1, -1, -1)); };
    EXPECT_EQ(watch.Take(), border(QRect(8, 8, 80, 40)) + border(QRect(8, 8, 84, 40)));
}

/// Parts that are repainted must fit what was painted in one piece, to the device pixel. Run again with a
/// fractional device pixel ratio.
TEST_F(Editor, NetAndPixelsLeaveNothingBehind) {
    Window window(stage, testing::NoiseBytes(6144), 256, 192);
    ASSERT_TRUE(QTest::qWaitForWindowExposed(window.form.get()));
    const auto shown = [&window] {
        QCoreApplication::processEvents();
        return window.form->screen()->grabWindow(window.form->winId()).toImage();
    };
    const QImage plain = shown();
    window.probe.Picture().update();
    ASSERT_EQ(shown(), plain);
    const auto at = [](int i) { return static_cast<float>(20 + i * 37 % 150); };
    iCurrentTool = kToolNet;
    window.probe.Press(1, 50, 50);
    for (int i = 0; i < 40; ++i) {
        window.probe.Move(1, at(i), at(i + 1));
        ASSERT_NE(shown(), plain);
    }
    window.form->ClearNet();
    EXPECT_EQ(shown(), plain);
    iCurrentTool = kToolDraw;
    for (int i = 0; i < 40; ++i) {
        window.probe.Press(1, at(i), at(i + 2));
        shown();
    }
    const QImage drawn = shown();
    window.probe.Picture().update();
    EXPECT_EQ(shown(), drawn);
}

TEST_F(Editor, CopyCutAndDeleteAtEveryZoom) {
    const Bytes start{0b00000010, 0b10000000, 0b00000001, 0b10000000};
    const frmClip& clip = frmClip::Instance();
    for (std::int16_t iZoom = 1; iZoom <= 5; ++iZoom) {
        Window window(stage, start, 16, 3); // the third line lies past the end of the file
        window.form->SetZoom(iZoom);
        const auto z = static_cast<float>(window.probe.View().iZoomFactor);
        window.probe.DrawNet(6 * z, 0, 9 * z, 3 * z);
        window.form->Copy(false);
        EXPECT_EQ(clip.GetData(), "101011000");
        EXPECT_EQ(window.probe.Changed(), 0);
        window.form->Copy(true);
        EXPECT_EQ(window.Memory(), Bytes(4));
        EXPECT_EQ(window.probe.Changed(), -1);
        for (int i = 0; i < 9; ++i) { // the picture was taken before the pixels were cleared
            EXPECT_EQ(clip.picClip.PixelAt(i % 3, i / 3), clip.GetData()[static_cast<std::size_t>(i)] == '1');
        }
        EXPECT_FALSE(window.probe.Picture().hDC().Picture().PixelAt(6, 0)) << "the view is drawn again";
        window.probe.Changed() = 0;
        window.form->Delete();
        EXPECT_EQ(window.probe.Changed(), -1);
        EXPECT_EQ(clip.GetData(), "101011000") << "Delete leaves the clipboard alone";

        stage.notices.clear();
        window.probe.DrawNet(2 * z, 2 * z, 8 * z, 2 * z); // no height: nothing to paste
        window.form->Copy(true);
        EXPECT_EQ(stage.TakeNotices(QStringLiteral("EnableFunction 3 1")), 1);
        window.form->Paste();
        EXPECT_EQ(iCurrentTool, kToolNet);
    }
}

} // namespace
} // namespace lumrake
