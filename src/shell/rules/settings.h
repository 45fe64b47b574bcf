#pragma once

#include "base/fixed_string.h"

#include <array>
#include <cstdint>
#include <span>
#include <string_view>

namespace lumrake {

/// Colour on screen: red + 256 x green + 65536 x blue. Only these three bytes count.
using Colour = std::int32_t;

/// What the program remembers between runs. In the file LMK.CFG, in this order, little-endian, nothing
/// between the fields, 526 bytes:
///
///   offset width field                 meaning                                                   default
///        0    10 sVersion              version of the program that wrote the file                "2.00"
///       10     4 lWindowTop            place and size of the main window in twips; kept and      of the
///       14     4 lWindowLeft             written back, never read                                  window
///       18     4 lWindowWidth
///       22     4 lWindowHeight
///       26    12 bToolbarVisible[6]    File, Editing, Drawing, Snapshot, Animation,              all -1
///                                        Co-ordinates: -1 shown, 0 hidden
///       38   400 sRecentFile[4]        four paths of 100, newest first, lower case, or blank     blank
///      438     2 bAutoload             check box "Autoload last used files", 0 or 1              0
///      440     2 bPromptSave           check box "Prompt to save changes", 0 or 1                1
///      442     4 lDefaultOffset        view of a newly opened snapshot: file offset,             0
///      446     2 iDefaultWidth           width in pixels,                                        256
///      448     2 iDefaultLines           lines,                                                  192
///      450     2 iDefaultColumns         columns,                                                1
///      452     2 iDefaultAttribute       attribute byte,                                         15
///      454     2 iDefaultMode            0 Graphics, 1 Screen, 2 Text, 3 Line, 4 Byte masks      0
///      456     2 iSmallChange          lines of a small scroll step: 1, 2, 4, 8                  1
///      458     2 iLargeChange          divisor of a page for a large step: 1, 2, 4, 8            1
///      460    64 lPalette[16]          the colours; in the file red, green, blue, 0              settings.cpp
///      524     2 bAssistantOn          -1 on, 0 off                                              0
///
/// Example: a file of the defaults has "2.00      " at 0, FF FF at 26, 00 01 at 446 and 00 00 D0 00 at 464.
///
/// Fields are taken as they stand in the file, out of range or not: whoever uses one guards itself. A new record has the
/// defaults that are told here.
struct SettingsRecord {
    FixedString<10> sVersion;
    std::int32_t lWindowTop = 0, lWindowLeft = 0, lWindowWidth = 0, lWindowHeight = 0;
    std::array<std::int16_t, 6> bToolbarVisible{-1, -1, -1, -1, -1, -1};
    std::array<FixedString<100>, 4> sRecentFile;
    std::int16_t bAutoload = 0;
    std::int16_t bPromptSave = 1;
    std::int32_t lDefaultOffset = 0;
    std::int16_t iDefaultWidth = 256, iDefaultLines = 192, iDefaultColumns = 1;
    std::int16_t iDefaultAttribute = 15;
    std::int16_t iDefaultMode = 0;
    std::int16_t iSmallChange = 1, iLargeChange = 1;
    std::array<Colour, 16> lPalette{}; ///< its defaults are those of SetDefaultPalette
    std::int16_t bAssistantOn = 0;
};

inline constexpr std::size_t kSettingsBytes = 526;

/// The record's bytes, and the record that bytes stand for.
std::array<std::uint8_t, kSettingsBytes> EncodeSettings(const SettingsRecord& settings);
SettingsRecord DecodeSettings(std::span<const std::uint8_t, kSettingsBytes> bytes);

/// Place and size of a window in twips.
struct WindowTwips {
    std::int32_t lTop = 0, lLeft = 0, lWidth = 0, lHeight = 0;
};

/// Fills every field with its default.
void SetDefaultSettings(SettingsRecord& settings, std::string_view version, const WindowTwips& window);
/// Fills the palette alone: the Spectrum's colours in their machine order.
void SetDefaultPalette(SettingsRecord& settings);

/// True when the record was written by this version; blanks at both ends do not count.
bool IsSameVersion(const SettingsRecord& settings, std::string_view version);

/// The ink (`sWhich` is "FORE") or the paper (any other text) of an attribute byte as a colour of the
/// palette. Bits 0 to 2 are the ink, 3 to 5 the paper, bit 6 chooses the bright half (8 to 15).
Colour AttributeColour(const SettingsRecord& settings, std::int16_t iAttribute, std::string_view sWhich);

} // namespace lumrake
