#include "controls/control_table.h"
#include "preferences/colour_swatch.h"
#include "preferences/frmPrefs.h"
#include "shell/shell.h"

#include <QLabel>
#include <QMenu>
#include <QSlider>

namespace lumrake {

void frmPrefs::ConnectPalette() {
    for (int i = 0; i < static_cast<int>(lblPalette.size()); ++i) {
        lblPalette[i]->Click = [this, i] { lblPalette_Click(i); };
        lblPalette[i]->Walk = [this, i, last = static_cast<int>(lblPalette.size()) - 1](int by) {
            if (i + by >= 0 && i + by <= last) {
                lblPalette[i + by]->setFocus();
            }
        };
    }
    // Comes during a drag as well, so the swatch and the number follow the slider.
    Connect(this, scrCol, &QSlider::valueChanged, &frmPrefs::scrCol_Change);
    const QList<QAction*> entries = menu_palettetop->actions();
    for (int i = 0; i < static_cast<int>(entries.size()); ++i) {
        connect(entries[i], &QAction::triggered, this, [this, i] { menu_palette_Click(i); });
    }
}

void frmPrefs::PaletteToSwatches() {
    SetSwatches(Settings.lPalette);
    lblPalette_Click(iPaletteIndex);
}

void frmPrefs::SwatchesToPalette() const {
    Settings.lPalette = Swatches();
}

PaletteColours frmPrefs::Swatches() const {
    PaletteColours colours{};
    for (std::size_t i = 0; i < colours.size(); ++i) {
        colours[i] = lblPalette[i]->BackColor();
    }
    return colours;
}

void frmPrefs::SetSwatches(const PaletteColours& colours) {
    for (std::size_t i = 0; i < colours.size(); ++i) {
        lblPalette[i]->SetBackColor(colours[i]);
    }
}

void frmPrefs::lblPalette_Click(int Index) {
    const ColourSwatch* swatch = lblPalette[Index];
    shpMarker->move(swatch->pos() - QPoint(1, 1)); // the frame lies just outside the swatch
    lblPalette[iPaletteIndex]->setFocusPolicy(Qt::NoFocus);
    lblPalette[Index]->setFocusPolicy(Qt::TabFocus); // one stop for all of them
    iPaletteIndex = static_cast<std::int16_t>(Index);
    bSettingSliders = -1;
    const ColourParts values = PartsOf(swatch->BackColor());
    for (std::size_t i = 0; i < values.size(); ++i) {
        scrCol[i]->setValue(values[i]);
        scrCol_Change(static_cast<int>(i)); // a slider that stands there already raises no event
    }
    bSettingSliders = 0;
}

void frmPrefs::scrCol_Change(int Index) {
    const auto slider = static_cast<std::size_t>(Index);
    lblCol[slider]->setText(QString::number(scrCol[slider]->value()));
    if (bSettingSliders == 0) {
        const Colour colour = ColourOf({scrCol[0]->value(), scrCol[1]->value(), scrCol[2]->value()});
        const auto selected = static_cast<std::size_t>(iPaletteIndex);
        lblPalette[selected]->SetBackColor(colour);
        Settings.lPalette[selected] = colour;
    }
}

void frmPrefs::menu_palette_Click(int Index) {
    const auto copyHalf = [this](std::size_t from, std::size_t to) {
        // Swatches and palette differ after a grading, so each copies its own.
        PaletteColours colours = Swatches();
        CopyHalf(colours, from, to);
        SetSwatches(colours);
        CopyHalf(Settings.lPalette, from, to);
        lblPalette_Click(iPaletteIndex);
    };
    // The sliders keep the colour of before: a grading selects nothing and is no choice of a colour yet.
    const auto spread = [this](std::size_t start, std::size_t end) {
        PaletteColours colours = Swatches();
        SpreadPalette(colours, start, end);
        SetSwatches(colours);
    };
    switch (Index) {
    case 0:
        SetDefaultPalette(Settings);
        PaletteToSwatches();
        break;
    case 1: copyHalf(kNormalStart, kBrightStart); break;
    case 2: copyHalf(kBrightStart, kNormalStart); break;
    case 3: spread(kNormalStart, kNormalEnd); break;
    case 4: spread(kBrightStart, kBrightEnd); break;
    default: break;
    }
}

} // namespace lumrake
