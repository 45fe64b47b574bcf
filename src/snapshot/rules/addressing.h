#pragma once

#include "display/lmk.h"

#include <bit>
#include <cstdint>
#include <optional>
#include <span>

namespace lumrake {

using lmk::KnownMode;
using lmk::Mode; // as values of iMode
using enum lmk::Mode;

/// The numbers that say how the bytes of a document are looked at.
struct ViewNumbers {
    std::int32_t lFileLength = 0; ///< bytes in the memory
    std::int32_t lOffset = 0;     ///< index of the first byte shown, 0 to lFileLength - 1
    std::int16_t iWidth = 256;    ///< width of one column in picture pixels, a multiple of 8 from 8 to 256
    std::int16_t iLines = 192;    ///< height in lines, 1 to 512
    std::int16_t iColumns = 1;    ///< columns side by side, 1 to 16
    std::int16_t iMode = kGraphics;
    std::int16_t iZoom = 1;       ///< zoom index 1 to 5
    std::int16_t iZoomFactor = 1; ///< screen pixels per picture pixel: 1, 2, 4, 8, 16
    std::int16_t iUpsideDown = 0; ///< 1 when the last line is drawn at the top

    std::int32_t PictureWidth() const { return std::int32_t{iWidth} * iColumns; }
    std::int32_t ScreenWidth() const { return PictureWidth() * iZoomFactor; }
    std::int32_t ScreenHeight() const { return std::int32_t{iLines} * iZoomFactor; }
};

/// Where a pixel stands: an index counted from the first byte of the memory, which may lie past its end, and
/// the bit 0 to 7 (7 is the leftmost pixel of the byte).
struct PixelAddress {
    std::int64_t lAddress = 0;
    std::int32_t iBit = 0;
};

/// The byte and bit under the screen position (X, Y), counted from the picture's top left corner as the user
/// sees it; the flip is done here. Nothing for a position outside the picture. A fraction of a screen pixel
/// is cut off before anything flips or divides it.
///
/// With bx the byte's place across the whole picture, ly the line, col the column (w = iWidth):
///   Graphics    lOffset + (w/8) * (ly + (iLines - 1) * col) + bx
///   Screen      lOffset + zxScreenOffset(px, ly)
///   Text        lOffset + (ly / 8) * w + 8 * bx + ly mod 8
///   Line masks  lOffset + (w/8) * (2 * ly + (2 * iLines - 1) * col) + bx
///   Byte masks  lOffset + (w/4) * (ly + (iLines - 1) * col) + 2 * bx
/// (iLines - 1 and not iLines: bx already counts the bytes of the columns to the left.)
/// A mode outside 0 to 4 counts as Graphics, as it does for the display.
/// Example: lOffset 100, w 16, iLines 8, two columns, factor 1, pixel (21, 3): byte 122 in Graphics, 144 in
/// both mask modes, bit 2.
std::optional<PixelAddress> LocatePixel(const ViewNumbers& view, float X, float Y);

/// Sets (iValue 1) or clears (any other value) the bit of the pixel under a screen position. A position
/// outside the picture or past the end of the memory falls away. True when the pixel has a byte in the
/// memory.
bool WritePixel(std::span<std::uint8_t> byMemory, const ViewNumbers& view, float X, float Y,
                std::int16_t iValue);

/// 1 or 0: the bit of the pixel under a screen position; 0 outside the picture and past the end.
std::int16_t ReadPixel(std::span<const std::uint8_t> byMemory, const ViewNumbers& view, float X, float Y);

// ---- Every pixel of every block operation comes through here, so the bodies are open to the caller's loop.

inline std::optional<PixelAddress> LocatePixel(const ViewNumbers& view, float X, float Y) {
    // Written so that a position that is no number fails too. All sizes are exact as floats.
    const bool inside = X >= 0 && Y >= 0 && X < static_cast<float>(view.ScreenWidth()) &&
                        Y < static_cast<float>(view.ScreenHeight());
    if (!inside) {
        return std::nullopt;
    }
    const int shift = std::countr_zero(static_cast<std::uint16_t>(view.iZoomFactor)); // a power of two
    const std::int32_t px = static_cast<std::int32_t>(X) >> shift;
    const std::int32_t row = static_cast<std::int32_t>(Y) >> shift;
    const std::int32_t ly = view.iUpsideDown == 1 ? view.iLines - 1 - row : row;
    const std::int32_t bx = px >> 3;
    const std::int32_t col = view.iColumns > 1 ? px / view.iWidth : 0;
    const std::int32_t rowBytes = view.iWidth >> 3;

    std::int32_t place = 0; // counted from lOffset; at most 16 columns of 512 rows of 64 bytes
    switch (view.iMode) {
    case kScreen: place = lmk::zxScreenOffset(px, ly); break;
    case kText: place = (ly >> 3) * view.iWidth + 8 * bx + (ly & 7); break;
    case kLineMasks: place = rowBytes * (2 * ly + (2 * view.iLines - 1) * col) + bx; break;
    case kByteMasks: place = 2 * rowBytes * (ly + (view.iLines - 1) * col) + 2 * bx; break;
    default: place = rowBytes * (ly + (view.iLines - 1) * col) + bx; break;
    }
    return PixelAddress{std::int64_t{view.lOffset} + place, 7 - (px & 7)};
}

inline bool WritePixel(std::span<std::uint8_t> byMemory, const ViewNumbers& view, float X, float Y,
                       std::int16_t iValue) {
    const std::optional<PixelAddress> at = LocatePixel(view, X, Y);
    // As an unsigned number an address before the memory is past its end as well.
    if (!at || static_cast<std::uint64_t>(at->lAddress) >= byMemory.size()) {
        return false;
    }
    std::uint8_t& byte = byMemory[static_cast<std::size_t>(at->lAddress)];
    const int mask = 1 << at->iBit;
    byte = static_cast<std::uint8_t>(iValue == 1 ? byte | mask : byte & ~mask);
    return true;
}

inline std::int16_t ReadPixel(std::span<const std::uint8_t> byMemory, const ViewNumbers& view, float X,
                              float Y) {
    const std::optional<PixelAddress> at = LocatePixel(view, X, Y);
    if (!at || static_cast<std::uint64_t>(at->lAddress) >= byMemory.size()) {
        return 0;
    }
    return static_cast<std::int16_t>((byMemory[static_cast<std::size_t>(at->lAddress)] >> at->iBit) & 1);
}

} // namespace lumrake
