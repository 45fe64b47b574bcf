/// The display library: draws a stretch of bytes as a one-bit picture in one of the ZX Spectrum's layouts.
///
/// A column is `width` pixels wide; the columns stand side by side. Eight pixels share a byte, the leftmost
/// pixel is bit 7. With W = width / 8, col the column, bc the byte's place inside the column, b its place
/// across all columns and y the line, the byte of a pixel lies at offset + ...
///
///   mode            address                                          layout
///   0 Graphics      W * (col * lines + y) + bc                       column after column, row after row
///   1 Screen        zxScreenOffset(8 * b, y)                         the Spectrum's display file, 6144 bytes
///   2 Text          8 * W * (y / 8) + 8 * b + y mod 8                characters of 8 bytes, top row first
///   3 Line masks    2 * W * (col * lines + y) + bc                   every row is followed by its mask row
///   4 Byte masks    2 * W * (col * lines + y) + 2 * bc               every byte is followed by its mask byte
///
/// Example: width 16, lines 8, columns 2, offset 100, pixel (21, 3): col 1, bc 0, b 2; Graphics 122, both
/// masks 144; the bit is 2 (value 4). Masks have no effect on the picture. A byte before 0 or at or past the
/// length is 0.
#pragma once

#include "display/bit_picture.h"
#include "display/modes.h"

#include <cstdint>
#include <optional>

namespace lmk {

/// What zxShowMem draws into: the picture at 1:1, one bit a pixel, already flipped, at most 4096 x 512
/// pixels, with the factor by which it is shown. To its readers it is the zoomed picture of ScreenWidth() x
/// ScreenHeight().
class DeviceContext {
  public:
    const BitPicture& Picture() const { return picture_; }
    /// Screen pixels per picture pixel each way: 1, 2, 4, 8 or 16; 1 before the first drawing.
    int Factor() const { return factor_; }
    /// Size of the zoomed picture in screen pixels, up to 65536 x 8192.
    int ScreenWidth() const { return picture_.Width() * factor_; }
    int ScreenHeight() const { return picture_.Height() * factor_; }
    /// Colour (0xffRRGGBB) at a pixel of the zoomed picture; the back colour outside it.
    std::uint32_t ScreenPixel(int x, int y) const;

    /// Lets zxShowMem draw only this part (picture pixels) until ResetClip; the other bits stay as they are.
    /// The clip is passed over by a drawing that changes the size of the picture. Colours and factor have no
    /// clip.
    void SetClip(const Rect& picturePixels) { clip_ = picturePixels; }
    void ResetClip() { clip_.reset(); }
    /// Clears every bit; size, factor, colours and clip stay.
    void Clear();

  private:
    friend std::int32_t zxShowMem(DeviceContext*, const std::uint8_t*, std::int32_t, std::int32_t,
                                  std::int32_t, std::int32_t, std::int32_t, std::int32_t, std::uint8_t,
                                  const std::int32_t*);

    BitPicture picture_;
    int factor_ = 1;
    std::optional<Rect> clip_;
};

/// Zoom index 1..5 to the factors 1, 2, 4, 8, 16; 0 for every other index.
std::int32_t ZoomIndexToFactor(std::int32_t iZoom);

/// Draws one view of `memory` into `hdc`, resizing it to width x columns by lines. Never reads outside
/// memory[0] to memory[length - 1] and takes any arguments:
///
///   offset     first byte shown; may be negative or past the end (what is missing is clear)
///   length     bytes in memory; below 1, or without memory, the picture is clear
///   width      pixels of a column: held in 8..256, then cut to a multiple of 8
///   lines      held in 1..512
///   columns    held in 1..16
///   options    mode (bits 0..3; above 4 counts as 0) + zoom index x 16 (bits 4..6; 0, 6, 7 count as 1)
///              + 128 for upside down: row r shows line lines - 1 - r. Higher bits are passed over.
///   attribute  ink in bits 0..2 (set pixels), paper in bits 3..5 (clear pixels), bright in bit 6
///   palette    16 colours, red + 256 x green + 65536 x blue, high byte passed over; 0..7 normal, 8..15
///              bright; without a palette the picture keeps its colours
///
/// In every mode each pixel of that size follows the table above, also where Screen is asked for with another
/// size than 256 x 192 x 1 or Text with more than one column. Returns 1, or 0 without a device context.
std::int32_t zxShowMem(DeviceContext* hdc, const std::uint8_t* memory, std::int32_t offset,
                       std::int32_t length, std::int32_t width, std::int32_t lines, std::int32_t columns,
                       std::int32_t options, std::uint8_t attribute, const std::int32_t* palette);

/// Place, counted from the first byte of a display file, of the byte that holds pixel (x, y), 0..255 and
/// 0..191. Example: (100, 70) is 3596. Other positions give what the same arithmetic gives (division towards
/// 0), cut to 32 bits.
std::int32_t zxScreenOffset(std::int32_t x, std::int32_t y);

} // namespace lmk
