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

/// A pixel of the picture, counted from its top left corner as the user sees it, and inside it: 0 to PictureWidth() - 1
/// and 0 to iLines - 1.
struct PicturePixel {
    std::int32_t x = 0, y = 0;
};

/// The mask of bit n.
inline constexpr std::int16_t iBitValue[8] = {1, 2, 4, 8, 16, 32, 64, 128};

/// The picture pixel under the screen position (X, Y), counted from the picture's top left corner. Nothing for a
/// position outside the picture. A fraction of a screen pixel is cut off before anything divides it.
inline std::optional<PicturePixel> PixelUnder(const ViewNumbers& view, float X, float Y) {
    // Written so that a position that is no number fails too. All sizes are exact as floats.
    const bool inside = X >= 0 && Y >= 0 && X < static_cast<float>(view.ScreenWidth()) &&
                        Y < static_cast<float>(view.ScreenHeight());
    if (!inside) {
        return std::nullopt;
    }
    const int shift = std::countr_zero(static_cast<std::uint16_t>(view.iZoomFactor)); // a power of two
    return PicturePixel{static_cast<std::int32_t>(X) >> shift, static_cast<std::int32_t>(Y) >> shift};
}

/// The byte and bit of a pixel; the flip is done here.
///
/// With bx the byte's place across the whole picture, ly the line, col the column (w = iWidth):
///   Graphics    lOffset + (w/8) * (ly + (iLines - 1) * col) + bx
///   Screen      lOffset + zxScreenOffset(px, ly)
///   Text        lOffset + (ly / 8) * w + 8 * bx + ly mod 8
///   Line masks  lOffset + (w/8) * (2 * ly + (2 * iLines - 1) * col) + bx
///   Byte masks  lOffset + (w/4) * (ly + (iLines - 1) * col) + 2 * bx
/// (iLines - 1 and not iLines: bx already counts the bytes of the columns to the left.)
/// A mode outside 0 to 4 counts as Graphics, as it does for the display.
/// Example: lOffset 100, w 16, iLines 8, two columns, pixel (21, 3): byte 122 in Graphics, 144 in both mask modes,
/// bit 2.
// Every pixel of every block operation comes through here, so the bodies are open to the caller's loop.
inline PixelAddress LocatePixel(const ViewNumbers& view, const PicturePixel& pixel) {
    const std::int32_t px = pixel.x;
    const std::int32_t ly = view.iUpsideDown == 1 ? view.iLines - 1 - pixel.y : pixel.y;
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

/// The same for the pixel under a screen position; nothing for one outside the picture.
inline std::optional<PixelAddress> LocatePixel(const ViewNumbers& view, float X, float Y) {
    const std::optional<PicturePixel> pixel = PixelUnder(view, X, Y);
    return pixel ? std::optional(LocatePixel(view, *pixel)) : std::nullopt;
}

/// The address of a pixel that has a byte in a memory of this size.
inline std::optional<PixelAddress> AddressIn(std::size_t memorySize, const ViewNumbers& view,
                                             const PicturePixel& pixel) {
    const PixelAddress at = LocatePixel(view, pixel);
    // As an unsigned number an address before the memory is past its end as well.
    return static_cast<std::uint64_t>(at.lAddress) < memorySize ? std::optional(at) : std::nullopt;
}

/// 1 or 0: the bit of a pixel; 0 past the end of the memory.
inline std::int16_t ReadPixel(std::span<const std::uint8_t> byMemory, const ViewNumbers& view,
                              const PicturePixel& pixel) {
    const std::optional<PixelAddress> at = AddressIn(byMemory.size(), view, pixel);
    return at && (byMemory[static_cast<std::size_t>(at->lAddress)] & iBitValue[at->iBit]) != 0
               ? std::int16_t{1}
               : std::int16_t{0};
}
/// The same under a screen position; 0 outside the picture as well.
inline std::int16_t ReadPixel(std::span<const std::uint8_t> byMemory, const ViewNumbers& view, float X,
                              float Y) {
    const std::optional<PicturePixel> pixel = PixelUnder(view, X, Y);
    return pixel ? ReadPixel(byMemory, view, *pixel) : std::int16_t{0};
}

} // namespace lumrake
