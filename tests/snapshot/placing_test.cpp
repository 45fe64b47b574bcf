/// Placing a pasted block: every way in, on and out.
#include "snapshot/snapshot_probe.h"

namespace lumrake {
namespace {

using Bytes = std::vector<std::uint8_t>;

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
        EXPECT_EQ(iCurrentTool, kToolPlacing);
        EXPECT_EQ(SnapshotProbe::Placing(), &where.form);
        EXPECT_EQ(where.SavedTool(), kToolDraw);
        EXPECT_FALSE(where.Clip().isHidden());
        EXPECT_EQ(where.ClipPlace(), block);
        EXPECT_EQ(where.Net(), FrameOf(block));
        EXPECT_TRUE(where.Net().Visible);
    }
    void ExpectOver(const SnapshotProbe& where, std::int16_t iTool, const Bytes& memory) {
        EXPECT_EQ(iCurrentTool, iTool);
        EXPECT_EQ(SnapshotProbe::Placing(), nullptr);
        EXPECT_TRUE(where.Clip().isHidden());
        EXPECT_FALSE(where.Net().Visible);
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
        std::copy(start.begin(), start.end(), window.Memory().data());
        window.form.Paste();
        window.Move(0, place, place);
        window.PressClip(1);
        ExpectOver(window, kToolDraw, after);
        EXPECT_EQ(std::exchange(window.Changed(), std::int16_t{0}), -1);
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
    iCurrentTool = kToolNet;  // as if Net had been in force before
    window.Release(1, 5, 50); // the frame is no net that ends here
    EXPECT_EQ(TakeNotices(QStringLiteral("EnableFunction 1 1")), 0);
    ExpectOver(window, kToolNet, {0xc0, 0xc0, 0, 0x18, 0x18, 0, 0, 0});
    QTest::mouseRelease(area.windowHandle(), Qt::LeftButton, {}, corner);
}

} // namespace
} // namespace lumrake
