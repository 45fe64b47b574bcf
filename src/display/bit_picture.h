#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace lmk {

/// A rectangle of pixels: left, top, width, height. A width or height below 1 is an empty rectangle.
struct Rect {
    int x = 0, y = 0, width = 0, height = 0;
};

/// One-bit picture: packed rows, leftmost pixel in bit 7, with the two colours that clear and set bits show.
/// All positions and sizes are picture pixels unless an operation says that it takes screen pixels.
class BitPicture {
  public:
    /// Largest factor of Expand and ExpandRowBits; factors outside 1..64 count as the nearest end.
    static constexpr int kMaxScale = 64;

    /// Sets the size (negative counts as 0) and clears every bit. Keeps its memory when it shrinks.
    void Resize(int width, int height);
    int Width() const { return width_; }
    int Height() const { return height_; }
    /// Bytes from one row to the next: a multiple of 16, so that rows can be written 16 bytes at a time. The
    /// first row starts on a cache line. The bits right of the picture are 0 and must stay 0.
    int Stride() const { return stride_; }
    /// First byte of a row, 0 <= row < Height(); not checked.
    std::uint8_t* Row(int row) { return reinterpret_cast<std::uint8_t*>(bits_.data()) + Start(row); }
    const std::uint8_t* Row(int row) const {
        return reinterpret_cast<const std::uint8_t*>(bits_.data()) + Start(row);
    }

    /// True for a set bit; false outside the picture.
    bool PixelAt(int x, int y) const { return Holds(x, y) && ((Row(y)[x >> 3] >> (7 - (x & 7))) & 1) != 0; }
    /// Colours of set and clear bits, 0xffRRGGBB.
    std::uint32_t foreColour = 0xff000000, backColour = 0xff000000;

    /// Becomes the part `area` of `source` (which may be this picture): area.width x area.height pixels,
    /// clear where `area` lies outside the source, with the colours of the source.
    void CopyArea(const BitPicture& source, const Rect& area);

    /// Writes the rectangle `screen` (screen pixels) of the picture enlarged `scale` times as 32-bit colours,
    /// row after row, `stride` pixels apart. Pixels outside the enlarged picture take backColour. An empty
    /// rectangle writes nothing.
    void Expand(const Rect& screen, int scale, std::uint32_t* target, std::ptrdiff_t stride) const;

    /// Writes one row of the picture, every pixel `scale` times, one bit a pixel (for bitmap files): Width()
    /// x scale bits, the last byte filled up with 0. A row outside the picture is clear.
    void ExpandRowBits(int row, int scale, std::uint8_t* target) const;

  private:
    struct alignas(64) CacheLine {
        std::uint8_t bytes[64];
    };

    bool Holds(int x, int y) const { return x >= 0 && x < width_ && y >= 0 && y < height_; }
    std::ptrdiff_t Start(int row) const { return static_cast<std::ptrdiff_t>(row) * stride_; }

    int width_ = 0, height_ = 0, stride_ = 0;
    std::vector<CacheLine> bits_;
};

} // namespace lmk
