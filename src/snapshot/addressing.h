#pragma once

#include <cstdint>
#include <optional>
#include <span>

namespace lumrake {

/// Display modes, as values of iMode.
enum Mode : std::int16_t { kGraphics = 0, kScreen = 1, kText = 2, kLineMasks = 3, kByteMasks = 4 };

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
/// sees it; the flip is done here. Nothing for a position outside the picture.
///
/// With bx the byte's place across the whole picture, ly the line, col the column (w = iWidth):
///   Graphics    lOffset + (w/8) * (ly + (iLines - 1) * col) + bx
///   Screen      lOffset + zxScreenOffset(px, ly)
///   Text        lOffset + (ly / 8) * w + 8 * bx + ly mod 8
///   Line masks  lOffset + (w/8) * (2 * ly + (2 * iLines - 1) * col) + bx
///   Byte masks  lOffset + (w/4) * (ly + (iLines - 1) * col) + 2 * bx
/// (iLines - 1 and not iLines: bx already counts the bytes of the columns to the left.)
/// Example: lOffset 100, w 16, iLines 8, two columns, factor 1, pixel (21, 3): byte 122 in Graphics, 144 in
/// both mask modes, bit 2.
std::optional<PixelAddress> LocatePixel(const ViewNumbers& view, float X, float Y);

/// Sets (iValue 1) or clears (any other value) the bit of the pixel under a screen position. A position
/// outside the picture or past the end of the memory falls away.
void WritePixel(std::span<std::uint8_t> byMemory, const ViewNumbers& view, float X, float Y,
                std::int16_t iValue);

/// 1 or 0: the bit of the pixel under a screen position; 0 outside the picture and past the end.
std::int16_t ReadPixel(std::span<const std::uint8_t> byMemory, const ViewNumbers& view, float X, float Y);

} // namespace lumrake
