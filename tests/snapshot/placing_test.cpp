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

TEST_F(Placing, AToolButtonLeavesTheBlockWithTheNextMove) {
    iCurrentTool = kToolNet;
    window.probe.Move(0, 1, 1);
    EXPECT_TRUE(window.probe.Clip().isHidden());
    EXPECT_TRUE(window.probe.Net().Visible) << "with Net the frame stays";
    window.form->Form_Activate(); // and is no net
    EXPECT_EQ(stage.TakeNotices(QStringLiteral("EnableFunction 1 1")), 0);
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

/// What hangs on the mouse is always what will be written, also when another window copies meanwhile.
TEST_F(Placing, AnotherWindowCopiesPastesAndGoes) {
    {
        Window other(stage, Bytes(8, 0xff), 8, 8);
        other.probe.DrawNet(0, 0, 4, 1);
        iCurrentTool = kToolPlacing;
        other.probe.Move(0, 7, 7); // this one has no block
        EXPECT_EQ(other.probe.Net(), (NetRect{0, 0, 4, 1}));
        other.form->Copy(false);
        ExpectPlacing(window, {4, 5, 4, 1});
        other.form->Paste();
        ExpectPlacing(other, {5, 6, 4, 1});
        EXPECT_TRUE(window.probe.Clip().isHidden());
    } // the other window goes in the middle of it
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
