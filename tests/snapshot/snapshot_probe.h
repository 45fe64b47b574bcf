#pragma once

#include "platform/spin_bar.h"
#include "platform/value_box.h"
#include "snapshot/frmClip.h"
#include "snapshot/frmSnapshot.h"
#include "support/forms_support.h"

#include <QApplication>
#include <QMdiArea>
#include <QTest>

#include <gtest/gtest.h>

#include <memory>
#include <span>
#include <vector>

namespace lumrake {

/// Opens the fields and controls of a snapshot window to tests.
struct SnapshotProbe {
    frmSnapshot& form;

    ViewNumbers& View() const { return form.view; }
    MemoryBlock& Memory() const { return form.byMemory; }
    std::int16_t& Changed() const { return form.bChanged; }
    PictureBox& Picture() const { return *form.picImage; }
    auto& Net() const { return form.shpNet; }
    ImageBox& Clip() const { return *form.imgClip; }
    NetRect ClipPlace() const { return form.ClipPlace(); }
    std::int32_t NetX() const { return form.iNetX; }
    std::int32_t NetWidth() const { return form.iNetWidth; }
    std::int16_t SavedTool() const { return form.iSavedTool; }
    static frmSnapshot* Placing() { return frmSnapshot::placingWindow; }

    QWidget& Container() const { return *form.picContainer; }
    ValueBox& Box(int index) const { return *form.txtValue[static_cast<std::size_t>(index)]; }
    SpinBar& Spin(int index) const { return *form.scrValue[static_cast<std::size_t>(index)]; }
    SpinBar& Bar() const { return *form.scrAddr; }
    QWidget& Track() const { return *form.txtScroll; }
    QPushButton& Thumb() const { return *form.cmdScroll; }
    QPushButton& Options() const { return *form.cmdOptions; }
    PanelBar& Status() const { return *form.sbrSnapshot; }
    ColourButton& ColourOf(int index) const { return *form.cmdColour[static_cast<std::size_t>(index)]; }
    QProgressBar& Progress() const { return *form.barProgress; }
    std::int32_t ValueMax(int index) const { return form.lValueMax[static_cast<std::size_t>(index)]; }
    void WritePixel(float X, float Y, std::int16_t iValue, bool bRefresh) const {
        form.WritePixel(X, Y, iValue, bRefresh);
    }

    std::string Texts() const {
        QStringList texts;
        for (const ValueBox* box : form.txtValue) {
            texts << box->text();
        }
        return texts.join(QLatin1Char(' ')).toStdString();
    }
    /// Whether something drew since the last call. The bytes shown must not be all 0.
    bool Drawn() const {
        lmk::DeviceContext& context = form.picImage->hDC();
        bool drawn = false;
        for (int y = 0; y < context.Picture().Height(); ++y) {
            for (int x = 0; x < context.Picture().Width(); ++x) {
                drawn = drawn || context.Picture().PixelAt(x, y);
            }
        }
        context.Clear();
        return drawn;
    }

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

/// A snapshot window in the area of a main window that is only there to hold it.
class SnapshotStage : public Stage {
  public:
    SnapshotStage() {
        area.resize(700, 600);
        area.show();
    }
    void AdoptChild(QWidget* child) override { area.addSubWindow(child); }

    /// Opens a file of these bytes; null when it did not open.
    frmSnapshot* Open(std::span<const std::uint8_t> bytes, const QString& name = QStringLiteral("Test.SNA")) {
        MakeFile(name, bytes);
        return OpenPath(Path(name), name);
    }
    frmSnapshot* OpenPath(const QString& path, const QString& title) {
        auto* form = new frmSnapshot;
        if (!form->Launch(path, title)) {
            delete form;
            return nullptr;
        }
        QCoreApplication::sendPostedEvents();
        return form;
    }

    QMdiArea area;
};

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

/// For tests of the editor: they leave the clipboard empty.
struct EditorTest : ::testing::Test {
    ~EditorTest() override { frmClip::Instance().SetData({}); }
    Stage stage;
};

} // namespace testing
} // namespace lumrake
