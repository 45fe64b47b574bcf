#pragma once

#include "platform/spin_bar.h"
#include "platform/value_box.h"
#include "snapshot/frmSnapshot.h"
#include "support/forms_support.h"

#include <QApplication>
#include <QMdiArea>
#include <QTest>

#include <span>

namespace lumrake {

/// Opens the fields and controls of a snapshot window to tests.
struct SnapshotProbe {
    frmSnapshot& form;

    ViewNumbers& View() const { return form.view; }
    MemoryBlock& Memory() const { return form.byMemory; }
    std::int16_t& Changed() const { return form.bChanged; }
    PictureBox& Picture() const { return *form.picImage; }
    auto& Net() const { return form.shpNet; }

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

} // namespace testing
} // namespace lumrake
