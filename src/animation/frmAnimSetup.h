#pragma once

#include "animation/rules/animation_record.h"
#include "animation/rules/setup_rules.h"
#include "controls/control_array.h"
#include "controls/limited_edit.h"
#include "controls/limited_text.h"

#include <QDialog>

#include <cstdint>
#include <string>

class QCheckBox;
class QComboBox;
class QLabel;
class QPushButton;

namespace lumrake {

class TabStrip;
struct ControlRow;

/// The settings that travel between animation windows, the setup dialog and the Animate command. Belongs to
/// no window and keeps its values between uses; zeros and blanks at the start of the run.
extern AnimationRecord GlobalAnim;
/// -1 when the user altered something in the dialog that ran last, else 0.
extern std::int16_t bAnimChanged;

/// The dialog over a record: shows it, tests what was typed and writes it back on Okay only. Made anew for every use.
class frmAnimSetup : public QDialog {
  public:
    /// Over GlobalAnim as a rule. The record outlives the dialog.
    explicit frmAnimSetup(AnimationRecord& settings);

    /// Runs the dialog modally. True in `bOkay` when the user confirmed; the record then holds the settings,
    /// else it is as it was. `sAnimFile` is the animation's own file, beside which a relative snapshot path
    /// is looked for first. `sSnapFile`, when it is not empty, is shown in place of the record's path: it need
    /// not fit there.
    void GetAnimSettings(bool& bOkay, const QString& sAnimFile = {}, const QString& sSnapFile = {});

  protected:
    void showEvent(QShowEvent* event) override;

  private:
    void CreateControls();
    void ConnectControls();
    std::string NotesForRecord(const QString& sNotes) const;
    void Form_Load();
    void Form_Activate();
    void GlobalToScreen();
    void ScreenToGlobal();
    void ShowSwatches(std::int16_t iAttribute);
    bool ValidateSettings();
    void SelectSnapshotFile();
    void SelectAttribute();

    void Control_GotFocus(const ControlRow& row);
    void txtAnimSetup_Change();
    void cboAnimSetup_Click();
    void cmdSetup_Click(int Index);
    void txtAnimSetup_LostFocus(int Index);
    void SSTab1_Click(int iPage);

    AnimationRecord& settings_;
    TabStrip* SSTab1 = nullptr;
    ControlArray<LimitedEdit, 8> txtAnimSetup{};
    LimitedText* txtNotes = nullptr; ///< txtAnimSetup(8)
    ControlArray<QComboBox, 2> cboAnimSetup{};
    ControlArray<QPushButton, 5> cmdSetup{}; ///< there is no cmdSetup(3)
    QCheckBox* chkAnimSetup = nullptr;
    ControlArray<QLabel, 2> lblColour{};

    bool bOkay = false;      ///< ended by the button Okay
    bool bActivated = false; ///< has been activated once: from then on changes count
    QString sAnimFile;
    /// The attribute between GlobalToScreen and ScreenToGlobal.
    std::int16_t iAttribute = 0;
    /// The record's texts as they are shown: it keeps the bytes of those that still stand.
    QString sShownSnapFile, sShownTitle, sShownNotes;
};

} // namespace lumrake
