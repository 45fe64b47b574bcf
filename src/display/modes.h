#pragma once

#include <array>
#include <cstdint>

namespace lmk {

/// Display modes: the layouts of lmk.h.
enum Mode : std::int16_t { kGraphics = 0, kScreen = 1, kText = 2, kLineMasks = 3, kByteMasks = 4 };

// What a view can be, in picture pixels.
inline constexpr std::int32_t kLeastWidth = 8, kMostWidth = 256; ///< of one column, a multiple of 8
inline constexpr std::int32_t kMostLines = 512, kMostColumns = 16;
inline constexpr std::int32_t kScreenWidth = 256, kScreenLines = 192; ///< of the Spectrum's screen
inline constexpr std::int32_t kMostZoom = 5;                          ///< zoom index, for 16 times

/// All that the program knows of a display mode beside its layout (lmk.cpp) and the address of a pixel in it
/// (LocatePixel).
struct ModeRow {
    const char* MenuCaption;             ///< in the Snapshot menu
    const char* Caption;                 ///< in the preferences and in the setup of an animation
    const char* ToolTipText;             ///< in the preferences
    std::int16_t fixedWidth, fixedLines; ///< pixels; 0 where the user has the choice
    std::int16_t linesUnit;              ///< lines come in multiples of this
    bool manyColumns;                    ///< else there is one
    int bytesPerByte;                    ///< of memory for eight pixels
    bool playable;                       ///< in an animation
    std::int16_t help;                   ///< number of its prompt in LMKHELP.DAT
};

// clang-format off
/// In the order of their numbers.
inline constexpr auto kModes = std::to_array<ModeRow>({
    // menu             caption      tool tip                        width         lines         unit columns bytes playable help
    {"&Graphics mode", "Graphics",  "Set default mode to graphics",  0,            0,            1,   true,   1,    true,    80},
    {"&Screen mode",   "Screen",    "Set default mode to screen",    kScreenWidth, kScreenLines, 1,   false,  1,    false,   81},
    {"&Text mode",     "Text",      "Set default mode to text",      0,            0,            8,   false,  1,    false,   82},
    {"&Line masks",    "Line mask", "Set default mode to interlace", 0,            0,            1,   true,   2,    true,    83},
    {"&Byte masks",    "Byte mask", "Set default mode to interlace", 0,            0,            1,   true,   2,    true,    84},
});
// clang-format on

/// A mode from a record: a number that is no mode counts as Graphics.
constexpr std::int16_t KnownMode(std::int16_t iMode) {
    return iMode >= 0 && iMode < static_cast<std::int16_t>(kModes.size()) ? iMode : std::int16_t{kGraphics};
}
constexpr const ModeRow& RowOf(std::int16_t iMode) {
    return kModes[static_cast<std::size_t>(KnownMode(iMode))];
}
/// `lines` brought down to a multiple of what the mode has them in, but to one of those at least.
constexpr std::int16_t LinesInMode(std::int16_t iMode, std::int16_t lines) {
    const std::int16_t unit = RowOf(iMode).linesUnit;
    return lines < unit ? unit : static_cast<std::int16_t>(lines / unit * unit);
}
/// The mode that an animation plays: one that it cannot play counts as Graphics.
constexpr std::int16_t PlayableMode(std::int16_t iMode) {
    return RowOf(iMode).playable ? KnownMode(iMode) : std::int16_t{kGraphics};
}

} // namespace lmk
