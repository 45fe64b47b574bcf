#pragma once

#include "controls/control_array.h"

#include <QDialog>

#include <cstdint>

class QCheckBox;
class QLabel;
class QPushButton;

namespace lumrake {

class TabStrip;

/// The attribute picker: an ink, a paper and the bright flag, with a sample of the two colours together. It
/// knows no document: it is handed an attribute and gives one back.
class frmColours : public QDialog {
  public:
    explicit frmColours(QWidget* parent = nullptr);

    /// Shows the dialog and waits for its end. `iColour` is the attribute to start from, of which bits 0 to 6
    /// count, or -1 for none: white ink on black paper. Gives the attribute chosen, 0 to 127, or -1 when the
    /// user cancelled or closed the dialog.
    std::int16_t GetColour(std::int16_t iColour);

  protected:
    void keyPressEvent(QKeyEvent* event) override;
    void showEvent(QShowEvent* event) override;

  private:
    friend struct ColoursProbe; // lets tests read the fields and controls

    void CreateControls();
    /// A screen reader hears which colours are taken, and takes them by presses of its own.
    void Speak(int Index);
    void ShowColours(std::int16_t iBright);
    void ShowSample();
    void chkBright_Click();
    void lblColour_MouseDown(int Index, std::int16_t Button);
    void cmdColour_Click(int Index);

    std::int16_t iInk = 7;     ///< 0 to 7
    std::int16_t iPaper = 0;   ///< 0 to 7
    std::int16_t iResult = -1; ///< what GetColour returns

    TabStrip* SSTab1 = nullptr;
    ControlArray<QLabel, 9> lblColour{}; ///< 0 to 7 the swatches, 8 the sample
    QCheckBox* chkBright = nullptr;
    ControlArray<QPushButton, 2> cmdColour{};
};

} // namespace lumrake
