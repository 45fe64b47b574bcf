#pragma once

#include <cstdint>
#include <span>
#include <string_view>
#include <vector>

namespace lumrake::examples {

using Bytes = std::vector<std::uint8_t>;

// A picture of one bit a pixel; a set pixel is the ink. Writing outside it does nothing and reading there
// gives a clear pixel, so that shapes may hang over the edge.
class Bitmap {
  public:
    Bitmap(int width, int height);

    int Width() const { return width_; }
    int Height() const { return height_; }
    bool At(int x, int y) const;
    void Put(int x, int y, bool on = true);

    // Sets or clears every pixel whose centre lies within `radius` of the line from (x0, y0) to (x1, y1), in
    // pixels; a line of no length gives a disc.
    void Stroke(double x0, double y0, double x1, double y1, double radius, bool on = true);
    void Box(int left, int top, int width, int height, bool on = true);

  private:
    int width_;
    int height_;
    std::vector<bool> pixels_;
};

// The picture number `index` of a strip: text rows in which square pictures of `size` pixels stand side by
// side with one blank between them, "#" for a set pixel. The strips of a table follow each other, `size` rows
// each.
Bitmap FromStrips(std::span<const std::string_view> rows, int size, int index);

// The area that a sprite takes away from what lies behind it: its pixels, the holes that they enclose, and an
// edge one pixel wide around both.
Bitmap CutOut(const Bitmap& sprite);

// Lays a sprite over a picture, its top left corner at (x, y): first its cut-out is cleared, then its ink is
// set.
void Stamp(Bitmap& picture, const Bitmap& sprite, int x, int y);

// Ink only: sets the pixels of the sprite and clears none.
void Overlay(Bitmap& picture, const Bitmap& sprite, int x, int y);

// Twice the size in both directions, with stairs of single pixels smoothed to slopes.
Bitmap Doubled(const Bitmap& picture);

// The four ways in which games keep their pictures. The leftmost of eight pixels is bit 7; widths are
// multiples of 8. In a mask a 1 keeps the background and a 0 cuts it out.
Bytes PlainRows(const Bitmap& picture);   // row after row
Bytes MaskedLines(const Bitmap& picture); // each row followed by its row of mask bytes
Bytes MaskedBytes(const Bitmap& picture); // each byte followed by its mask byte
Bytes DisplayFile(
    const Bitmap& picture); // 256 x 192 pixels in the order of the Spectrum's screen, 6144 bytes

void Append(Bytes& bytes, const Bytes& more);

} // namespace lumrake::examples
