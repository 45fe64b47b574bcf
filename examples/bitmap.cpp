#include "bitmap.h"

#include <algorithm>
#include <cmath>

namespace lumrake::examples {

namespace {

// Eight pixels from (8 * column, y) on.
std::uint8_t ByteAt(const Bitmap& picture, int column, int y) {
    unsigned value = 0;
    for (int bit = 0; bit < 8; ++bit) {
        value = value * 2 + (picture.At(8 * column + bit, y) ? 1U : 0U);
    }
    return static_cast<std::uint8_t>(value);
}

std::uint8_t MaskAt(const Bitmap& cutOut, int column, int y) {
    return static_cast<std::uint8_t>(255U - ByteAt(cutOut, column, y));
}

} // namespace

Bitmap::Bitmap(int width, int height)
    : width_(width), height_(height),
      pixels_(static_cast<std::size_t>(width) * static_cast<std::size_t>(height)) {}

bool Bitmap::At(int x, int y) const {
    return x >= 0 && x < width_ && y >= 0 && y < height_ && pixels_[static_cast<std::size_t>(y * width_ + x)];
}

void Bitmap::Put(int x, int y, bool on) {
    if (x >= 0 && x < width_ && y >= 0 && y < height_) {
        pixels_[static_cast<std::size_t>(y * width_ + x)] = on;
    }
}

void Bitmap::Stroke(double x0, double y0, double x1, double y1, double radius, bool on) {
    const double dx = x1 - x0;
    const double dy = y1 - y0;
    const double square = dx * dx + dy * dy;
    for (int y = 0; y < height_; ++y) {
        for (int x = 0; x < width_; ++x) {
            const double along = square > 0 ? ((x - x0) * dx + (y - y0) * dy) / square : 0.0;
            const double t = std::clamp(along, 0.0, 1.0);
            if (std::hypot(x - x0 - t * dx, y - y0 - t * dy) <= radius) {
                Put(x, y, on);
            }
        }
    }
}

void Bitmap::Box(int left, int top, int width, int height, bool on) {
    for (int y = top; y < top + height; ++y) {
        for (int x = left; x < left + width; ++x) {
            Put(x, y, on);
        }
    }
}

Bitmap FromStrips(std::span<const std::string_view> rows, int size, int index) {
    const int perStrip = (static_cast<int>(rows.front().size()) + 1) / (size + 1);
    const int top = index / perStrip * size;
    const int left = index % perStrip * (size + 1);
    Bitmap picture(size, size);
    for (int y = 0; y < size; ++y) {
        const std::string_view row = rows[static_cast<std::size_t>(top + y)];
        for (int x = 0; x < size; ++x) {
            picture.Put(x, y, row[static_cast<std::size_t>(left + x)] == '#');
        }
    }
    return picture;
}

Bitmap CutOut(const Bitmap& sprite) {
    // Water runs in from a frame one pixel wide around the sprite; what stays dry belongs to the figure.
    const int width = sprite.Width() + 2;
    const int height = sprite.Height() + 2;
    Bitmap wet(width, height);
    std::vector<std::pair<int, int>> open{{0, 0}};
    while (!open.empty()) {
        const auto [x, y] = open.back();
        open.pop_back();
        if (x < 0 || y < 0 || x >= width || y >= height || wet.At(x, y) || sprite.At(x - 1, y - 1)) {
            continue;
        }
        wet.Put(x, y);
        open.insert(open.end(), {{x + 1, y}, {x - 1, y}, {x, y + 1}, {x, y - 1}});
    }
    Bitmap result(sprite.Width(), sprite.Height());
    for (int y = 0; y < sprite.Height(); ++y) {
        for (int x = 0; x < sprite.Width(); ++x) {
            bool near = !wet.At(x + 1, y + 1);
            for (int dy = -1; dy <= 1; ++dy) {
                for (int dx = -1; dx <= 1; ++dx) {
                    near = near || sprite.At(x + dx, y + dy);
                }
            }
            result.Put(x, y, near);
        }
    }
    return result;
}

void Overlay(Bitmap& picture, const Bitmap& sprite, int x, int y) {
    for (int row = 0; row < sprite.Height(); ++row) {
        for (int column = 0; column < sprite.Width(); ++column) {
            if (sprite.At(column, row)) {
                picture.Put(x + column, y + row);
            }
        }
    }
}

void Stamp(Bitmap& picture, const Bitmap& sprite, int x, int y) {
    const Bitmap cut = CutOut(sprite);
    for (int row = 0; row < cut.Height(); ++row) {
        for (int column = 0; column < cut.Width(); ++column) {
            if (cut.At(column, row)) {
                picture.Put(x + column, y + row, false);
            }
        }
    }
    Overlay(picture, sprite, x, y);
}

Bitmap Doubled(const Bitmap& picture) {
    // Each pixel becomes four; a corner takes the value of its two outer neighbours where these agree and the
    // opposite two don't join in.
    Bitmap result(picture.Width() * 2, picture.Height() * 2);
    for (int y = 0; y < picture.Height(); ++y) {
        for (int x = 0; x < picture.Width(); ++x) {
            const bool self = picture.At(x, y);
            const bool up = picture.At(x, y - 1);
            const bool down = picture.At(x, y + 1);
            const bool left = picture.At(x - 1, y);
            const bool right = picture.At(x + 1, y);
            result.Put(2 * x, 2 * y, left == up && left != down && up != right ? up : self);
            result.Put(2 * x + 1, 2 * y, up == right && up != left && right != down ? right : self);
            result.Put(2 * x, 2 * y + 1, down == left && down != right && left != up ? left : self);
            result.Put(2 * x + 1, 2 * y + 1, right == down && right != up && down != left ? down : self);
        }
    }
    return result;
}

Bytes PlainRows(const Bitmap& picture) {
    Bytes bytes;
    for (int y = 0; y < picture.Height(); ++y) {
        for (int column = 0; column < picture.Width() / 8; ++column) {
            bytes.push_back(ByteAt(picture, column, y));
        }
    }
    return bytes;
}

Bytes MaskedLines(const Bitmap& picture) {
    const Bitmap cut = CutOut(picture);
    Bytes bytes;
    for (int y = 0; y < picture.Height(); ++y) {
        for (int column = 0; column < picture.Width() / 8; ++column) {
            bytes.push_back(ByteAt(picture, column, y));
        }
        for (int column = 0; column < picture.Width() / 8; ++column) {
            bytes.push_back(MaskAt(cut, column, y));
        }
    }
    return bytes;
}

Bytes MaskedBytes(const Bitmap& picture) {
    const Bitmap cut = CutOut(picture);
    Bytes bytes;
    for (int y = 0; y < picture.Height(); ++y) {
        for (int column = 0; column < picture.Width() / 8; ++column) {
            bytes.push_back(ByteAt(picture, column, y));
            bytes.push_back(MaskAt(cut, column, y));
        }
    }
    return bytes;
}

Bytes DisplayFile(const Bitmap& picture) {
    Bytes bytes;
    for (int third = 0; third < 3; ++third) {
        for (int scan = 0; scan < 8; ++scan) {
            for (int characterRow = 0; characterRow < 8; ++characterRow) {
                for (int column = 0; column < 32; ++column) {
                    bytes.push_back(ByteAt(picture, column, third * 64 + characterRow * 8 + scan));
                }
            }
        }
    }
    return bytes;
}

void Append(Bytes& bytes, const Bytes& more) {
    bytes.insert(bytes.end(), more.begin(), more.end());
}

} // namespace lumrake::examples
