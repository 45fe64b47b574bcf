#pragma once

#include "preferences/rules/palette_rules.h"
#include "preferences/rules/prefs_rules.h"

#include <QDialog>

#include <array>
#include <cstddef>
#include <cstdint>

class QCheckBox;
class QGroupBox;
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
struct ControlRow;
enum class Prompt;

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
    void mouseMoveEvent(QMouseEvent* event) override;
    void changeEvent(QEvent* event) override;

  private:
    // ---- controls and prompts: frmPrefs_layout.cpp ----

    void CreateControls();
    template <class Made, class Shown, std::size_t N>
    void CreateArray(std::array<Shown*, N>& controls, const char* name, const ControlRow (&rows)[N],
                     Prompt prompt);
    QWidget* Container(int number);
    void CreatePictures();
    void CreateMenu();
    void ChainTabOrder() const;
    /// Red, green and blue for the numbers beside the sliders, legible on the present background.
    void ColourNumbers();
    /// x and y in logical pixels of SSTab1.
    void SSTab1_MouseMove(int x, int y);

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
    std::array<QWidget*, 4> pages_{};
    std::array<QLabel*, 4> imgPrefs{};
    std::array<QLabel*, 11> lblPrefs{};
    std::array<QGroupBox*, 5> frmPrefs_{};  ///< frmPrefs(0..4): the name is the form's as well
    std::array<QPushButton*, 5> cmdPrefs{}; ///< there is no cmdPrefs(3)

    std::array<QCheckBox*, 2> chkGeneral{};
    std::array<DigitBox*, kDefaultFields> txtDefault{};
    std::array<QRadioButton*, 5> optMode{};
    std::array<QRadioButton*, 4> optSmall{}, optLarge{};

    std::array<ColourSwatch*, 16> lblPalette{};
    SwatchMarker* shpMarker = nullptr;
    std::array<QSlider*, 3> scrCol{}; ///< red, green, blue
    std::array<QLabel*, 3> lblCol{};
    QMenu* menu_palettetop = nullptr;
    std::int16_t iPaletteIndex = 0;   ///< the selected swatch, 0 to 15
    std::int16_t bSettingSliders = 0; ///< -1 while the sliders take the colour of a swatch
};

} // namespace lumrake
