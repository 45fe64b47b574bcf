#pragma once

#include <span>

namespace lumrake {

/// The cell of a row that lies at x, counted from 1; 0 when there is none. The widths follow each other from 0 on, in
/// the unit of x. The exact boundary of two cells belongs to neither, and a cell of width 0 is never hit.
constexpr int HitInRow(double x, std::span<const int> widths) {
    int left = 0;
    int index = 0;
    for (const int width : widths) {
        ++index;
        if (left < x && x < left + width) {
            return index;
        }
        left += width;
    }
    return 0;
}

} // namespace lumrake
