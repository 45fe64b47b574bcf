// What a screen reader hears of the picture, and works with: the cell cursor, under other hands than those on the keys.
#include "snapshot/frmSnapshot.h"

#include "controls/spoken.h"
#include "disk/texts.h"
#include "shell/shell.h"

#include <QProgressBar>

namespace lumrake {

namespace {

constexpr const char* kToolNames[] = {"no tool", "Place block", "Draw",
                                      "Zoom",    "Select",      "Pan"}; ///< of iCurrentTool

// clang-format off
constexpr struct { const char* name; int x, y; } kSteps[] = { // picture pixels
    {"Move left",  -1,  0},
    {"Move right",  1,  0},
    {"Move up",     0, -1},
    {"Move down",   0,  1},
};
constexpr struct { const char* name; std::int16_t button; bool bPress, bRelease; } kPresses[] = {
    {"Press left button",    1, true,  true},
    {"Press right button",   2, true,  true},
    {"Hold left button",     1, true,  false},
    {"Hold right button",    2, true,  false},
    {"Release left button",  1, false, true},
    {"Release right button", 2, false, true},
};
// clang-format on

} // namespace

QString frmSnapshot::CellWords() const {
    const PicturePixel at = Cell();
    const std::optional<PixelAddress> address = CellAddress();
    const QString sPlace = QStringLiteral("%1, %2, ").arg(at.x).arg(at.y);
    if (!address) {
        return sPlace + QStringLiteral("past the end of the file");
    }
    return sPlace + QStringLiteral("%1, byte %2, bit %3")
                        .arg(Latin(IsCellSet() ? "set" : "clear"))
                        .arg(address->lAddress)
                        .arg(address->iBit);
}

QString frmSnapshot::ViewWords() const {
    const QString sWords = QStringLiteral("Picture, %1, %2x, %3")
                               .arg(Latin(lmk::RowOf(view.iMode).Caption))
                               .arg(view.iZoomFactor)
                               .arg(Latin(kToolNames[iCurrentTool]));
    return IsPlacing() && placing.IsHanging() ? sWords + QStringLiteral(", a block hangs at the cell")
                                              : sWords;
}

void frmSnapshot::TellPicture() const {
    TellSpoken(picImage);
}

void frmSnapshot::ConnectSpeech() {
    Spoken words{.role = QAccessible::Graphic,
                 .name = [this] { return CellWords(); },
                 .description = [this] { return ViewWords(); }};
    // While bytes are being saved or copied nothing is drawn, by these actions neither.
    const auto add = [this, &words](const char* name, const std::function<void()>& act) {
        words.actions.push_back({name, [this, act] {
                                     if (barProgress->isHidden()) {
                                         act();
                                     }
                                 }});
    };
    for (const auto& press : kPresses) {
        add(press.name, [this, press] {
            if (press.bPress) {
                PressAtCell(press.button);
            }
            if (press.bRelease) {
                ReleaseAtCell(press.button);
            }
        });
    }
    for (const auto& step : kSteps) {
        add(step.name, [this, step] { MoveCell(Cell().x + step.x, Cell().y + step.y); });
    }
    // The cells row by row, so that any of them is reached at once.
    words.value = [this] { return Cell().y * view.PictureWidth() + Cell().x; };
    words.most = [this] { return view.iLines * view.PictureWidth() - 1; };
    words.setValue = [this](int n) { MoveCell(n % view.PictureWidth(), n / view.PictureWidth()); };
    SetSpoken(picImage, words);
}

} // namespace lumrake
