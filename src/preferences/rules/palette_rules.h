#pragma once

#include "shell/rules/settings.h"

#include <array>
#include <cstddef>

namespace lumrake {

/// Sixteen colours in the order of the palette: 0 to 7 normal, 8 to 15 bright.
using PaletteColours = std::array<Colour, 16>;

inline constexpr std::size_t kNormalStart = 0, kNormalEnd = 7;
inline constexpr std::size_t kBrightStart = 8, kBrightEnd = 15;

/// Red, green and blue of a colour, each 0 to 255, in the order of the sliders.
using ColourParts = std::array<std::int32_t, 3>;

/// The components of any 32-bit number; its highest byte does not count.
ColourParts PartsOf(Colour colour);
/// The colour of three components, each held at 0 or 255 when it lies outside.
Colour ColourOf(const ColourParts& parts);

/// Copies eight colours: those from `from` on take the places from `to` on (kNormalStart or kBrightStart).
void CopyHalf(PaletteColours& colours, std::size_t from, std::size_t to);

/// Grades the colours between `iStart` and `iEnd` (iStart < iEnd <= 15), which stay as they are. The step of
/// a component is a whole number, rounded once, a half to the even neighbour: its error grows along the row,
/// and the last step into `iEnd` takes up what is left. Where the rounded steps run past 0 or 255 the
/// component stays there.
void SpreadPalette(PaletteColours& colours, std::size_t iStart, std::size_t iEnd);

} // namespace lumrake
