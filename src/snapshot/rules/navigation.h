#pragma once

#include "snapshot/rules/addressing.h"

#include <cstdint>

namespace lumrake {

/// The arithmetic of the address bar and its thumb. All places and sizes are logical screen pixels, counted
/// from the top of the bar unless an operation says "place".
///
///   0              top of the bar, up arrow
///   16             the track begins: the thumb at place 0
///   16 + travel    the last place of the thumb, which is 16 pixels high; 32 above the bar's bottom
///   height - 16    down arrow
///
/// A place is the thumb's distance from the beginning of the track, 0 to the travel.

inline constexpr std::int32_t kArrowHeight = 16;
inline constexpr std::int32_t kThumbHeight = 16;

/// How far the thumb travels in a bar of this height; at least 1.
std::int32_t ThumbTravel(std::int32_t iBarHeight);

/// Bytes of the file per pixel of travel; below 1 for a file shorter than the travel.
float BytesPerPixel(std::int32_t lFileLength, std::int32_t iBarHeight);

/// The place that an offset gives the thumb.
std::int32_t ThumbPlace(std::int32_t lOffset, std::int32_t lFileLength, std::int32_t iBarHeight);

/// Where a drag takes the thumb and the file. `iThumbTop` is where the thumb stands before, `iMouseY` the
/// mouse's row counted from there, `lGrabY` the row by which the thumb was gripped. The offset is that of
/// the thumb's old top, so it trails the thumb by one event, except at both ends of the track, where it is
/// the first or the last byte at once.
struct DraggedThumb {
    std::int32_t iTop = 0;
    std::int32_t lOffset = 0;
};
DraggedThumb DragThumb(std::int32_t iThumbTop, std::int32_t iMouseY, std::int32_t lGrabY,
                       std::int32_t lFileLength, std::int32_t iBarHeight);

/// The offset after the bar, at rest at `iTag`, gave the signal `iValue`: one away is a small step of
/// `iSmallChange` lines, two away a large one of the view's lines divided by `iLargeChange` and rounded; up
/// for a smaller value, down for a larger one. Any other distance is no step. The step counts in bytes of
/// plain picture lines, in every mode. The offset is held at the first and the last byte. Amounts below 1
/// count as 1.
std::int32_t ScrolledOffset(const ViewNumbers& view, std::int32_t iTag, std::int32_t iValue,
                            std::int16_t iSmallChange, std::int16_t iLargeChange);

} // namespace lumrake
