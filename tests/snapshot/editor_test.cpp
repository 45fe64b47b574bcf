/// The tools, the net and the clipboard of a snapshot window.
#include "snapshot/frmClip.h"
#include "snapshot/snapshot_probe.h"
#include "support/forms_support.h"

#include <QPaintEvent>
#include <QTest>

#include <gtest/gtest.h>

#include <utility>
#include <vector>

namespace lumrake {
namespace {

using Bytes = std::vector<std::uint8_t>;
using Window = testing::SnapshotWindow;

class Editor : public ::testing::Test {
  protected:
    ~Editor() override { frmClip::Instance().SetData({}); }

    /// The groups of the net's commands as they were switched last: 1, 0, or -1 when nobody switched them.
    int NetCommands() {
        int state = -1;
        for (const QString& notice : stage.notices) {
            for (const int group : {1, 2, 4, 5}) {
                if (notice.startsWith(QStringLiteral("EnableFunction %1 ").arg(group))) {
                    state = notice.back().digitValue();
                }
            }
        }
        return state;
    }

    testing::Stage stage;
};

// ---- tools ----

TEST_F(Editor, DrawSetsWithTheLeftButtonAloneAndClearsWithAllOthers) {
    const Bytes start{0xf0, 0x00, 0xff, 0xff};
    struct Case {
        int button;
        float X, Y;
        std::int16_t iFlip;
        Bytes after;
    };
    // clang-format off
    const Case cases[] = {
        {1,  7, 0, 0, {0xf1, 0x00, 0xff, 0xff}},
        {2,  0, 0, 0, {0x70, 0x00, 0xff, 0xff}},
        {3,  0, 0, 0, {0x70, 0x00, 0xff, 0xff}}, // left and right together
        {4,  0, 0, 0, {0x70, 0x00, 0xff, 0xff}},
        {1,  9, 1, 1, {0xf0, 0x40, 0xff, 0xff}}, // upside down: under the pointer
        {1, 16, 0, 0, start},                    // beside the picture is no pixel
        {1, -1, 0, 0, start},
        {2,  0, 2, 0, start},
    };
    // clang-format on
    for (const Case& c : cases) {
        Window window(stage, start, 16, 2);
        window.form->SetFlip(c.iFlip);
        stage.notices.clear();
        window.probe.Press(c.button, c.X, c.Y);
        window.probe.Release(c.button, c.X, c.Y);
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
        {2, 103, 3, 2,  -48}, // -48.5
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

TEST_F(Editor, PanHoldsTheGrabbedPoint) {
    Window window(stage, Bytes(6144), 256, 192);
    iCurrentTool = kToolPan;
    window.probe.Press(2, 100, 50);
    window.probe.Move(2, 90, 70); // the picture moves by -10, 20
    EXPECT_EQ(window.probe.Picture().pos(), QPoint(-10, 20));
    window.probe.Press(1, 0, 0); // a second button leaves the anchor
    window.probe.Move(3, 400, 50);
    EXPECT_EQ(window.probe.Picture().pos(), QPoint(290, 20));
    window.probe.Release(2, 400, 50);
    window.probe.Press(1, 5, 5);
    window.probe.Move(1, 5, 5);
    EXPECT_EQ(window.probe.Picture().pos(), QPoint(290, 20));
}

TEST_F(Editor, CursorFollowsTheToolWithTheNextMove) {
    Window window(stage, Bytes(32), 16, 16);
    const auto tag = [&window] { return window.probe.Picture().property("Tag").toString(); };
    window.probe.Move(0, 1, 1);
    EXPECT_EQ(tag(), QStringLiteral("2"));
    iCurrentTool = kToolPan;
    window.probe.Move(1, 1, 1);
    EXPECT_EQ(tag(), QStringLiteral("2")) << "a drag keeps the cursor";
    window.probe.Move(0, 1, 1);
    EXPECT_EQ(tag(), QStringLiteral("5"));
    EXPECT_EQ(window.probe.Picture().cursor().shape(), Qt::BitmapCursor);
}

// ---- net ----

TEST_F(Editor, NetFollowsTheDragAndSwitchesItsCommands) {
    struct Case {
        std::int16_t iZoom;
        float fromX, fromY, toX, toY;
        NetRect net;
        const char* coords;
        int commands;
    };
    // clang-format off
    const Case cases[] = {
        {3, 10, 10, 21, 10, {8, 8, 12, 0}, "3,0",   1}, // wide enough, though without height
        {3, 10, 10,  7,  7, {4, 4,  4, 4}, "-1,-1", 1},
        {1,  5,  5,  6,  9, {5, 5,  1, 4}, "1,4",   0}, // one screen pixel
        {2,  4,  4,  6,  8, {4, 4,  2, 4}, "1,2",   1}, // one picture pixel of two screen pixels
        {1,  5,  5, -9,  6, {-9, 5, 14, 1}, "-14,1", 1},
    };
    // clang-format on
    Window window(stage, Bytes(6144), 256, 192);
    iCurrentTool = kToolNet;
    for (const Case& c : cases) {
        window.form->SetZoom(c.iZoom);
        window.probe.Press(1, c.fromX, c.fromY);
        EXPECT_EQ(window.probe.Net().Width, 1);
        stage.notices.clear();
        window.probe.Move(1, c.toX, c.toY);
        EXPECT_EQ(window.probe.Net(), c.net);
        EXPECT_FALSE(window.probe.Net().Dotted);
        EXPECT_EQ(stage.TakeNotices(QStringLiteral("ShowCoords 1 ") + QLatin1String(c.coords)), 1)
            << c.coords;
        window.probe.Release(1, c.toX, c.toY);
        EXPECT_TRUE(window.probe.Net().Dotted);
        EXPECT_EQ(NetCommands(), c.commands) << c.coords;
        EXPECT_EQ(stage.TakeNotices(QStringLiteral("ShowCoords 1 0,0")), 1); // no size stays on show
    }
}

TEST_F(Editor, NetKeepsItsPixelsThroughZoomAndIsHiddenByOtherTools) {
    Window window(stage, Bytes(6144), 256, 192);
    window.probe.DrawNet(3, 4, 13, 24);
    window.form->SetZoom(4);
    EXPECT_EQ(window.probe.Net(), (NetRect{24, 32, 80, 160}));
    window.form->ClearNet();
    EXPECT_FALSE(window.probe.Net().Visible);
    window.form->SetZoom(1); // hidden or not
    EXPECT_EQ(window.probe.Net(), (NetRect{3, 4, 10, 20}));
    EXPECT_EQ(window.probe.NetX(), 3);
    EXPECT_EQ(window.probe.NetWidth(), 10);
}

TEST_F(Editor, NetBelongsToTheActiveChild) {
    Window first(stage, Bytes(64), 16, 16), second(stage, Bytes(64), 16, 16);
    first.probe.DrawNet(0, 0, 8, 8);
    second.form->Form_Activate();
    EXPECT_EQ(NetCommands(), 0);
    first.form->Form_Activate();
    EXPECT_EQ(NetCommands(), 1);
}

/// Where the border crosses the picture its pixels are inverted; all others are as without a net.
TEST_F(Editor, NetInvertsItsBorder) {
    Window window(stage, testing::NoiseBytes(64), 32, 16);
    for (const std::int16_t iZoom : {std::int16_t{1}, std::int16_t{3}, std::int16_t{5}}) {
        window.form->ClearNet();
        window.form->SetZoom(iZoom);
        const int z = window.probe.View().iZoomFactor;
        const QImage plain = window.probe.Picture().grab().toImage();
        iCurrentTool = kToolNet;
        window.probe.Press(1, static_cast<float>(2 * z), static_cast<float>(-3 * z));
        window.probe.Move(1, static_cast<float>(20 * z), static_cast<float>(9 * z));
        const QImage withNet = window.probe.Picture().grab().toImage();
        const QRect net(2 * z, -3 * z, 18 * z, 12 * z); // its upper edge lies above the picture
        for (int y = 0; y < plain.height(); ++y) {
            for (int x = 0; x < plain.width(); ++x) {
                const bool border = net.contains(x, y) && !net.adjusted(1, 1, -1, -1).contains(x, y);
                const QRgb expected = border ? plain.pixel(x, y) ^ 0x00ffffff : plain.pixel(x, y);
                ASSERT_EQ(withNet.pixel(x, y), expected) << "zoom " << iZoom << " at " << x << "," << y;
            }
        }
        window.probe.Release(1, 0, 0); // dotted: some pixels of the border are inverted and some are not
        const QImage dotted = window.probe.Picture().grab().toImage();
        EXPECT_NE(dotted, withNet);
        EXPECT_NE(dotted, plain);
    }
}

/// Collects what is painted of the picture.
struct PaintWatch : QObject {
    QRegion painted;
    bool eventFilter(QObject*, QEvent* event) override {
        if (event->type() == QEvent::Paint) {
            painted += static_cast<QPaintEvent*>(event)->region();
        }
        return false;
    }
};

TEST_F(Editor, RepaintsOnlyWhatChanged) {
    Window window(stage, Bytes(6144), 256, 192);
    ASSERT_TRUE(QTest::qWaitForWindowExposed(window.form.get()));
    window.form->SetZoom(3);
    PaintWatch watch;
    window.probe.Picture().installEventFilter(&watch);
    const auto painted = [&watch] {
        QCoreApplication::processEvents();
        return std::exchange(watch.painted, {});
    };
    painted();
    window.probe.Press(1, 42, 17);
    EXPECT_EQ(painted(), QRegion(40, 16, 4, 4)); // one picture pixel
    iCurrentTool = kToolNet;
    window.probe.Press(1, 8, 8);
    window.probe.Move(1, 88, 48);
    painted();
    window.probe.Move(1, 92, 48);
    const auto border = [](const QRect& net) { return QRegion(net) - QRegion(net.adjusted(1, 1, -1, -1)); };
    EXPECT_EQ(painted(), border(QRect(8, 8, 80, 40)) + border(QRect(8, 8, 84, 40)));
}

// ---- clipboard ----

TEST_F(Editor, CopyCutAndDeleteAtEveryZoom) {
    const Bytes start{0b00000010, 0b10000000, 0b00000001, 0b10000000};
    for (std::int16_t iZoom = 1; iZoom <= 5; ++iZoom) {
        Window window(stage, start, 16, 2);
        window.form->SetZoom(iZoom);
        const auto z = static_cast<float>(window.probe.View().iZoomFactor);
        window.probe.DrawNet(6 * z, 0, 9 * z, 2 * z);
        stage.notices.clear();

        window.form->Copy(false);
        EXPECT_EQ(frmClip::Instance().GetData(), "101011");
        EXPECT_EQ(window.probe.Changed(), 0);
        EXPECT_EQ(window.Memory(), start);
        EXPECT_EQ(stage.TakeNotices(QStringLiteral("EnableFunction 3 1")), 1);

        window.form->Copy(true);
        EXPECT_EQ(window.Memory(), Bytes(4));
        EXPECT_EQ(window.probe.Changed(), -1);
        const lmk::BitPicture& picture = frmClip::Instance().picClip; // taken before the pixels were cleared
        ASSERT_EQ(QSize(picture.Width(), picture.Height()), QSize(3, 2));
        for (int i = 0; i < 6; ++i) {
            EXPECT_EQ(picture.PixelAt(i % 3, i / 3), "101011"[i] == '1');
        }
        EXPECT_FALSE(window.probe.Picture().hDC().Picture().PixelAt(6, 0)) << "the view is drawn again";
        EXPECT_TRUE(window.probe.Net().Visible);

        window.form->Delete();
        EXPECT_EQ(frmClip::Instance().GetData(), "101011") << "Delete leaves the clipboard alone";
    }
}

TEST_F(Editor, PastTheEndOfTheFileIsZeroAndStaysUntouched) {
    Window window(stage, Bytes{0xff}, 16, 2);
    window.probe.DrawNet(6, 0, 10, 1);
    window.form->Copy(false);
    EXPECT_EQ(frmClip::Instance().GetData(), "1100");
    window.probe.DrawNet(0, 1, 16, 2);
    window.form->Delete();
    EXPECT_EQ(window.Memory(), Bytes{0xff});
    EXPECT_EQ(window.probe.Changed(), -1);
}

TEST_F(Editor, AnEmptyBlockCanNotBePasted) {
    Window window(stage, Bytes(64), 16, 16);
    window.probe.DrawNet(2, 2, 8, 2);
    stage.notices.clear();
    window.form->Copy(true);
    EXPECT_EQ(stage.TakeNotices(QStringLiteral("EnableFunction 3 1")), 1);
    EXPECT_EQ(window.probe.Changed(), 0) << "no pixel was cleared";
    window.form->Paste();
    EXPECT_EQ(iCurrentTool, kToolNet);
    EXPECT_TRUE(window.probe.Clip().isHidden());
}

TEST_F(Editor, ABlockGoesOverIntoAnyOtherView) {
    Window source(stage, Bytes{0x12, 0x34, 0x56, 0x78}, 8, 4);
    source.form->SetFlip(1);
    source.probe.DrawNet(0, 0, 8, 4);
    source.form->Copy(false);

    Window target(stage, Bytes(64, 0xff), 16, 16);
    target.form->SetMode(kByteMasks, true);
    target.form->SetZoom(3);
    target.form->Paste();
    target.probe.Move(0, 33, 18); // near the centre of a block of 32 x 16 screen pixels
    EXPECT_EQ(target.probe.ClipPlace(), (NetRect{16, 8, 32, 16}));
    EXPECT_EQ(target.probe.Net(), (NetRect{15, 7, 34, 18}));
    const QRgb ink = source.probe.Picture().hDC().Picture().foreColour;
    EXPECT_EQ(target.probe.Clip().grab().toImage().pixel(4, 0), ink) << "0x78 is its first line";
    target.probe.PressClip(1);

    // Four pixels from the left, two lines down, picture bytes only. It stands as it looked: 78 56 34 12.
    Bytes expected(64, 0xff);
    for (std::size_t line = 0; line < 4; ++line) {
        const std::uint8_t byte = Bytes{0x78, 0x56, 0x34, 0x12}[line];
        expected[(line + 2) * 4] = static_cast<std::uint8_t>(0xf0 | byte >> 4);
        expected[(line + 2) * 4 + 2] = static_cast<std::uint8_t>(byte << 4 | 0x0f);
    }
    EXPECT_EQ(target.Memory(), expected);
    EXPECT_EQ(source.probe.Changed(), 0);
}

} // namespace
} // namespace lumrake
