#pragma once

#include "controls/panel_bar.h"
#include "controls/spin_bar.h"
#include "controls/value_box.h"
#include "snapshot/frmClip.h"
#include "snapshot/frmSnapshot.h"
#include "support/forms_support.h"

#include <QApplication>
#include <QMdiArea>
#include <QPushButton>

namespace lumrake {

/// Opens the fields and controls of a snapshot window to tests.
struct SnapshotProbe {
    frmSnapshot& form;

    ViewNumbers& View() const { return form.view; }
    const MemoryBlock& Memory() const { return form.byMemory; }
    std::vector<std::uint8_t> Bytes() const { return {Memory().Bytes().begin(), Memory().Bytes().end()}; }
    /// For bytes that come from elsewhere: the document does not hear of it.
    std::uint8_t* Data() const { return const_cast<std::uint8_t*>(Memory().data()); }
    void SetChanged(bool changed = true) const {
        changed ? static_cast<void>(form.document.WritePixel(std::nullopt, 0)) : form.document.Saved();
    }
    bool TakeChanged() const {
        const bool changed = Changed() != 0;
        SetChanged(false);
        return changed;
    }
    KnownFile& File() const { return form.knownFile; }
    std::int16_t Changed() const { return form.document.Changed(); }
    PictureBox& Picture() const { return *form.picImage; }
    auto& Net() const { return form.shpNet; }
    ImageBox& Clip() const { return *form.imgClip; }
    NetRect ClipPlace() const { return {Clip().x(), Clip().y(), Clip().width(), Clip().height()}; }
    static const auto& Placing() { return frmSnapshot::placing; }

    QWidget& Container() const { return *form.picContainer; }
    ValueBox& Box(std::size_t index) const { return *form.txtValue[index]; }
    SpinBar& Spin(std::size_t index) const { return *form.scrValue[index]; }
    SpinBar& Bar() const { return *form.scrAddr; }
    QWidget& Track() const { return *form.txtScroll; }
    QPushButton& Thumb() const { return *form.cmdScroll; }
    QPushButton& Options() const { return *form.cmdOptions; }
    PanelBar& Status() const { return *form.sbrSnapshot; }
    QWidget& ColourOf(int index) const {
        const auto all = form.findChildren<QWidget*>();
        return **std::ranges::find(all, QLatin1String(index == 0 ? "Ink" : "Paper"),
                                   &QWidget::accessibleName);
    }

    std::string Texts() const {
        QStringList texts;
        for (const ValueBox* box : form.txtValue) {
            texts << box->text();
        }
        return texts.join(QLatin1Char(' ')).toStdString();
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

    static MouseArgs Args(int button, float X, float Y) { return {static_cast<std::int16_t>(button), X, Y}; }
};

namespace testing {

/// Snapshot windows in the area of a main window that is only there to hold them; they leave the clipboard empty.
class SnapshotStage : public Stage {
  public:
    SnapshotStage() {
        area.resize(700, 600);
        area.show();
    }
    ~SnapshotStage() override { frmClip::Instance().SetData({}); }
    void AdoptChild(DocumentForm* child) override { area.addSubWindow(child); }

    /// Opens a file in the stage's directory; null when it did not open.
    frmSnapshot* Launch(const QString& name) const {
        auto form = std::make_unique<frmSnapshot>();
        return form->Launch(Path(name), name) ? form.release() : nullptr;
    }

    QMdiArea area;
};

class SnapshotTest : public ::testing::Test, public SnapshotStage {
  protected:
    /// Opens a new file "Test.SNA" of these bytes, or of random ones, in this view.
    SnapshotProbe Open(const std::vector<std::uint8_t>& bytes, std::int16_t width = 64,
                       std::int16_t lines = 40, std::int16_t columns = 1) {
        Settings.iDefaultWidth = width;
        Settings.iDefaultLines = lines;
        Settings.iDefaultColumns = columns;
        MakeFile(QStringLiteral("Test.SNA"), bytes);
        return {*Launch(QStringLiteral("Test.SNA"))};
    }
    SnapshotProbe Open(std::size_t bytes, std::int16_t width = 64, std::int16_t lines = 40,
                       std::int16_t columns = 1) {
        return Open(NoiseBytes(bytes), width, lines, columns);
    }
};

} // namespace testing
} // namespace lumrake
