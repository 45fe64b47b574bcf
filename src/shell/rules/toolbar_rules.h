#pragma once

#include <cstdint>
#include <span>

namespace lumrake {

/// The button under the mouse, from 1, or -1. `X` and the widths of the buttons, from the left edge of the
/// toolbar on, are in twips; X is rounded and held to 16 bits. The exact boundary of two buttons belongs to
/// neither. A button of width 0 is never hit.
int ButtonAtX(double X, std::span<const std::int32_t> widths);

/// The help number of a button of the main toolbar; 0 for separators and for -1.
std::int32_t PromptOfButton(int hit);

} // namespace lumrake
