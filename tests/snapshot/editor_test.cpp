/// The tools, the net, the clipboard and the bitmaps of a snapshot window.
#include "snapshot/snapshot_probe.h"

#include <QScreen>

namespace lumrake {
namespace {

using Bytes = std::vector<std::uint8_t>;

using Editor = testing::SnapshotTest;

TEST_F(Editor, DrawSetsWithTheLeftButtonAloneAndClearsWithAllOthers) {
    // clang-format off
    const std::tuple<int, float, float, std::int16_t, Bytes> cases[] = { // button, place, flip, bytes afterwards
        {1,  7, 0, 0, {0xf1, 0x00, 0xff, 0xff}},
        {3,  0, 0, 0, {0x70, 0x00, 0xff, 0xff}}, // left and right together
        {1,  9, 1, 1, {0xf0, 0x40, 0xff, 0xff}}, // upside down: under the pointer
        {1, 16, 0, 0, {0xf0, 0x00, 0xff, 0xff}}, // beside the picture is no pixel
    };
    // clang-format on
    for (const auto& [button, X, Y, iFlip, after] : cases) {
        const SnapshotProbe window = Open({0xf0, 0x00, 0xff, 0xff}, 16, 2);
        window.form.SetFlip(iFlip);
        notices.clear();
        window.Press(button, X, Y);
        EXPECT_EQ(window.Bytes(), after) << "button " << button << " at " << X << "," << Y;
        EXPECT_EQ(window.Changed(), -1);
        EXPECT_EQ(TakeNotices(QStringLiteral("ShowCoords 0 %1,%2").arg(X).arg(Y)), 1);
    }
}

TEST_F(Editor, MagnifyKeepsThePointUnderTheMouse) {
    // clang-format off
    const std::tuple<int, float, std::int16_t, std::int16_t, int> cases[] = { // button, place, zooms, new edge
        {2, 101, 3, 2,  -50}, // -49.5: a half goes to the even neighbour
        {2, 301, 3, 2,    0}, // 50.5: never inside the container's edge
        {1, 300, 5, 5, -100},
        {4, 300, 2, 2, -100},
    };
    // clang-format on
    const SnapshotProbe window = Open(Bytes(6144), 256, 192);
    iCurrentTool = kToolMagnify;
    for (const auto& [button, X, iZoom, iNewZoom, newLeft] : cases) {
        window.form.SetZoom(iZoom);
        window.form.SetPosition(-100, -100);
        window.Press(button, X, X);
        EXPECT_EQ(window.form.GetZoom(), iNewZoom) << button << " at " << X;
        EXPECT_EQ(window.Picture().pos(), QPoint(newLeft, newLeft)) << button << " at " << X;
    }
}

TEST_F(Editor, NetFollowsTheDragAndSwitchesItsCommands) {
    // clang-format off
    // zoom, place of the press, of the release, the net and whether it has commands
    const std::tuple<std::int16_t, float, float, float, float, NetRect, int> cases[] = {
        {3, 10, 10, 21, 10, { 8, 8, 12, 0}, 1}, // wide enough, though without height
        {3, 10, 10,  7,  7, { 4, 4,  4, 4}, 1},
        {1,  5,  5,  6,  9, { 5, 5,  1, 4}, 0}, // one screen pixel
        {2,  4,  4,  6,  8, { 4, 4,  2, 4}, 1}, // one picture pixel of two screen pixels
        {1,  5,  5, -9,  6, {-9, 5, 14, 1}, 1},
    };
    // clang-format on
    const SnapshotProbe window = Open(Bytes(6144), 256, 192);
    for (const auto& [iZoom, fromX, fromY, toX, toY, net, commands] : cases) {
        window.form.SetZoom(iZoom);
        notices.clear();
        window.DrawNet(fromX, fromY, toX, toY);
        EXPECT_EQ(window.Net(), net);
        EXPECT_EQ(TakeNotices(QStringLiteral("EnableFunction 5 %1").arg(commands)), 1) << toX;
    }
    window.form.SetZoom(4); // the net stays on its pixels
    EXPECT_EQ(window.Net(), (NetRect{-72, 40, 112, 8}));
}

/// Where the border crosses the picture its pixels are inverted, the corners of thin nets once too; all others
/// are as without a net.
TEST_F(Editor, NetInvertsItsBorder) {
    const SnapshotProbe window = Open(testing::NoiseBytes(64), 32, 16);
    const QImage plain = window.Picture().grab().toImage();
    iCurrentTool = kToolNet;
    for (const QRect net : {QRect(2, -3, 18, 12), QRect(3, 3, 1, 5), QRect(3, 3, 6, 2), QRect(4, 4, 2, 2)}) {
        window.Press(1, static_cast<float>(net.left()), static_cast<float>(net.top()));
        window.Move(1, static_cast<float>(net.right() + 1), static_cast<float>(net.bottom() + 1));
        const QImage withNet = window.Picture().grab().toImage();
        for (int y = 0; y < plain.height(); ++y) {
            for (int x = 0; x < plain.width(); ++x) {
                const bool border = net.contains(x, y) && (x == net.left() || x == net.right() ||
                                                           y == net.top() || y == net.bottom());
                ASSERT_EQ(withNet.pixel(x, y), plain.pixel(x, y) ^ (border ? 0x00ffffffU : 0U))
                    << x << "," << y;
            }
        }
        window.Release(1, 0, 0);
    }
}

/// Parts that are repainted must fit what was painted in one piece, to the device pixel. Run again with a
/// fractional device pixel ratio.
TEST_F(Editor, NetAndPixelsLeaveNothingBehind) {
    const SnapshotProbe window = Open(testing::NoiseBytes(6144), 256, 192);
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&area));
    const QWidget& box = window.Container();
    const auto shown = [&, at = box.mapTo(&area, QPoint())] {
        QCoreApplication::processEvents();
        QEvent paint(QEvent::UpdateRequest); // the platform would ask for it some milliseconds later
        QCoreApplication::sendEvent(&area, &paint);
        return area.screen()->grabWindow(area.winId(), at.x(), at.y(), box.width(), box.height()).toImage();
    };
    const auto at = [](int i) { return static_cast<float>(20 + i * 37 % 150); };
    testing::WaitForActive(area);
    const QImage plain = shown();
    window.Picture().setFocus(Qt::TabFocusReason);
    for (int i = 0; i < 40; ++i) { // the cell, beyond the edges too, and with a picture that moves
        if (i == 20) {
            window.form.SetZoom(3);
        }
        window.form.MoveCell(i * 37 % 256, i * 53 % 192);
        const QImage parts = shown();
        window.Picture().update();
        ASSERT_EQ(shown(), parts) << "cell at move " << i;
    }
    window.form.SetZoom(1);
    window.form.SetPosition(0, 0);
    window.Bar().setFocus();
    EXPECT_EQ(shown(), plain);
    for (const std::int16_t tool : {kToolNet, kToolDraw}) {
        iCurrentTool = tool;
        window.Press(1, 50, 50);
        for (int i = 0; i < 40; ++i) {
            window.Move(1, at(i), at(i + 1 + tool % 2));
            const QImage parts = shown();
            ASSERT_NE(parts, plain);
            window.Picture().update();
            ASSERT_EQ(shown(), parts) << tool << " at move " << i;
        }
        window.form.ClearNet();
        EXPECT_EQ(shown() == plain, tool == kToolNet);
    }
}

TEST_F(Editor, CopyCutAndDelete) {
    const frmClip& clip = frmClip::Instance();
    for (const std::int16_t iZoom : {std::int16_t{1}, std::int16_t{3}}) {
        // the third line lies past the end of the file
        const SnapshotProbe window = Open({0b00000010, 0b10000000, 0b00000001, 0b10000000}, 16, 3);
        window.form.SetZoom(iZoom);
        const auto z = static_cast<float>(window.View().iZoomFactor);
        window.DrawNet(6 * z, 0, 9 * z, 3 * z);
        for (const bool cut : {false, true}) {
            window.form.Copy(cut);
            EXPECT_EQ(clip.GetData(), "101011000");
            EXPECT_TRUE(clip.picClip.PixelAt(2, 0)) << "the picture was taken before the pixels were cleared";
            EXPECT_EQ(window.TakeChanged(), cut);
            EXPECT_NE(window.Picture().hDC().Picture().PixelAt(6, 0), cut) << "the view is drawn again";
        }
        EXPECT_EQ(window.Bytes(), Bytes(4));
        window.form.Delete();
        EXPECT_EQ(window.Changed(), -1);
        EXPECT_EQ(clip.GetData(), "101011000") << "Delete leaves the clipboard alone";
    }
}

/// 65536 pixels are more than the toolkit reads, so the file is looked at as it lies: a header of 62 bytes,
/// then rows of 8192 bytes, the lowest first.
TEST_F(Editor, TheLargestViewFits) {
    const SnapshotProbe window = Open(testing::NoiseBytes(256 * 1024), 256, 512, 16);
    window.form.SetZoom(5);
    window.form.SetFlip(1);
    files = {Path(QStringLiteral("large.bmp"))};
    window.form.ExportViewToBMP();
    const Bytes file = ReadFile(QStringLiteral("large.bmp"));
    ASSERT_EQ(file.size(), 62U + 8192U * 8192U);
    const Bytes sizes{0, 0, 1, 0, 0, 32, 0, 0, 1, 0, 1, 0}; // width, height, planes, bits a pixel
    EXPECT_TRUE(std::equal(sizes.begin(), sizes.end(), file.begin() + 18));
    const lmk::BitPicture& shown = window.Picture().hDC().Picture();
    for (int x = 0; x < 8192; ++x) { // the uppermost row; two bytes are one pixel
        ASSERT_EQ(file[file.size() - 8192U + static_cast<std::size_t>(x)],
                  shown.PixelAt(x / 2, 0) ? 0xff : 0);
    }
}

TEST_F(Editor, AnExportedSelectionIsOnePixelForEachPicturePixel) {
    const SnapshotProbe window = Open(Bytes{0b00000010, 0b10000000, 0b00000001, 0b10000000}, 16, 2);
    window.form.SetZoom(3);
    window.DrawNet(6 * 4, 4, 20 * 4, -4); // past the right and the upper edge
    files = {Path(QStringLiteral("part.bmp"))};
    window.form.ExportSelectionToBMP();
    const QImage image(Path(QStringLiteral("part.bmp")));
    ASSERT_EQ(image.size(), QSize(14, 2));
    const lmk::BitPicture& shown = window.Picture().hDC().Picture();
    for (int x = 0; x < 14; ++x) {
        EXPECT_EQ(image.pixel(x, 0), shown.backColour) << x; // outside: paper
        EXPECT_EQ(image.pixel(x, 1), x == 0 || x == 2 ? shown.foreColour : shown.backColour) << x;
    }
    EXPECT_NE(frmClip::Instance().IsEmpty(), 0) << "the clipboard is left alone";
    window.DrawNet(0, 0, 8, 0);
    window.form.ExportSelectionToBMP();
    EXPECT_EQ(boxes.size(), 1U) << "a selection of nothing is told without a dialog";
}

/// A block of 2 x 2 set pixels hangs on the mouse in `window`; Draw was in force.
struct Placing : testing::SnapshotTest {
    Placing() {
        window.DrawNet(0, 0, 2, 2);
        window.form.Copy(false);
        window.form.ClearNet();
        iCurrentTool = kToolDraw;
        window.Move(0, 5, 6);
        notices.clear();
        window.form.Paste();
    }

    void ExpectPlacing(const SnapshotProbe& where, const NetRect& block) {
        EXPECT_EQ(SnapshotProbe::Placing().IsHanging() ? SnapshotProbe::Placing().window : nullptr,
                  &where.form);
        EXPECT_EQ(SnapshotProbe::Placing().iSavedTool, kToolDraw);
        EXPECT_EQ(where.ClipPlace(), block);
        EXPECT_EQ(where.Net(), FrameOf(block));
        EXPECT_TRUE(where.Net().Visible && !where.Clip().isHidden());
        EXPECT_EQ(where.Clip().grab().toImage().pixel(0, 0), frmClip::Instance().picClip.foreColour);
    }
    void ExpectOver(const SnapshotProbe& where, std::int16_t iTool, const Bytes& memory) {
        EXPECT_EQ(iCurrentTool, iTool);
        EXPECT_EQ(SnapshotProbe::Placing().window, nullptr);
        EXPECT_TRUE(where.Clip().isHidden() && !where.Net().Visible);
        EXPECT_EQ(where.Bytes(), memory);
    }

    const Bytes start{0xc0, 0xc0, 0, 0, 0, 0, 0, 0};
    SnapshotProbe window = Open(start, 8, 8);
};

TEST_F(Placing, BlockFollowsTheMouseUntilALeftPress) {
    ExpectPlacing(window, {4, 5, 2, 2});
    EXPECT_EQ(TakeNotices(QStringLiteral("EnableFunction 1 0")), 1);
    window.MoveOverClip(0, 0, 3); // from the corner of the block
    window.Move(1, 0, 0);         // a held button moves nothing
    window.PressClip(2);          // nor does another button drop
    window.Press(1, 0, 0);        // nor a press beside the block
    ExpectPlacing(window, {3, 7, 2, 2});
    EXPECT_EQ(window.Bytes(), start);
    window.form.Paste(); // keeps the tool that was saved first
    ExpectPlacing(window, {-1, -1, 2, 2});
    const std::pair<float, Bytes> drops[] = {{4, {0xc0, 0xc0, 0, 0x18, 0x18, 0, 0, 0}},
                                             {8, {0xc0, 0xc0, 0, 0, 0, 0, 0, 0x01}}, // across a corner
                                             {20, start}};
    for (const auto& [place, after] : drops) {
        std::copy(start.begin(), start.end(), window.Data());
        window.form.Paste();
        window.Move(0, place, place);
        window.PressClip(1);
        ExpectOver(window, kToolDraw, after);
        EXPECT_TRUE(window.TakeChanged());
    }
}

TEST_F(Placing, AToolButtonLeavesTheBlockWithTheNextMove) {
    iCurrentTool = kToolNet;
    window.Move(0, 1, 1);
    EXPECT_TRUE(window.Clip().isHidden());
    EXPECT_TRUE(window.Net().Visible) << "with Net the frame stays";
    window.form.Form_Activate(); // and is no net
    EXPECT_EQ(TakeNotices(QStringLiteral("EnableFunction 1 1")), 0);
    window.form.Paste();
    window.Move(0, 5, 5);
    iCurrentTool = kToolPan;
    window.PressClip(1); // a press without a move before it drops nothing either
    ExpectOver(window, kToolPan, start);
    window.form.Paste();
    window.DrawNet(1, 1, 5, 3); // and one beside the block begins a net, which is then no frame
    window.form.SetZoom(2);
    EXPECT_TRUE(window.Clip().isHidden());
    EXPECT_EQ(window.Net(), (NetRect{2, 2, 8, 4}));
}

/// What hangs on the mouse is always what will be written, also when another window copies meanwhile.
TEST_F(Placing, AnotherWindowCopiesPastesAndGoes) {
    const SnapshotProbe other = Open(Bytes(8, 0xff), 8, 8);
    other.DrawNet(0, 0, 4, 1);
    iCurrentTool = kToolPlacing;
    other.Move(0, 7, 7); // this one has no block
    EXPECT_EQ(other.Net(), (NetRect{0, 0, 4, 1}));
    other.form.Copy(false);
    ExpectPlacing(window, {4, 5, 4, 1});
    other.form.Paste();
    ExpectPlacing(other, {5, 6, 4, 1});
    EXPECT_TRUE(window.Clip().isHidden());
    other.form.close(); // the other window goes in the middle of it
    ExpectOver(window, kToolDraw, start);
}

TEST_F(Placing, TheRestOfThePressThatDropsDrawsNothing) {
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&area));
    window.form.SetZoom(4);
    QTest::mouseMove(&window.Picture(), QPoint(25, 33));
    QTest::mouseMove(&window.Clip(), QPoint(16, 8));
    ExpectPlacing(window, {24, 24, 16, 16});
    const QPoint corner = window.Picture().mapTo(&area, QPoint());
    QTest::mousePress(area.windowHandle(), Qt::LeftButton, {}, corner + QPoint(32, 32));
    QTest::mouseMove(area.windowHandle(), corner + QPoint(5, 50));
    window.MoveOverClip(1, 1, 1);
    ExpectOver(window, kToolDraw, {0xc0, 0xc0, 0, 0x18, 0x18, 0, 0, 0});
    QTest::mouseRelease(area.windowHandle(), Qt::LeftButton, {}, corner);
}

} // namespace
} // namespace lumrake
