#pragma once

#include "snapshot/rules/addressing.h"

#include <array>
#include <cstdint>
#include <span>
#include <string>

namespace lumrake {

/// The pixel of the picture that is nearest to (x, y). With `past`, 0 or 1, one pixel further to the right and below
/// is let be, where a net ends that takes in the last column or line.
PicturePixel HeldInside(const ViewNumbers& view, std::int64_t x, std::int64_t y, std::int32_t past = 0);

/// Where a picture that lies at `place` goes along one axis so that `length` of its screen pixels from `first` on are
/// seen in a room of this size: no further than need be, and their beginning when not all of them fit in.
std::int32_t PannedToShow(std::int32_t place, std::int32_t first, std::int32_t length, std::int32_t room);

/// Where it goes with a pan by `by`: no further than until its edges are those of the room, and one that lies further
/// already no further than it does.
std::int32_t PannedBy(std::int32_t place, std::int32_t by, std::int32_t size, std::int32_t room);

/// What a pixel of the picture stands for.
struct ByteUnder {
    std::int64_t lAddress = 0; ///< may lie past the end of the file
    std::int32_t iBit = 0;     ///< 7 is the leftmost pixel of the byte
    std::int32_t iValue = 0;   ///< of the byte; -1 past the end

    bool operator==(const ByteUnder&) const = default;
};
ByteUnder ByteAt(std::span<const std::uint8_t> byMemory, const ViewNumbers& view, const PicturePixel& pixel);

/// It in three short lines: "21397 bit 3", "0x5395", "value 165".
std::array<std::string, 3> LinesOf(const ByteUnder& byte);

/// The cell cursor: the picture pixel at which the keys work, and a screen reader. It stands under the mouse, wherever
/// the picture is moved there, until a key takes it; then it stays on its picture pixel until the mouse moves again.
struct CellCursor {
    bool bByKeys = false;
    std::int16_t iButtons = 0; ///< mask of the mouse buttons that keys hold down: 1 left, 2 right
    PicturePixel pixel;        ///< by keys; may lie outside a picture that has shrunk since
    bool bMouseOver = false;   ///< the mouse is over the picture
    std::int32_t iMouseLeft = 0,
                 iMouseTop = 0; ///< the mouse, in screen pixels from the corner of what is seen

    /// Where it stands in a picture whose corner lies at (left, top), in the same pixels.
    PicturePixel In(const ViewNumbers& view, std::int32_t left, std::int32_t top, std::int32_t past) const;
};

} // namespace lumrake
