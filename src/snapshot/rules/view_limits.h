#pragma once

#include "shell/rules/settings.h"
#include "snapshot/rules/addressing.h"

#include <array>
#include <cstdint>

namespace lumrake {

/// The four numbers of a view that have a box of their own, in the order of the boxes.
enum ViewValue : int { kOffsetValue = 0, kWidthValue = 1, kLinesValue = 2, kColumnsValue = 3 };

/// Limits and step of one value's spin button.
struct ValueLimits {
    std::int32_t lMin = 0, lMax = 0, lStep = 1;
};

/// The limits of the four spin buttons. What is typed has limits of its own: lines go down to 1 there.
std::array<ValueLimits, 4> SpinLimits(std::int32_t lFileLength);

/// The next value of a spin button: one step up or down, held at the limit. A value that lies outside the
/// limits or between two steps is taken as it stands (13 lines go up to 21, down to 8).
std::int32_t SpinTo(std::int32_t lValue, bool bUp, const ValueLimits& limits);

/// The view that a file opens with: the defaults of the settings brought into the limits of a view, zoom 1:1,
/// not flipped. A width between two multiples of 8 is cut down, an unknown mode is Graphics, an offset at or
/// behind the end of the file is the last byte. `lFileLength` is at least 1. The mode's own demands are not
/// looked at: FitToMode.
ViewNumbers DefaultView(const SettingsRecord& settings, std::int32_t lFileLength);

/// Takes over a mode (0 to 4) with the sizes that it asks for: Screen 256 by 192, Text a multiple of 8 lines,
/// at least 8. The one column of both is left to the caller.
void FitToMode(ViewNumbers& view, std::int16_t iNewMode);

/// The attribute after a click on a colour button: the ink (iIndex 0) or the paper (1) goes on by one of its
/// eight values, 7 to 0, or back. The bright bit stays, bit 7 falls away.
std::int16_t NextAttribute(std::int16_t iAttribute, int iIndex, bool bBack = false);

} // namespace lumrake
