#include "animation/frmAnimSetup.h"

#include "animation/snapshot_file.h"
#include "assistant/rules/help_numbers.h"
#include "controls/common_dialog.h"
#include "controls/control_table.h"
#include "controls/limited_edit.h"
#include "controls/limited_text.h"
#include "controls/message_box.h"
#include "controls/screen.h"
#include "controls/screen_colour.h"
#include "controls/tab_strip.h"
#include "controls/watch.h"
#include "disk/files.h"
#include "disk/texts.h"
#include "shell/shell.h"
#include "snapshot/frmColours.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QPushButton>
#include <QTextCursor>

#include <algorithm>

namespace lumrake {

AnimationRecord GlobalAnim;
std::int16_t bAnimChanged = 0;

namespace {

constexpr int kDialogWidth = 388, kDialogHeight = 279;
constexpr int kMostNotes = 500;               ///< characters
constexpr int kRepeatList = 0, kModeList = 1; ///< places in cboAnimSetup

constexpr unsigned kBoth = kOnMove | kOnFocus;
constexpr auto kText = New<LimitedEdit>, kList = New<QComboBox>, kButton = New<QPushButton>,
               kLabel = New<QLabel>;
constexpr auto kTexts = "txtAnimSetup", kLists = "cboAnimSetup", kButtons = "cmdSetup", kName = "";

// clang-format off
constexpr ControlRow kRows[] = {
    {kLabel,  kName,   kAlone, "0",  10,  10,  90, 22, "Snapshot file", "", "", kHelpNone, 0},
    {kText,   kTexts,  0,      "0", 104,  10, 222, 22, "Snapshot file", "", "SNAPFILE", kHelpSnapFile, kBoth, 100, "Enter the name of the snapshot file"},
    {kButton, kButtons, 2,     "0", 330,  10,  26, 22, "dialogs/openfile.svg", "", "OPENFILE", kHelpChooseFile, kBoth, 0, "Click '...' to select snapshot file"},
    {kLabel,  kName,   kAlone, "0",  10,  38,  90, 22, "Animation title", "", "", kHelpNone, 0},
    {kText,   kTexts,  1,      "0", 104,  38, 252, 22, "Animation title", "", "TITLE", kHelpTitle, kBoth, 30, "Enter a title for the animation"},
    {kLabel,  kName,   kAlone, "0",  10,  66,  90, 22, "Repeat type", "", "", kHelpNone, 0},
    {kList,   kLists,  0,      "0", 104,  66, 100, 22, "Repeat type", "", "REPEAT", kHelpRepeat, kBoth, 0, "Select the type of repeat"},
    {kLabel,  kName,   kAlone, "0", 216,  66,  36, 22, "Mode", "", "", kHelpNone, 0},
    {kList,   kLists,  1,      "0", 256,  66, 100, 22, "Mode", "", "MODE", kHelpMode, kBoth, 0, "Select the display mode"},
    {kLabel,  kName,   kAlone, "0",  10,  94,  90, 22, "Offset", "", "", kHelpNone, 0},
    {kText,   kTexts,  2,      "0", 104,  94,  82, 22, "Offset", "", "OFFSET", kHelpOffset, kBoth, 6, "Enter the file offset of the first frame"},
    {kLabel,  kName,   kAlone, "0", 216,  94,  66, 22, "Width", "", "", kHelpNone, 0},
    {kText,   kTexts,  3,      "0", 286,  94,  70, 22, "Width", "", "WIDTH", kHelpWidth, kBoth, 3, "Enter the width in pixels of each frame"},
    {kLabel,  kName,   kAlone, "0",  10, 122,  90, 22, "Lines", "", "", kHelpNone, 0},
    {kText,   kTexts,  4,      "0", 104, 122,  82, 22, "Lines", "", "LINES", kHelpLines, kBoth, 3, "Enter the number of lines in pixels of each frame"},
    {kLabel,  kName,   kAlone, "0", 216, 122,  66, 22, "Frames", "", "", kHelpNone, 0},
    {kText,   kTexts,  5,      "0", 286, 122,  70, 22, "Frames", "", "FRAMES", kHelpFrames, kBoth, 3, "Enter the number of frames in the animation"},
    {kLabel,  kName,   kAlone, "0",  10, 150,  90, 22, "Step", "", "", kHelpNone, 0},
    {kText,   kTexts,  6,      "0", 104, 150,  82, 22, "Step", "", "STEP", kHelpStep, kBoth, 5, "Enter the number of bytes between each frame"},
    {kLabel,  kName,   kAlone, "0", 216, 150,  66, 22, "Pause", "", "", kHelpNone, 0},
    {kText,   kTexts,  7,      "0", 286, 150,  70, 22, "Pause", "", "PAUSE", kHelpPause, kBoth, 5, "Enter the pause between each frame (milliseconds)"},
    {New<QCheckBox>, "chkAnimSetup", 0, "0", 104, 178, 100, 22, "Upside down", "", "", kHelpUpsideDown, kBoth},
    {kLabel,  kName,   kAlone, "0", 216, 178,  66, 22, "Attribute", "", "", kHelpNone, 0},
    {kLabel,  "lblColour", 0,  "0", 286, 178,  38, 22, "", "", "", kHelpNone, 0},
    {kLabel,  "lblColour", 1,  "0", 296, 183,  18, 12, "", "", "", kHelpNone, 0},
    {kButton, kButtons, 4,     "0", 330, 178,  26, 22, "dialogs/attribute.svg", "", "ATTRIBUTE", kHelpAttribute, kBoth},
    {kLabel,  kName,   kAlone, "1",  10,   8, 200, 18, "Animation notes", "", "", kHelpNone, 0},
    {New<LimitedText>, kTexts, 8, "1", 10, 30, 348, 170, "Animation notes", "", "NOTES", kHelpNotes, kOnFocus, kMostNotes, "Enter any notes you wish to make about the animation"},
    {kButton, kButtons, 1,     "",  212, 247,  80, 24, "&Cancel", "", "CANCEL", kHelpCancel, kBoth, 0, "Click 'CANCEL' to abort action"},
    {kButton, kButtons, 0,     "",  300, 247,  80, 24, "&Okay", "", "OKAY", kHelpOkay, kBoth, 0, "Click 'OKAY' to confirm information"},
};
// clang-format on

} // namespace

frmAnimSetup::frmAnimSetup(AnimationRecord& settings) : QDialog(DialogOwner()), settings_(settings) {
    setWindowTitle(QStringLiteral("Animation Setup"));
    setFixedSize(kDialogWidth, kDialogHeight);
    CreateControls();
    ConnectControls();
    Form_Load();
}

void frmAnimSetup::CreateControls() {
    SetHelp(this, kHelpNone);
    SSTab1 = new TabStrip({{QStringLiteral("Settings"), 1, 51, kHelpSettingsTab, 51},
                           {QStringLiteral("Notes"), 56, 39, kHelpNotesTab, 39}},
                          this);
    SSTab1->setObjectName(QStringLiteral("SSTab1"));
    SSTab1->setGeometry(8, 8, kDialogWidth - 16, 231);
    lumrake::CreateControls(*this, SSTab1, kRows);
    Bind(*this, kTexts, txtAnimSetup);
    txtNotes = Find<LimitedText>(*this, kTexts, 8);
    Bind(*this, kLists, cboAnimSetup);
    Bind(*this, kButtons, cmdSetup);
    chkAnimSetup = Find<QCheckBox>(*this, "chkAnimSetup", 0);
    Bind(*this, "lblColour", lblColour);
    for (QLabel* swatch : lblColour) {
        swatch->setAutoFillBackground(true);
    }
    for (QPushButton* button : cmdSetup) {
        if (button != nullptr) {
            button->setAutoDefault(false);
        }
    }
    cmdSetup[4]->setAccessibleName(QStringLiteral("Attribute"));
    txtAnimSetup[kTitleField]->SetFit(
        [](const QString& sTitle) { return decltype(settings_.sTitle)::Fits(sTitle.toStdString()); });
    SetHelp(txtNotes->viewport(), kHelpNotes);
    txtNotes->setTabChangesFocus(true);
    txtNotes->SetLimit(kMostNotes, [this](const QString& sNotes) {
        return decltype(settings_.sNotes)::Fits(NotesForRecord(sNotes));
    });
}

void frmAnimSetup::ConnectControls() {
    for (const ControlRow& row : kRows) {
        if (row.speaksOn != 0) {
            Watch(Find<QWidget>(*this, row.array, row.index)).GotFocus = [this, &row] {
                Control_GotFocus(row);
            };
        }
    }
    for (int Index = 0; Index < static_cast<int>(txtAnimSetup.size()); ++Index) {
        connect(txtAnimSetup[Index], &QLineEdit::textChanged, this, &frmAnimSetup::txtAnimSetup_Change);
        Watch(txtAnimSetup[Index]).LostFocus = [this, Index] { txtAnimSetup_LostFocus(Index); };
    }
    connect(txtNotes, &QPlainTextEdit::textChanged, this, &frmAnimSetup::txtAnimSetup_Change);
    for (QComboBox* list : cboAnimSetup) {
        connect(list, &QComboBox::activated, this, &frmAnimSetup::cboAnimSetup_Click);
        connect(list, &QComboBox::currentIndexChanged, this, &frmAnimSetup::cboAnimSetup_Click);
    }
    connect(chkAnimSetup, &QCheckBox::toggled, this, [] { bAnimChanged = -1; });
    Connect(this, cmdSetup, &QPushButton::clicked, &frmAnimSetup::cmdSetup_Click);
    SSTab1->Click = [this](int iPage) { SSTab1_Click(iPage); };
}

std::string frmAnimSetup::NotesForRecord(const QString& sNotes) const {
    return NotesInRecord(sNotes.toStdString(), settings_.sNotes.Trimmed());
}

void frmAnimSetup::txtAnimSetup_Change() {
    bAnimChanged = -1;
}

void frmAnimSetup::cboAnimSetup_Click() {
    bAnimChanged = -1;
}

void frmAnimSetup::Form_Load() {
    CentreOnScreen(*this);
    cboAnimSetup[kRepeatList]->addItems(
        {QStringLiteral("Once only"), QStringLiteral("Continuous"), QStringLiteral("Ping-Pong")});
    for (const std::int16_t iMode : kListedModes) {
        cboAnimSetup[kModeList]->addItem(Latin(lmk::RowOf(iMode).Caption));
    }
    bActivated = false;
}

void frmAnimSetup::GetAnimSettings(bool& bResult, const QString& sOwnFile, const QString& sSnapFile) {
    sAnimFile = sOwnFile;
    GlobalToScreen();
    if (!sSnapFile.isEmpty()) {
        txtAnimSetup[kSnapFileField]->ShowWhole(sSnapFile);
    }
    exec();
    Shell().ShowCaption();
    bResult = bOkay;
}

void frmAnimSetup::showEvent(QShowEvent* event) {
    QDialog::showEvent(event);
    if (!event->spontaneous()) {
        Form_Activate();
    }
}

void frmAnimSetup::Form_Activate() {
    SSTab1->SetTab(0);
    if (!bActivated) {
        // The window's first focus comes with the window and would not be told otherwise.
        txtAnimSetup[kSnapFileField]->setFocus();
        Watch(txtAnimSetup[kSnapFileField]).TellFocus();
        bAnimChanged = 0;
        bActivated = true;
    }
}

void frmAnimSetup::GlobalToScreen() {
    txtAnimSetup[kSnapFileField]->ShowWhole(QString::fromStdString(settings_.sSnapFile.Trimmed()));
    txtAnimSetup[kTitleField]->ShowWhole(QString::fromStdString(settings_.sTitle.Trimmed()));
    txtNotes->setPlainText(QString::fromStdString(NotesOnScreen(settings_.sNotes.Trimmed())));
    sShownSnapFile = txtAnimSetup[kSnapFileField]->text();
    sShownTitle = txtAnimSetup[kTitleField]->text();
    sShownNotes = txtNotes->Text();
    cboAnimSetup[kRepeatList]->setCurrentIndex(settings_.iRepeat);
    for (const SetupNumber& number : kSetupNumbers) {
        txtAnimSetup[number.field]->ShowWhole(QString::number(NumberAt(settings_, number.place)));
    }
    ShowSwatches(settings_.byAttribute);
    chkAnimSetup->setChecked(settings_.iUpsideDown != 0);
    cboAnimSetup[kModeList]->setCurrentIndex(ModeIndex(settings_.iMode));
    bOkay = false;
}

void frmAnimSetup::ScreenToGlobal() {
    const auto text = [this](std::size_t index) { return txtAnimSetup[index]->text().toStdString(); };
    if (txtAnimSetup[kSnapFileField]->text() != sShownSnapFile) {
        settings_.sSnapFile.Set(TrimBlanks(text(kSnapFileField)));
    }
    if (txtAnimSetup[kTitleField]->text() != sShownTitle) {
        settings_.sTitle.Set(text(kTitleField));
    }
    if (txtNotes->Text() != sShownNotes) {
        settings_.sNotes.Set(NotesForRecord(txtNotes->Text()));
    }
    settings_.iRepeat = static_cast<std::int16_t>(cboAnimSetup[kRepeatList]->currentIndex());
    for (const SetupNumber& number : kSetupNumbers) {
        SetNumberAt(settings_, number.place, text(number.field));
    }
    settings_.byAttribute = static_cast<std::uint8_t>(iAttribute);
    settings_.iUpsideDown = chkAnimSetup->isChecked() ? std::int16_t{1} : std::int16_t{0};
    if (const int mode = cboAnimSetup[kModeList]->currentIndex(); mode >= 0) {
        settings_.iMode = kListedModes[static_cast<std::size_t>(mode)];
    }
}

void frmAnimSetup::ShowSwatches(std::int16_t iNewAttribute) {
    iAttribute = iNewAttribute;
    const char* const kSides[] = {"BACK", "FORE"};
    for (std::size_t i = 0; i < lblColour.size(); ++i) {
        QPalette colours = lblColour[i]->palette();
        colours.setColor(QPalette::Window, ScreenColour(AttributeColour(iAttribute, kSides[i])));
        lblColour[i]->setPalette(colours);
    }
}

void frmAnimSetup::txtAnimSetup_LostFocus(int Index) {
    if (Index == kWidthField || Index == kLinesField) {
        const int mode = std::max(0, cboAnimSetup[kModeList]->currentIndex());
        txtAnimSetup[kStepField]->ShowWhole(QString::fromStdString(ProposedStep(
            txtAnimSetup[kWidthField]->text().toStdString(), txtAnimSetup[kLinesField]->text().toStdString(),
            kListedModes[static_cast<std::size_t>(mode)])));
    }
}

void frmAnimSetup::Control_GotFocus(const ControlRow& row) {
    if (*row.status != '\0') {
        Shell().SetStatusText(Latin(row.status));
    }
    if (row.make == kText) {
        LimitedEdit* text = txtAnimSetup[row.index];
        text->setSelection(0, static_cast<int>(TrimBlanks(text->text()).size()));
    } else if (row.make == New<LimitedText>) {
        QTextCursor caret = txtNotes->textCursor();
        caret.setPosition(static_cast<int>(TrimBlanks(txtNotes->Text()).size()));
        txtNotes->setTextCursor(caret);
    }
}

bool frmAnimSetup::ValidateSettings() {
    SetupTexts texts;
    for (std::size_t field = 0; field < txtAnimSetup.size(); ++field) {
        texts.fields[field] = txtAnimSetup[field]->text().toStdString();
    }
    texts.bSnapFileCut = txtAnimSetup[kSnapFileField]->IsCut();
    texts.iRepeatIndex = cboAnimSetup[kRepeatList]->currentIndex();
    const std::optional<QString> sFound =
        FindAnimationSnapshot(txtAnimSetup[kSnapFileField]->text(), sAnimFile);
    const std::optional<SetupFault> fault =
        lumrake::ValidateSettings(texts, sFound ? FileLength(*sFound) : std::nullopt);
    if (!fault) {
        return true;
    }
    MsgBox(QString::fromStdString(fault->sMessage), BoxButtons::Ok, BoxIcon::Exclamation,
           QStringLiteral("Animation Setup"));
    SSTab1->SetTab(0); // all tested fields lie there
    QWidget* const field = fault->field == kRepeatField ? static_cast<QWidget*>(cboAnimSetup[kRepeatList])
                                                        : txtAnimSetup[fault->field];
    field->setFocus();
    if (fault->field != kRepeatField && !field->hasFocus()) {
        // The focus comes with the window, when the box has gone, and is not told then.
        Watch(field).TellFocus();
    }
    return false;
}

void frmAnimSetup::cmdSetup_Click(int Index) {
    // A button pressed by its access key takes the focus as one that was clicked: the field left behind gets
    // its say first.
    cmdSetup[Index]->setFocus();
    const QString tag = TagOf(cmdSetup[Index]);
    if (tag == QLatin1String("OKAY")) {
        if (ValidateSettings()) {
            ScreenToGlobal();
            bOkay = true;
            accept();
        }
    } else if (tag == QLatin1String("CANCEL")) {
        bAnimChanged = 0;
        reject();
    } else if (tag == QLatin1String("OPENFILE")) {
        SelectSnapshotFile();
    } else if (tag == QLatin1String("ATTRIBUTE")) {
        SelectAttribute();
    }
}

void frmAnimSetup::SelectSnapshotFile() {
    const QString sFile = AskOpenFileName(QStringLiteral("Open snapshot file..."),
                                          QStringLiteral("Snapshot files (*.SNA)|*.SNA|All files (*.*)|*.*"));
    if (!sFile.isEmpty()) {
        txtAnimSetup[kSnapFileField]->ShowWhole(sFile);
    }
}

void frmAnimSetup::SelectAttribute() {
    const std::int16_t iChosen = frmColours().GetColour(iAttribute);
    Form_Activate(); // the dialog comes back to the front from under the picker
    if (iChosen < 0 || iChosen == iAttribute) {
        return;
    }
    ShowSwatches(iChosen);
    bAnimChanged = -1;
}

void frmAnimSetup::SSTab1_Click(int iPage) {
    if (iPage == 0) {
        txtAnimSetup[kSnapFileField]->setFocus();
    } else {
        txtNotes->setFocus();
    }
}

} // namespace lumrake
