#pragma once

#include "controls/control_array.h"
#include "display/modes.h"
#include "preferences/rules/palette_rules.h"
#include "preferences/rules/prefs_rules.h"

#include <QDialog>

#include <cstdint>

class QCheckBox;
class QLabel;
class QMenu;
class QPushButton;
class QRadioButton;
class QSlider;

namespace lumrake {

class ColourSwatch;
class DigitBox;
class SwatchMarker;
class TabStrip;

/// Shows the preferences modally and returns when they are closed. Okay and Cancel alike may have changed the
/// palette, so the caller redraws the open windows in both cases. The settings change in memory only.
void ShowPreferences();

/// The modal dialog over the settings record. The fields of its first three pages are copies that Okay alone
/// writes back, after they have passed their tests. The swatches of the palette page are a copy as well, but
/// some of its actions write through at once, and Cancel does not take those back:
///
///   action                         swatches       lPalette               after Cancel
///   a slider moves                 the selected   the entry, at once     stays
///   set to default                 all            all, at once           stays
///   copy one half to the other     eight          eight, at once         stays
///   spread one half                six            not touched            lost
///   Okay                           -              all from the swatches
///
/// The close box and Escape are a Cancel. The sections below are the files: _layout.cpp makes the controls
/// from tables, frmPrefs.cpp is the dialog with its first three pages, _palette.cpp the page "Palette".
/// Controls carry their name and index as object name, "txtDefault(2)".
class frmPrefs : public QDialog {
  public:
    explicit frmPrefs(QWidget* parent = nullptr);

  protected:
    void showEvent(QShowEvent* event) override;
    void changeEvent(QEvent* event) override;

  private:
    // ---- controls and prompts: frmPrefs_layout.cpp ----

    void CreateControls();
    /// Red, green and blue for the numbers beside the sliders, legible on the present background.
    void ColourNumbers();

    // ---- the dialog and its first three pages: frmPrefs.cpp ----

    void ConnectControls();
    void Form_Load();
    void SettingsToScreen();
    void ScreenToSettings() const;
    /// Tells the first fault in a message; true when there is none.
    bool ValidatePrefs() const;
    DefaultTexts Texts() const;
    void cmdPrefs_Click(int Index);
    void optMode_Click(int Index);
    void txtDefault_LostFocus(int Index);
    void SSTab1_Click(int page);

    // ---- the page "Palette": frmPrefs_palette.cpp ----

    void ConnectPalette();
    void PaletteToSwatches();
    void SwatchesToPalette() const;
    PaletteColours Swatches() const;
    void SetSwatches(const PaletteColours& colours);
    void lblPalette_Click(int Index);
    void scrCol_Change(int Index);
    void menu_palette_Click(int Index);

    // ---- fields ----

    TabStrip* SSTab1 = nullptr;
    ControlArray<QPushButton, 5> cmdPrefs{}; ///< there is no cmdPrefs(3)

    ControlArray<QCheckBox, 2> chkGeneral{};
    ControlArray<DigitBox, kDefaultFields> txtDefault{};
    ControlArray<QRadioButton, lmk::kModes.size()> optMode{};
    ControlArray<QRadioButton, 4> optSmall{}, optLarge{};

    ControlArray<ColourSwatch, 16> lblPalette{};
    SwatchMarker* shpMarker = nullptr;
    ControlArray<QSlider, 3> scrCol{}; ///< red, green, blue
    ControlArray<QLabel, 3> lblCol{};
    QMenu* menu_palettetop = nullptr;
    std::int16_t iPaletteIndex = 0;   ///< the selected swatch, 0 to 15
    std::int16_t bSettingSliders = 0; ///< -1 while the sliders take the colour of a swatch
};

} // namespace lumrake
