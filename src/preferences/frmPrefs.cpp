#include "preferences/frmPrefs.h"

#include "base/numbers.h"
#include "controls/control_table.h"
#include "controls/message_box.h"
#include "controls/screen.h"
#include "controls/tab_strip.h"
#include "controls/watch.h"
#include "disk/texts.h"
#include "preferences/digit_box.h"
#include "shell/shell.h"
#include "snapshot/frmColours.h"

#include <QCheckBox>
#include <QMenu>
#include <QPointer>
#include <QPushButton>
#include <QRadioButton>
#include <QSlider>

#include <algorithm>

namespace lumrake {

namespace {

std::int16_t NumberOfTag(const QObject* control) {
    return WholeNumberFromText<std::int16_t>(TagOf(control).toStdString());
}

/// Sets the option whose Tag is `value`; a value that no option has is shown as the first.
template <std::size_t N> void SetByTag(const ControlArray<QRadioButton, N>& options, std::int16_t value) {
    const auto found = std::find_if(options.begin(), options.end(), [value](const QRadioButton* option) {
        return NumberOfTag(option) == value;
    });
    (found == options.end() ? options.front() : *found)->setChecked(true);
}

template <std::size_t N> std::size_t IndexOfSet(const ControlArray<QRadioButton, N>& options) {
    const auto found = std::find_if(options.begin(), options.end(),
                                    [](const QRadioButton* option) { return option->isChecked(); });
    return static_cast<std::size_t>(found - options.begin()) % N;
}

} // namespace

void ShowPreferences() {
    // The main window owns the dialog and may take it along before it returns.
    const QPointer<frmPrefs> form = new frmPrefs(DialogOwner());
    form->exec();
    delete form;
}

frmPrefs::frmPrefs(QWidget* parent) : QDialog(parent) {
    CreateControls();
    ConnectControls();
    ConnectPalette();
    Form_Load();
}

void frmPrefs::ConnectControls() {
    Connect(this, cmdPrefs, &QPushButton::clicked, &frmPrefs::cmdPrefs_Click);
    for (int i = 0; i < static_cast<int>(optMode.size()); ++i) {
        connect(optMode[i], &QRadioButton::toggled, this, [this, i](bool on) {
            if (on) {
                optMode_Click(i);
            }
        });
    }
    for (int i = 0; i < static_cast<int>(txtDefault.size()); ++i) {
        Watch(txtDefault[i]).LostFocus = [this, i] { txtDefault_LostFocus(i); };
    }
    SSTab1->Click = [this](int page) { SSTab1_Click(page); };
}

void frmPrefs::Form_Load() {
    CentreOnScreen(*this);
    SettingsToScreen();
}

void frmPrefs::SettingsToScreen() {
    chkGeneral[0]->setChecked(Settings.bPromptSave != 0);
    chkGeneral[1]->setChecked(Settings.bAutoload != 0);
    for (std::size_t i = 0; i < txtDefault.size(); ++i) {
        txtDefault[i]->ShowWhole(QString::number(NumberAt(Settings, kDefaultPlaces[i])));
    }
    const std::int16_t iMode = lmk::KnownMode(Settings.iDefaultMode);
    optMode[iMode]->setChecked(true);
    optMode_Click(iMode); // an option that was set already raises no event
    SetByTag(optSmall, Settings.iSmallChange);
    SetByTag(optLarge, Settings.iLargeChange);
    PaletteToSwatches();
}

void frmPrefs::ScreenToSettings() const {
    Settings.bPromptSave = chkGeneral[0]->isChecked() ? 1 : 0;
    Settings.bAutoload = chkGeneral[1]->isChecked() ? 1 : 0;
    for (std::size_t i = 0; i < txtDefault.size(); ++i) {
        SetNumberAt(Settings, kDefaultPlaces[i], txtDefault[i]->text().toStdString());
    }
    Settings.iDefaultMode = static_cast<std::int16_t>(IndexOfSet(optMode));
    Settings.iSmallChange = NumberOfTag(optSmall[IndexOfSet(optSmall)]);
    Settings.iLargeChange = NumberOfTag(optLarge[IndexOfSet(optLarge)]);
    SwatchesToPalette();
}

bool frmPrefs::ValidatePrefs() const {
    const std::string_view fault = FirstFault(Texts());
    if (!fault.empty()) {
        MsgBox(Latin(fault), BoxButtons::Ok, BoxIcon::Exclamation, QStringLiteral("Preferences"));
    }
    return fault.empty();
}

DefaultTexts frmPrefs::Texts() const {
    DefaultTexts texts;
    for (std::size_t i = 0; i < texts.size(); ++i) {
        texts[i] = txtDefault[i]->text().toStdString();
    }
    return texts;
}

void frmPrefs::cmdPrefs_Click(int Index) {
    const QString tag = TagOf(cmdPrefs[Index]);
    if (tag == QLatin1String("OKAY")) {
        // An access key or Enter leaves the focus in its field, which has its say nevertheless.
        const auto field = std::find(txtDefault.begin(), txtDefault.end(), focusWidget());
        if (field != txtDefault.end()) {
            txtDefault_LostFocus(static_cast<int>(field - txtDefault.begin()));
        }
        if (ValidatePrefs()) {
            ScreenToSettings();
            accept();
        }
    } else if (tag == QLatin1String("CANCEL")) {
        reject();
    } else if (tag == QLatin1String("ATTRIBUTE")) {
        DigitBox* box = txtDefault[kAttribute];
        const std::int16_t chosen =
            frmColours(this).GetColour(WholeNumberFromText<std::int16_t>(box->text().toStdString()));
        if (chosen >= 0) {
            box->setText(QString::number(chosen));
        }
    } else if (tag == QLatin1String("POPUP")) {
        menu_palettetop->popup(QCursor::pos());
    }
}

void frmPrefs::optMode_Click(int Index) {
    const auto rules = SizeFieldRules(static_cast<std::int16_t>(Index));
    for (std::size_t i = 0; i < rules.size(); ++i) {
        DigitBox* box = txtDefault[kWidth + i];
        if (!rules[i].text.empty()) {
            box->setText(QString::fromStdString(rules[i].text));
        }
        box->setEnabled(rules[i].enabled);
    }
}

void frmPrefs::txtDefault_LostFocus(int Index) {
    if (DigitBox* box = txtDefault[Index]; TagOf(box) == QLatin1String("LINES")) {
        const auto iMode = static_cast<std::int16_t>(IndexOfSet(optMode));
        box->setText(QString::fromStdString(LinesFieldInMode(iMode, box->text().toStdString())));
    }
}

void frmPrefs::SSTab1_Click(int page) {
    const ControlArray<QWidget, 4> first{
        {chkGeneral[0], txtDefault[0], optSmall[IndexOfSet(optSmall)], scrCol[0]}};
    first[page]->setFocus();
}

} // namespace lumrake
