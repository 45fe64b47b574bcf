#include "animation/frmAnimSetup.h"

#include "animation/snapshot_file.h"
#include "base/numbers.h"
#include "controls/common_dialog.h"
#include "controls/message_box.h"
#include "controls/pictures.h"
#include "controls/screen.h"
#include "controls/screen_colour.h"
#include "controls/tab_strip.h"
#include "disk/files.h"
#include "disk/texts.h"
#include "shell/shell.h"
#include "snapshot/frmColours.h"

#include <QLabel>
#include <QTextCursor>

#include <algorithm>
#include <string_view>

namespace lumrake {

AnimationRecord GlobalAnim;
std::int16_t bAnimChanged = 0;

enum class SetupKind { Text, Notes, List, Check, Button };

/// One control of the dialog, in the order of the Tab key.
struct SetupRow {
    SetupKind kind;
    int index;           ///< in its control array
    const char* tag;     ///< what the handlers know it by
    const char* caption; ///< label before it, or its own face; a name ending in .svg is a drawing
    int maxTyped;        ///< longest text that can be typed; 0 for no text
    int helpKey;
    const char* status; ///< text of the status bar while it has the focus; empty leaves the bar alone
    int page;           ///< of SSTab1, or -1 for below it
    int labelLeft, left, top, width, height;
};

namespace {

constexpr int kDialogWidth = 388, kDialogHeight = 279;

/// Places in txtAnimSetup.
enum TextField : std::size_t { kSnapFile, kTitle, kOffset, kWidth, kLines, kFrames, kStep, kPause };
enum ListField : std::size_t { kRepeat, kMode }; ///< places in cboAnimSetup

// clang-format off
constexpr SetupRow kRows[] = {
//   kind               ix  tag          caption                  max key status                                                page label left top width height
    {SetupKind::Text,   0, "SNAPFILE",  "Snapshot file",          100, 48, "Enter the name of the snapshot file",                   0,  10, 104,  10, 222, 22},
    {SetupKind::Button, 2, "OPENFILE",  "dialogs/openfile.svg",     0, 49, "Click '...' to select snapshot file",                   0,   0, 330,  10,  26, 22},
    {SetupKind::Text,   1, "TITLE",     "Animation title",         30, 50, "Enter a title for the animation",                       0,  10, 104,  38, 252, 22},
    {SetupKind::List,   0, "REPEAT",    "Repeat type",              0, 51, "Select the type of repeat",                             0,  10, 104,  66, 100, 22},
    {SetupKind::List,   1, "MODE",      "Mode",                     0, 52, "Select the display mode",                               0, 216, 256,  66, 100, 22},
    {SetupKind::Text,   2, "OFFSET",    "Offset",                   6, 53, "Enter the file offset of the first frame",              0,  10, 104,  94,  82, 22},
    {SetupKind::Text,   3, "WIDTH",     "Width",                    3, 54, "Enter the width in pixels of each frame",               0, 216, 286,  94,  70, 22},
    {SetupKind::Text,   4, "LINES",     "Lines",                    3, 55, "Enter the number of lines in pixels of each frame",     0,  10, 104, 122,  82, 22},
    {SetupKind::Text,   5, "FRAMES",    "Frames",                   3, 56, "Enter the number of frames in the animation",           0, 216, 286, 122,  70, 22},
    {SetupKind::Text,   6, "STEP",      "Step",                     5, 57, "Enter the number of bytes between each frame",          0,  10, 104, 150,  82, 22},
    {SetupKind::Text,   7, "PAUSE",     "Pause",                    5, 58, "Enter the pause between each frame (milliseconds)",     0, 216, 286, 150,  70, 22},
    {SetupKind::Check,  0, "",          "Upside down",              0, 59, "",                                                      0,   0, 104, 178, 100, 22},
    {SetupKind::Button, 4, "ATTRIBUTE", "dialogs/attribute.svg",    0, 60, "",                                                      0,   0, 330, 178,  26, 22},
    {SetupKind::Notes,  8, "NOTES",     "Animation notes",        500, 63, "Enter any notes you wish to make about the animation",  1,   0,  10,  30, 348, 170},
    {SetupKind::Button, 1, "CANCEL",    "&Cancel",                  0, 62, "Click 'CANCEL' to abort action",                       -1,   0, 212, 247,  80, 24},
    {SetupKind::Button, 0, "OKAY",      "&Okay",                    0, 61, "Click 'OKAY' to confirm information",                  -1,   0, 300, 247,  80, 24},
};
// clang-format on

const SetupRow& TextRow(int index) {
    return *std::find_if(std::begin(kRows), std::end(kRows), [index](const SetupRow& row) {
        return row.kind == SetupKind::Text && row.index == index;
    });
}

/// What a screen reader calls the control.
QString SpokenName(const SetupRow& row) {
    if (std::string_view(row.caption).ends_with(".svg")) {
        return Latin(*row.status == '\0' ? "Attribute" : row.status);
    }
    return Latin(row.caption).remove(QLatin1Char('&'));
}

QString Number(std::int32_t value) {
    return QString::number(value);
}

std::string NotesForRecord(const QString& sNotes) {
    return NotesInRecord(sNotes.toStdString(), GlobalAnim.sNotes.Trimmed());
}

QLabel* AddLabel(QWidget* parent, const QString& text, const QRect& place) {
    auto* label = new QLabel(text, parent);
    label->setGeometry(place);
    label->setMouseTracking(true); // moves go on to the page and the strip, which hand the prompt 0
    return label;
}

} // namespace

frmAnimSetup::frmAnimSetup() : QDialog(DialogOwner()) {
    setWindowTitle(QStringLiteral("Animation Setup"));
    setWindowFlags(Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint | Qt::WindowSystemMenuHint |
                   Qt::WindowCloseButtonHint);
    setMouseTracking(true);
    setFixedSize(kDialogWidth, kDialogHeight);
    CreateControls();
    Form_Load();
}

void frmAnimSetup::CreateControls() {
    SSTab1 = new TabStrip({{QStringLiteral("Settings"), 1, 51}, {QStringLiteral("Notes"), 56, 39}}, this);
    SSTab1->setObjectName(QStringLiteral("SSTab1"));
    SSTab1->setGeometry(8, 8, kDialogWidth - 16, 231);
    SSTab1->Click = [this](int iPage) { SSTab1_Click(iPage); };
    SSTab1->MouseMove = [this](int X, int Y) { SSTab1_MouseMove(X, Y); };

    QWidget* settings = SSTab1->Page(0);
    AddLabel(settings, QStringLiteral("Attribute"), {216, 178, 66, 22});
    AddLabel(SSTab1->Page(1), QStringLiteral("Animation notes"), {10, 8, 200, 18});
    for (std::size_t i = 0; i < lblColour.size(); ++i) {
        lblColour[i] =
            AddLabel(settings, QString(), i == 0 ? QRect(286, 178, 38, 22) : QRect(296, 183, 18, 12));
        lblColour[i]->setObjectName(QStringLiteral("lblColour(%1)").arg(i));
        lblColour[i]->setAutoFillBackground(true);
    }
    QWidget* before = nullptr;
    for (const SetupRow& row : kRows) {
        QWidget* parent = row.page < 0 ? static_cast<QWidget*>(this) : SSTab1->Page(row.page);
        QWidget* control = AddControl(row, parent);
        control->setGeometry(row.left, row.top, row.width, row.height);
        if (row.labelLeft > 0) {
            AddLabel(parent, Latin(row.caption),
                     {row.labelLeft, row.top, row.left - row.labelLeft - 4, row.height});
        }
        if (before != nullptr) {
            setTabOrder(before, control);
        }
        before = control;
    }
    txtAnimSetup[kTitle]->SetFit(
        [](const QString& sTitle) { return decltype(GlobalAnim.sTitle)::Fits(sTitle.toStdString()); });
}

QWidget* frmAnimSetup::AddControl(const SetupRow& row, QWidget* parent) {
    const auto place = static_cast<std::size_t>(row.index);
    const int Index = row.index;
    switch (row.kind) {
    case SetupKind::Text: {
        auto* text = new LimitedEdit(parent);
        text->SetLimit(row.maxTyped);
        Watch(text, row);
        connect(text, &QLineEdit::textChanged, this, [] { bAnimChanged = -1; });
        text->LostFocus = [this, Index] { txtAnimSetup_LostFocus(Index); };
        return txtAnimSetup[place] = text;
    }
    case SetupKind::Notes:
        txtNotes = new LimitedText(parent);
        Watch(txtNotes, row);
        txtNotes->viewport()->setMouseTracking(true);
        txtNotes->setTabChangesFocus(true);
        txtNotes->SetLimit(row.maxTyped, [](const QString& sNotes) {
            return decltype(GlobalAnim.sNotes)::Fits(NotesForRecord(sNotes));
        });
        connect(txtNotes, &QPlainTextEdit::textChanged, this, [] { bAnimChanged = -1; });
        return txtNotes;
    case SetupKind::List: {
        auto* list = new Watched<QComboBox>(parent);
        Watch(list, row);
        connect(list, &QComboBox::activated, this, [] { bAnimChanged = -1; });
        connect(list, &QComboBox::currentIndexChanged, this, [] { bAnimChanged = -1; });
        return cboAnimSetup[place] = list;
    }
    case SetupKind::Check:
        chkAnimSetup = new Watched<QCheckBox>(Latin(row.caption), parent);
        Watch(chkAnimSetup, row);
        connect(chkAnimSetup, &QCheckBox::toggled, this, [] { bAnimChanged = -1; });
        return chkAnimSetup;
    case SetupKind::Button: {
        auto* button = new Watched<QPushButton>(parent);
        Watch(button, row);
        button->setAutoDefault(false);
        if (std::string_view(row.caption).ends_with(".svg")) {
            button->setIcon(LoadIcon(Latin(row.caption), QSize(16, 16)));
            button->setIconSize(QSize(16, 16));
        } else {
            button->setText(Latin(row.caption));
        }
        connect(button, &QPushButton::clicked, this, [this, Index] { cmdSetup_Click(Index); });
        return cmdSetup[place] = button;
    }
    }
    return nullptr;
}

template <class Control> void frmAnimSetup::Watch(Control* control, const SetupRow& row) {
    constexpr const char* kArrays[] = {"txtAnimSetup", "txtAnimSetup", "cboAnimSetup", "chkAnimSetup",
                                       "cmdSetup"};
    control->setObjectName(
        QStringLiteral("%1(%2)").arg(Latin(kArrays[static_cast<int>(row.kind)])).arg(row.index));
    control->setAccessibleName(SpokenName(row));
    control->GotFocus = [this, &row] { Control_GotFocus(row); };
    control->MouseMove = [&row] { ShowPrompt(row.helpKey); };
}

void frmAnimSetup::Form_Load() {
    CentreOnScreen(*this);
    cboAnimSetup[kRepeat]->addItems(
        {QStringLiteral("Once only"), QStringLiteral("Continuous"), QStringLiteral("Ping-Pong")});
    cboAnimSetup[kMode]->addItems(
        {QStringLiteral("Graphics"), QStringLiteral("Line mask"), QStringLiteral("Byte mask")});
    bActivated = false;
}

void frmAnimSetup::GetAnimSettings(bool& bResult, const QString& sOwnFile, const QString& sSnapFile) {
    sAnimFile = sOwnFile;
    GlobalToScreen();
    if (!sSnapFile.isEmpty()) {
        txtAnimSetup[kSnapFile]->ShowWhole(sSnapFile);
    }
    exec();
    ShowCaption();
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
        txtAnimSetup[kSnapFile]->setFocus();
        Control_GotFocus(TextRow(0));
        bAnimChanged = 0;
        bActivated = true;
    }
}

void frmAnimSetup::GlobalToScreen() {
    txtAnimSetup[kSnapFile]->ShowWhole(QString::fromStdString(GlobalAnim.sSnapFile.Trimmed()));
    txtAnimSetup[kTitle]->ShowWhole(QString::fromStdString(GlobalAnim.sTitle.Trimmed()));
    txtNotes->setPlainText(QString::fromStdString(NotesOnScreen(GlobalAnim.sNotes.Trimmed())));
    sShownSnapFile = txtAnimSetup[kSnapFile]->text();
    sShownTitle = txtAnimSetup[kTitle]->text();
    sShownNotes = txtNotes->Text();
    cboAnimSetup[kRepeat]->setCurrentIndex(GlobalAnim.iRepeat);
    txtAnimSetup[kOffset]->ShowWhole(Number(GlobalAnim.lOffset));
    txtAnimSetup[kWidth]->ShowWhole(Number(GlobalAnim.iWidth));
    txtAnimSetup[kLines]->ShowWhole(Number(GlobalAnim.iLines));
    txtAnimSetup[kFrames]->ShowWhole(Number(GlobalAnim.iFrames));
    txtAnimSetup[kStep]->ShowWhole(Number(GlobalAnim.lStep));
    txtAnimSetup[kPause]->ShowWhole(Number(GlobalAnim.iPause));
    ShowSwatches(GlobalAnim.byAttribute);
    chkAnimSetup->setChecked(GlobalAnim.iUpsideDown != 0);
    cboAnimSetup[kMode]->setCurrentIndex(ModeIndex(GlobalAnim.iMode));
    bOkay = false;
}

void frmAnimSetup::ScreenToGlobal() {
    const auto text = [this](std::size_t index) { return txtAnimSetup[index]->text().toStdString(); };
    if (txtAnimSetup[kSnapFile]->text() != sShownSnapFile) {
        GlobalAnim.sSnapFile.Set(TrimBlanks(text(kSnapFile)));
    }
    if (txtAnimSetup[kTitle]->text() != sShownTitle) {
        GlobalAnim.sTitle.Set(text(kTitle));
    }
    if (txtNotes->Text() != sShownNotes) {
        GlobalAnim.sNotes.Set(NotesForRecord(txtNotes->Text()));
    }
    GlobalAnim.iRepeat = static_cast<std::int16_t>(cboAnimSetup[kRepeat]->currentIndex());
    GlobalAnim.lOffset = WholeNumberFromText<std::int32_t>(text(kOffset));
    GlobalAnim.iWidth = WholeNumberFromText<std::int16_t>(text(kWidth));
    GlobalAnim.iLines = WholeNumberFromText<std::int16_t>(text(kLines));
    GlobalAnim.iFrames = WholeNumberFromText<std::int16_t>(text(kFrames));
    GlobalAnim.lStep = WholeNumberFromText<std::int32_t>(text(kStep));
    GlobalAnim.iPause = WholeNumberFromText<std::int16_t>(text(kPause));
    GlobalAnim.byAttribute = static_cast<std::uint8_t>(iAttribute);
    GlobalAnim.iUpsideDown = chkAnimSetup->isChecked() ? std::int16_t{1} : std::int16_t{0};
    if (const int mode = cboAnimSetup[kMode]->currentIndex(); mode >= 0) {
        GlobalAnim.iMode = kListedModes[static_cast<std::size_t>(mode)];
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
    const std::string_view tag = TextRow(Index).tag;
    if (tag == "WIDTH" || tag == "LINES") {
        const int mode = std::max(0, cboAnimSetup[kMode]->currentIndex());
        txtAnimSetup[kStep]->ShowWhole(QString::fromStdString(ProposedStep(
            txtAnimSetup[kWidth]->text().toStdString(), txtAnimSetup[kLines]->text().toStdString(),
            kListedModes[static_cast<std::size_t>(mode)])));
    }
}

void frmAnimSetup::Control_GotFocus(const SetupRow& row) {
    if (*row.status != '\0') {
        SetStatusText(Latin(row.status));
    }
    ShowPrompt(row.helpKey);
    if (row.kind == SetupKind::Text) {
        LimitedEdit* text = txtAnimSetup[static_cast<std::size_t>(row.index)];
        text->setSelection(0, static_cast<int>(TrimBlanks(text->text()).size()));
    } else if (row.kind == SetupKind::Notes) {
        QTextCursor caret = txtNotes->textCursor();
        caret.setPosition(static_cast<int>(TrimBlanks(txtNotes->Text()).size()));
        txtNotes->setTextCursor(caret);
    }
}

bool frmAnimSetup::ValidateSettings() {
    const auto text = [this](std::size_t index) { return txtAnimSetup[index]->text().toStdString(); };
    SetupTexts texts;
    texts.sSnapFile = text(kSnapFile);
    texts.bSnapFileCut = txtAnimSetup[kSnapFile]->IsCut();
    texts.sOffset = text(kOffset);
    texts.sWidth = text(kWidth);
    texts.sLines = text(kLines);
    texts.sFrames = text(kFrames);
    texts.sStep = text(kStep);
    texts.sPause = text(kPause);
    texts.iRepeatIndex = cboAnimSetup[kRepeat]->currentIndex();
    const std::optional<QString> sFound = FindAnimationSnapshot(txtAnimSetup[kSnapFile]->text(), sAnimFile);
    const std::optional<SetupFault> fault =
        lumrake::ValidateSettings(texts, sFound ? FileLength(*sFound) : std::nullopt);
    if (!fault) {
        return true;
    }
    MsgBox(QString::fromStdString(fault->sMessage), BoxButtons::Ok, BoxIcon::Exclamation,
           QStringLiteral("Animation Setup"));
    SSTab1->SetTab(0); // all tested fields lie there
    QWidget* const field = ControlOf(fault->field);
    field->setFocus();
    const auto edit = std::find(txtAnimSetup.begin(), txtAnimSetup.end(), field);
    if (edit != txtAnimSetup.end() && !field->hasFocus()) {
        (*edit)->GotFocus(); // the focus comes with the window, when the box has gone, and is not told then
    }
    return false;
}

QWidget* frmAnimSetup::ControlOf(SetupField field) const {
    switch (field) {
    case SetupField::SnapFile: return txtAnimSetup[kSnapFile];
    case SetupField::Offset: return txtAnimSetup[kOffset];
    case SetupField::Width: return txtAnimSetup[kWidth];
    case SetupField::Lines: return txtAnimSetup[kLines];
    case SetupField::Frames: return txtAnimSetup[kFrames];
    case SetupField::Step: return txtAnimSetup[kStep];
    case SetupField::Repeat: return cboAnimSetup[kRepeat];
    case SetupField::Pause: return txtAnimSetup[kPause];
    }
    return txtAnimSetup[kSnapFile];
}

void frmAnimSetup::cmdSetup_Click(int Index) {
    // A button pressed by its access key takes the focus as one that was clicked: the field left behind gets
    // its say first.
    cmdSetup[static_cast<std::size_t>(Index)]->setFocus();
    const SetupRow& row = *std::find_if(std::begin(kRows), std::end(kRows), [Index](const SetupRow& each) {
        return each.kind == SetupKind::Button && each.index == Index;
    });
    const std::string_view tag = row.tag;
    if (tag == "OKAY") {
        if (ValidateSettings()) {
            ScreenToGlobal();
            bOkay = true;
            accept();
        }
    } else if (tag == "CANCEL") {
        bAnimChanged = 0;
        reject();
    } else if (tag == "OPENFILE") {
        SelectSnapshotFile();
    } else if (tag == "ATTRIBUTE") {
        SelectAttribute();
    }
}

void frmAnimSetup::SelectSnapshotFile() {
    const QString sFile = AskOpenFileName(QStringLiteral("Open snapshot file..."),
                                          QStringLiteral("Snapshot files (*.SNA)|*.SNA|All files (*.*)|*.*"));
    if (!sFile.isEmpty()) {
        txtAnimSetup[kSnapFile]->ShowWhole(sFile);
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
        txtAnimSetup[kSnapFile]->setFocus();
    } else {
        txtNotes->setFocus();
    }
}

void frmAnimSetup::SSTab1_MouseMove(int X, int Y) {
    const bool onTabs = Y >= 3 && Y <= 18;
    if (onTabs && X >= 1 && X <= 51) {
        ShowPrompt(46);
    } else if (onTabs && X >= 56 && X <= 94) {
        ShowPrompt(47);
    } else {
        ShowPrompt(0);
    }
}

void frmAnimSetup::mouseMoveEvent(QMouseEvent*) {
    ShowPrompt(0);
}

} // namespace lumrake
