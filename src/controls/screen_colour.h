#pragma once

#include <QColor>

#include <cstdint>

namespace lumrake {

/// A colour of the records (red + 256 x green + 65536 x blue, the highest byte not counting) as the toolkit's.
inline QColor ScreenColour(std::int32_t colour) {
    return {colour & 255, colour >> 8 & 255, colour >> 16 & 255};
}

} // namespace lumrake
