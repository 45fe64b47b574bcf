/// Placing a pasted block: every way in, on and out.
#include "snapshot/frmClip.h"
#include "snapshot/snapshot_probe.h"

#include <QTest>

#include <gtest/gtest.h>

namespace lumrake {
namespace {

using Bytes = std::vector<std::uint8_t>;
using Window = testing::SnapshotWindow;

class Placing : public ::testing::Test {
  protected:
    /// A block of 2 x 2 set pixels is on the clipboard and hangs on the mouse in `window`; Draw was in force.
    Placing() {
        window.probe.DrawNet(0, 0, 2, 2);
        window.form->Copy(false);
        window.form->ClearNet();
        iCurrentTool = kToolDraw;
        window.probe.Move(0, 5, 6);
        stage.notices.clear();
        window.form->Paste();
    }
    ~Placing() override { frmClip::Instance().SetData({}); }

    void ExpectPlacing(const Window& where, const NetRect& block) {
        EXPECT_EQ(iCurrentTool, kToolPlacing);
        EXPECT_EQ(SnapshotProbe::Placing(), where.form.get());
        EXPECT_FALSE(where.probe.Clip().isHidden());
        EXPECT_EQ(where.probe.ClipPlace(), block);
        EXPECT_EQ(where.probe.Net(), FrameOf(block));
        EXPECT_TRUE(where.probe.Net().Visible);
    }
    void ExpectOver(const Window& where, std::int16_t iTool) {
        EXPECT_EQ(iCurrentTool, iTool);
        EXPECT_EQ(SnapshotProbe::Placing(), nullptr);
        EXPECT_TRUE(where.probe.Clip().isHidden());
        EXPECT_FALSE(where.probe.Net().Visible);
        EXPECT_EQ(where.probe.SavedTool(), 0);
    }

    testing::Stage stage;
    const Bytes start{0xc0, 0xc0, 0, 0, 0, 0, 0, 0};
    Window window{stage, start, 8, 8};
};

TEST_F(Placing, HangsOnTheMouseAndSwitchesTheNetsCommandsOff) {
    ExpectPlacing(window, {4, 5, 2, 2});
    EXPECT_EQ(window.probe.SavedTool(), kToolDraw);
    EXPECT_EQ(window.probe.Picture().property("Tag").toString(), QStringLiteral("1"));
    for (const int group : {1, 2, 4, 5}) {
        EXPECT_TRUE(std::count(stage.notices.begin(), stage.notices.end(),
                               QStringLiteral("EnableFunction %1 0").arg(group)) == 1);
    }
    window.probe.MoveOverClip(0, 0, 3); // from the corner of the block at (4, 5)
    ExpectPlacing(window, {3, 7, 2, 2});
    window.probe.Move(1, 0, 0); // a held button moves nothing
    ExpectPlacing(window, {3, 7, 2, 2});
    window.probe.PressClip(2); // nor does another button drop
    ExpectPlacing(window, {3, 7, 2, 2});
    window.probe.Press(1, 0, 0); // nor a press beside the block
    EXPECT_EQ(window.Memory(), start);
    EXPECT_EQ(window.probe.Changed(), 0);
}

TEST_F(Placing, ADropWritesEveryPixelInsideThePicture) {
    struct Case {
        float X, Y;
        Bytes after;
    };
    // clang-format off
    const Case cases[] = {
        {4, 4, {0xc0, 0xc0, 0, 0x18, 0x18, 0, 0, 0}},
        {8, 8, {0xc0, 0xc0, 0, 0, 0, 0, 0, 0x01}},   // across the corner of the picture
        {0, 4, {0xc0, 0xc0, 0, 0x80, 0x80, 0, 0, 0}},
        {20, 20, start},                             // wholly outside
    };
    // clang-format on
    for (const Case& c : cases) {
        std::copy(start.begin(), start.end(), window.probe.Memory().data());
        window.probe.Changed() = 0;
        window.form->Paste(); // a block can be pasted again
        window.probe.Move(0, c.X, c.Y);
        window.probe.PressClip(1);
        EXPECT_EQ(window.Memory(), c.after) << c.X << "," << c.Y;
        EXPECT_EQ(window.probe.Changed(), -1);
        ExpectOver(window, kToolDraw);
    }
}

TEST_F(Placing, ZeroesOfTheBlockClear) {
    window.probe.DrawNet(2, 0, 4, 2);
    window.form->ClearNet();
    window.form->Copy(false); // clear pixels now hang on the mouse
    iCurrentTool = kToolPlacing;
    window.probe.Move(0, 1, 1);
    window.probe.PressClip(1);
    EXPECT_EQ(window.Memory(), Bytes(8));
}

TEST_F(Placing, TheReleaseAfterADropEndsNoNet) {
    window.probe.PressClip(1);
    iCurrentTool = kToolNet; // as if Net had been in force before
    stage.notices.clear();
    window.probe.MoveOverClip(1, 1, 1); // the button is still down over the block that is gone
    EXPECT_TRUE(stage.notices.empty());
    window.probe.Release(1, 1, 1);
    EXPECT_EQ(stage.TakeNotices(QStringLiteral("EnableFunction 1 1")), 0);
}

TEST_F(Placing, ZoomTakesBlockAndFrameAlong) {
    window.form->SetZoom(4);
    ExpectPlacing(window, {32, 40, 16, 16});
    window.form->SetZoom(2);
    ExpectPlacing(window, {8, 10, 4, 4});
    window.probe.PressClip(1);
    EXPECT_EQ(window.Memory(), (Bytes{0xc0, 0xc0, 0, 0, 0, 0x0c, 0x0c, 0}));
}

TEST_F(Placing, ASecondPasteKeepsTheToolSavedFirst) {
    window.form->Paste();
    ExpectPlacing(window, {4, 5, 2, 2});
    EXPECT_EQ(window.probe.SavedTool(), kToolDraw);
}

TEST_F(Placing, AToolButtonLeavesTheBlockWithTheNextMove) {
    for (const Tool tool : {kToolDraw, kToolMagnify, kToolNet, kToolPan}) {
        window.form->Paste();
        iCurrentTool = tool;
        if (tool != kToolNet) {
            window.form->ClearNet();
        }
        EXPECT_FALSE(window.probe.Clip().isHidden());
        window.probe.Move(0, 1, 1);
        EXPECT_TRUE(window.probe.Clip().isHidden());
        EXPECT_EQ(window.probe.Net().Visible, tool == kToolNet) << "with Net the frame stays";
        window.form->Form_Activate(); // and is no net
        EXPECT_EQ(stage.TakeNotices(QStringLiteral("EnableFunction 1 1")), 0);
        EXPECT_EQ(iCurrentTool, tool);
        EXPECT_EQ(window.Memory(), start);
    }
    window.form->Paste(); // a press without a move before it drops nothing either
    iCurrentTool = kToolPan;
    window.probe.PressClip(1);
    ExpectOver(window, kToolPan);
    EXPECT_EQ(window.Memory(), start);
    iCurrentTool = kToolNet;
    window.probe.Press(1, 1, 1);
    EXPECT_EQ(window.probe.Net(), (NetRect{1, 1, 1, 1}));
}

TEST_F(Placing, AnotherChildHasNoBlockAndKeepsItsNet) {
    Window other(stage, Bytes(8), 8, 8);
    other.probe.DrawNet(1, 1, 5, 5);
    iCurrentTool = kToolPlacing;
    other.probe.Move(0, 7, 7);
    EXPECT_TRUE(other.probe.Clip().isHidden());
    EXPECT_EQ(other.probe.Net(), (NetRect{1, 1, 4, 4}));
    other.probe.PressClip(1); // nothing is dropped there
    EXPECT_EQ(other.probe.Changed(), 0);
    ExpectPlacing(window, {4, 5, 2, 2});
    window.probe.Move(0, 1, 1); // back again it goes on
    ExpectPlacing(window, {0, 0, 2, 2});
}

TEST_F(Placing, APasteInAnotherChildTakesTheBlockOver) {
    {
        Window other(stage, Bytes(8), 8, 8);
        other.form->Paste();
        ExpectPlacing(other, {-1, -1, 2, 2});
        EXPECT_EQ(other.probe.SavedTool(), kToolDraw);
        EXPECT_TRUE(window.probe.Clip().isHidden());
        EXPECT_FALSE(window.probe.Net().Visible);
        other.probe.PressClip(1);
        ExpectOver(other, kToolDraw);
        other.form->Paste();
    } // the window goes in the middle of it
    ExpectOver(window, kToolDraw);
}

TEST_F(Placing, ClosingTheWindowGivesTheToolBack) {
    Settings.bPromptSave = 1;
    window.probe.Changed() = -1;
    stage.answers = {BoxAnswer::Cancel, BoxAnswer::No};
    window.form->close();
    ExpectPlacing(window, {4, 5, 2, 2}); // the window stays, and so does the block
    window.form->close();
    ExpectOver(window, kToolDraw);
}

/// What hangs on the mouse is always what will be written, also when another window copies meanwhile.
TEST_F(Placing, ACopyElsewhereChangesTheBlock) {
    Window other(stage, Bytes(8, 0xff), 8, 8);
    other.probe.DrawNet(0, 0, 4, 1);
    iCurrentTool = kToolPlacing;
    other.form->Copy(false);
    ExpectPlacing(window, {4, 5, 4, 1});
    window.probe.PressClip(1);
    EXPECT_EQ(window.Memory(), (Bytes{0xc0, 0xc0, 0, 0, 0, 0x0f, 0, 0}));
    window.form->Paste();
    other.probe.DrawNet(0, 0, 4, 0);
    iCurrentTool = kToolPlacing;
    other.form->Copy(false); // nothing is left to place
    ExpectOver(window, kToolDraw);
}

/// The same with the events of a real mouse.
TEST_F(Placing, WorksByMouse) {
    ASSERT_TRUE(QTest::qWaitForWindowExposed(window.form.get()));
    window.form->SetZoom(4);
    QTest::mouseMove(&window.probe.Picture(), QPoint(25, 33));
    ExpectPlacing(window, {16, 24, 16, 16});
    QTest::mouseMove(&window.probe.Clip(), QPoint(8 + 8, 8));
    ExpectPlacing(window, {24, 24, 16, 16});
    QWindow* const screen = window.form->window()->windowHandle();
    const auto at = [this](const QWidget& control, QPoint place) {
        return control.mapTo(window.form.get(), place);
    };
    QTest::mousePress(screen, Qt::LeftButton, {}, at(window.probe.Clip(), QPoint(8, 8)));
    ExpectOver(window, kToolDraw);
    const Bytes dropped{0xc0, 0xc0, 0, 0x18, 0x18, 0, 0, 0};
    EXPECT_EQ(window.Memory(), dropped);
    // The rest of the press belongs to the drop: nothing is drawn.
    QTest::mouseMove(screen, at(window.probe.Picture(), QPoint(5, 50)));
    QTest::mouseRelease(screen, Qt::LeftButton, {}, at(window.probe.Picture(), QPoint(5, 50)));
    EXPECT_EQ(window.Memory(), dropped);
}

} // namespace
} // namespace lumrake
