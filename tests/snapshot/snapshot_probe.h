#pragma once

#include "platform/panel_bar.h"
#include "platform/spin_bar.h"
#include "platform/value_box.h"
#include "snapshot/frmClip.h"
#include "snapshot/frmSnapshot.h"
#include "support/forms_support.h"

#include <QApplication>
#include <QMdiArea>

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
    std::int16_t SavedTool() const { return form.iSavedTool; }
    static frmSnapshot* Placing() { return frmSnapshot::placingWindow; }

    QWidget& Container() const { return *form.picContainer; }
    ValueBox& Box(std::size_t index) const { return *form.txtValue[index]; }
    SpinBar& Spin(std::size_t index) const { return *form.scrValue[index]; }
    SpinBar& Bar() const { return *form.scrAddr; }
    QWidget& Track() const { return *form.txtScroll; }
    QPushButton& Thumb() const { return *form.cmdScroll; }
    QPushButton& Options() const { return *form.cmdOptions; }
    PanelBar& Status() const { return *form.sbrSnapshot; }
    ColourButton& ColourOf(std::size_t index) const { return *form.cmdColour[index]; }
    void WritePixel(float X, float Y, std::int16_t iValue) const { form.WritePixel(X, Y, iValue, true); }

    std::string Texts() const {
        QStringList texts;
        for (const ValueBox* box : form.txtValue) {
            texts << box->text();
        }
        return texts.join(QLatin1Char(' ')).toStdString();
    }
    /// Whether something drew since the last call: the picture is cleared in between. The bytes shown must
    /// not be all 0.
    bool Drawn() const {
        lmk::BitPicture picture = form.picImage->hDC().Picture();
        form.picImage->hDC().Clear();
        const std::uint8_t* end = picture.Row(0) + picture.Stride() * picture.Height();
        return std::any_of(static_cast<const std::uint8_t*>(picture.Row(0)), end,
                           [](int byte) { return byte != 0; });
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

/// Snapshot windows in the area of a main window that is only there to hold them.
class SnapshotTest : public ::testing::Test {
  protected:
    class AreaStage : public Stage {
      public:
        void AdoptChild(QWidget* child) override { area.addSubWindow(child); }
        QMdiArea area;
    };

    SnapshotTest() {
        stage.area.resize(700, 600);
        stage.area.show();
    }
    /// Opens a file in the stage's directory; null when it did not open.
    frmSnapshot* Launch(const char* name) {
        auto* form = new frmSnapshot;
        const QString title = QString::fromLatin1(name);
        if (!form->Launch(stage.Path(title), title)) {
            delete form;
            return nullptr;
        }
        return form;
    }
    /// Opens a new file "Test.SNA" of random bytes in this view.
    SnapshotProbe Open(std::size_t bytes, int width = 64, int lines = 40, int columns = 1, int mode = 0) {
        Settings.iDefaultWidth = static_cast<std::int16_t>(width);
        Settings.iDefaultLines = static_cast<std::int16_t>(lines);
        Settings.iDefaultColumns = static_cast<std::int16_t>(columns);
        Settings.iDefaultMode = static_cast<std::int16_t>(mode);
        stage.MakeFile(QStringLiteral("Test.SNA"), NoiseBytes(bytes));
        const SnapshotProbe probe{*Launch("Test.SNA")};
        probe.Drawn();
        return probe;
    }

    AreaStage stage;
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
