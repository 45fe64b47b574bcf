#pragma once

#include "snapshot/frmSnapshot.h"
#include "support/forms_support.h"

#include <gtest/gtest.h>

#include <memory>
#include <vector>

namespace lumrake {

/// Opens the fields and controls of a snapshot window to tests.
struct SnapshotProbe {
    frmSnapshot& form;

    ViewNumbers& View() const { return form.view; }
    MemoryBlock& Memory() const { return form.byMemory; }
    std::int16_t& Changed() const { return form.bChanged; }
    PictureBox& Picture() const { return *form.picImage; }
    ImageBox& Clip() const { return *form.imgClip; }
    NetRect ClipPlace() const { return form.ClipPlace(); }
    auto& Net() const { return form.shpNet; }
    std::int32_t NetX() const { return form.iNetX; }
    std::int32_t NetWidth() const { return form.iNetWidth; }
    std::int16_t SavedTool() const { return form.iSavedTool; }
    static frmSnapshot* Placing() { return frmSnapshot::placingWindow; }

    // The mouse over the picture, in screen pixels of the picture: 1 left, 2 right, 4 middle, 0 none.
    void Press(int button, float X, float Y) const { Picture().MouseDown(Args(button, X, Y)); }
    void Move(int buttons, float X, float Y) const { Picture().MouseMove(Args(buttons, X, Y)); }
    void Release(int button, float X, float Y) const { Picture().MouseUp(Args(button, X, Y)); }
    /// The same over the block that hangs on the mouse, from the block's corner.
    void PressClip(int button) const { Clip().MouseDown(Args(button, 1, 1)); }
    void MoveOverClip(int buttons, float X, float Y) const { Clip().MouseMove(Args(buttons, X, Y)); }

    /// Draws a net with the Net tool, which stays in force.
    void DrawNet(float fromX, float fromY, float toX, float toY) const {
        iCurrentTool = kToolNet;
        Press(1, fromX, fromY);
        Move(1, toX, toY);
        Release(1, toX, toY);
    }

    static MouseArgs Args(int button, float X, float Y) {
        return {static_cast<std::int16_t>(button), 0, X, Y};
    }
};

namespace testing {

/// A window over a file of its own, with a view of one column in Graphics mode.
struct SnapshotWindow {
    SnapshotWindow(Stage& stage, const std::vector<std::uint8_t>& bytes, std::int16_t iWidth,
                   std::int16_t iLines) {
        Settings.iDefaultWidth = iWidth;
        Settings.iDefaultLines = iLines;
        const QString sFile = stage.MakeFile(QStringLiteral("file%1.sna").arg(iSnapshotCount), bytes);
        EXPECT_TRUE(form->Launch(sFile, QStringLiteral("file.sna")));
    }
    std::vector<std::uint8_t> Memory() const {
        return {probe.Memory().Bytes().begin(), probe.Memory().Bytes().end()};
    }

    std::unique_ptr<frmSnapshot> form = std::make_unique<frmSnapshot>();
    SnapshotProbe probe{*form};
};

} // namespace testing
} // namespace lumrake
