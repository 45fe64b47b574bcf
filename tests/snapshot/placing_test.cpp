/// Placing a pasted block: every way in, on and out.
#include "snapshot/snapshot_probe.h"

namespace lumrake {
namespace {

using Bytes = std::vector<std::uint8_t>;
using Window = testing::SnapshotWindow;

/// A block of 2 x 2 set pixels hangs on the mouse in `window`; Draw was in force.
struct Placing : testing::EditorTest {
    Placing() {
        window.probe.DrawNet(0, 0, 2, 2);
        window.form->Copy(false);
        window.form->ClearNet();
        iCurrentTool = kToolDraw;
        window.probe.Move(0, 5, 6);
        stage.notices.clear();
        window.form->Paste();
    }

    void ExpectPlacing(const Window& where, const NetRect& block) {
        EXPECT_EQ(iCurrentTool, kToolPlacing);
        EXPECT_EQ(SnapshotProbe::Placing(), where.form.get());
        EXPECT_EQ(where.probe.SavedTool(), kToolDraw);
        EXPECT_FALSE(where.probe.Clip().isHidden());
        EXPECT_EQ(where.probe.ClipPlace(), block);
        EXPECT_EQ(where.probe.Net(), FrameOf(block));
        EXPECT_TRUE(where.probe.Net().Visible);
    }
    void ExpectOver(const Window& where, std::int16_t iTool, const Bytes& memory) {
        EXPECT_EQ(iCurrentTool, iTool);
        EXPECT_EQ(SnapshotProbe::Placing(), nullptr);
        EXPECT_TRUE(where.probe.Clip().isHidden());
        EXPECT_FALSE(where.probe.Net().Visible);
        EXPECT_EQ(where.Memory(), memory);
    }

    const Bytes start{0xc0, 0xc0, 0, 0, 0, 0, 0, 0};
    Window window{stage, start, 8, 8};
};

TEST_F(Placing, BlockFollowsTheMouseUntilALeftPress) {
    ExpectPlacing(window, {4, 5, 2, 2});
    EXPECT_EQ(stage.TakeNotices(QStringLiteral("EnableFunction 1 0")), 1);
    window.probe.MoveOverClip(0, 0, 3); // from the corner of the block
    window.probe.Move(1, 0, 0);         // a held button moves nothing
    window.probe.PressClip(2);          // nor does another button drop
    window.probe.Press(1, 0, 0);        // nor a press beside the block
    ExpectPlacing(window, {3, 7, 2, 2});
    EXPECT_EQ(window.Memory(), start);
    window.form->Paste(); // keeps the tool that was saved first
    ExpectPlacing(window, {-1, -1, 2, 2});
    const std::pair<float, Bytes> drops[] = {{4, {0xc0, 0xc0, 0, 0x18, 0x18, 0, 0, 0}},
                                             {8, {0xc0, 0xc0, 0, 0, 0, 0, 0, 0x01}}, // across a corner
                                             {20, start}};
    for (const auto& [place, after] : drops) {
        std::copy(start.begin(), start.end(), window.probe.Memory().data());
        window.form->Paste();
        window.probe.Move(0, place, place);
        window.probe.PressClip(1);
        ExpectOver(window, kToolDraw, after);
        EXPECT_EQ(std::exchange(window.probe.Changed(), std::int16_t{0}), -1);
    }
}

/// Colours and order are those seen at the source; masks and the other halves of bytes are left alone.
TEST_F(Placing, BlockGoesOverIntoAnyOtherView) {
    window.form->SetFlip(1);
    window.probe.DrawNet(0, 4, 2, 8); // 00 00 11 11 as seen
    window.form->Copy(false);
    Window target(stage, Bytes(64, 0xff), 16, 16);
    target.form->SetMode(kByteMasks, true);
    target.form->SetZoom(3);
    target.form->Paste();
    target.probe.Move(0, 32, 18); // centre of 8 x 16 screen pixels: pixels 7 and 8
    EXPECT_EQ(target.probe.Clip().grab().toImage().pixel(0, 8),
              window.probe.Picture().hDC().Picture().foreColour);
    target.probe.PressClip(1);
    Bytes expected(64, 0xff);
    expected[2 * 4] = expected[3 * 4] = 0xfe;
    expected[2 * 4 + 2] = expected[3 * 4 + 2] = 0x7f;
    EXPECT_EQ(target.Memory(), expected);
}

TEST_F(Placing, ZoomTakesBlockAndFrameAlong) {
    window.form->SetZoom(4);
    ExpectPlacing(window, {32, 40, 16, 16});
    window.form->SetZoom(2);
    ExpectPlacing(window, {8, 10, 4, 4});
    window.probe.PressClip(1);
    ExpectOver(window, kToolDraw, {0xc0, 0xc0, 0, 0, 0, 0x0c, 0x0c, 0});
}

TEST_F(Placing, AToolButtonLeavesTheBlockWithTheNextMove) {
    for (const Tool tool : {kToolDraw, kToolMagnify, kToolNet, kToolPan}) {
        window.form->Paste();
        iCurrentTool = tool;
        if (tool != kToolNet) {
            window.form->ClearNet(); // as the main window does
        }
        window.probe.Move(0, 1, 1);
        EXPECT_TRUE(window.probe.Clip().isHidden());
        EXPECT_EQ(window.probe.Net().Visible, tool == kToolNet) << "with Net the frame stays";
        window.form->Form_Activate(); // and is no net
        EXPECT_EQ(stage.TakeNotices(QStringLiteral("EnableFunction 1 1")), 0);
        EXPECT_EQ(iCurrentTool, tool);
    }
    window.form->Paste();
    window.probe.Move(0, 5, 5);
    iCurrentTool = kToolPan;
    window.probe.PressClip(1); // a press without a move before it drops nothing either
    ExpectOver(window, kToolPan, start);
    window.form->Paste();
    window.probe.DrawNet(1, 1, 5, 3); // and one beside the block begins a net, which is then no frame
    window.form->SetZoom(2);
    EXPECT_TRUE(window.probe.Clip().isHidden());
    EXPECT_EQ(window.probe.Net(), (NetRect{2, 2, 8, 4}));
}

TEST_F(Placing, AnotherChildHasNoBlockUntilItPastes) {
    {
        Window other(stage, Bytes(8), 8, 8);
        other.probe.DrawNet(1, 1, 5, 5);
        iCurrentTool = kToolPlacing;
        other.probe.Move(0, 7, 7);
        EXPECT_EQ(other.probe.Net(), (NetRect{1, 1, 4, 4}));
        ExpectPlacing(window, {4, 5, 2, 2});
        other.form->Paste();
        ExpectPlacing(other, {6, 6, 2, 2});
        EXPECT_TRUE(window.probe.Clip().isHidden());
    } // the other window goes in the middle of it
    ExpectOver(window, kToolDraw, start);
}

TEST_F(Placing, ClosingTheWindowGivesTheToolBack) {
    window.probe.Changed() = -1;
    stage.answers = {BoxAnswer::Cancel, BoxAnswer::No};
    window.form->close();
    ExpectPlacing(window, {4, 5, 2, 2}); // the window stays, and so does the block
    window.form->close();
    ExpectOver(window, kToolDraw, start);
}

/// What hangs on the mouse is always what will be written, also when another window copies meanwhile.
TEST_F(Placing, ACopyElsewhereChangesTheBlock) {
    Window other(stage, Bytes(8, 0xff), 8, 8);
    other.probe.DrawNet(0, 0, 4, 1);
    iCurrentTool = kToolPlacing;
    other.form->Copy(false);
    ExpectPlacing(window, {4, 5, 4, 1});
    other.probe.DrawNet(0, 0, 4, 0);
    iCurrentTool = kToolPlacing;
    other.form->Copy(false); // nothing is left to place
    ExpectOver(window, kToolDraw, start);
}

TEST_F(Placing, TheRestOfThePressThatDropsDrawsNothing) {
    ASSERT_TRUE(QTest::qWaitForWindowExposed(window.form.get()));
    window.form->SetZoom(4);
    QTest::mouseMove(&window.probe.Picture(), QPoint(25, 33));
    QTest::mouseMove(&window.probe.Clip(), QPoint(16, 8));
    ExpectPlacing(window, {24, 24, 16, 16});
    const QPoint corner = window.probe.Picture().mapTo(window.form.get(), QPoint());
    QTest::mousePress(window.form->windowHandle(), Qt::LeftButton, {}, corner + QPoint(32, 32));
    QTest::mouseMove(window.form->windowHandle(), corner + QPoint(5, 50));
    window.probe.MoveOverClip(1, 1, 1);
    iCurrentTool = kToolNet;        // as if Net had been in force before
    window.probe.Release(1, 5, 50); // the frame is no net that ends here
    EXPECT_EQ(stage.TakeNotices(QStringLiteral("EnableFunction 1 1")), 0);
    ExpectOver(window, kToolNet, {0xc0, 0xc0, 0, 0x18, 0x18, 0, 0, 0});
    QTest::mouseRelease(window.form->windowHandle(), Qt::LeftButton, {}, corner);
}

} // namespace
} // namespace lumrake
