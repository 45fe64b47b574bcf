#include "display/bit_picture.h"

#include <algorithm>
#include <array>
#include <cstring>

namespace lmk {
namespace {

constexpr int kStrideUnit = 16;

bool BitAt(const std::uint8_t* bits, std::int64_t x) {
    return ((bits[x >> 3] >> (7 - (x & 7))) & 1) != 0;
}

/// Colours of four neighbouring pixels, for each value of their four bits. 256 bytes, so that building one for every
/// call costs next to nothing.
using NibbleColours = std::array<std::array<std::uint32_t, 4>, 16>;

NibbleColours MakeNibbleColours(std::uint32_t clear, std::uint32_t set) {
    NibbleColours colours;
    for (unsigned nibble = 0; nibble < 16; ++nibble)
        for (unsigned pixel = 0; pixel < 4; ++pixel)
            colours[nibble][pixel] = (nibble >> (3 - pixel)) & 1 ? set : clear;
    return colours;
}

/// Writes the colours of whole bytes, every pixel kScale times (1, 2, 4, 8 or 16), always four colours at once.
template <int kScale>
void ExpandBytes(const std::uint8_t* bits, std::int64_t count, const NibbleColours& colours,
                 std::uint32_t* target) {
    constexpr auto kFour = 4 * sizeof(std::uint32_t);
    for (std::int64_t i = 0; i < count; ++i) {
        const unsigned byte = bits[i];
        if constexpr (kScale == 1) {
            std::memcpy(target, colours[byte >> 4].data(), kFour);
            std::memcpy(target + 4, colours[byte & 15].data(), kFour);
            target += 8;
        } else if constexpr (kScale == 2) {
            for (int shift = 6; shift >= 0; shift -= 2, target += 4) {
                const unsigned pair = (byte >> shift) & 3;                       // bits ba -> bbaa
                std::memcpy(target, colours[(pair & 2) * 6 + (pair & 1) * 3].data(), kFour);
            }
        } else {
            for (int shift = 7; shift >= 0; --shift)
                for (int four = 0; four < kScale / 4; ++four, target += 4)
                    std::memcpy(target, colours[((byte >> shift) & 1) * 15].data(), kFour);
        }
    }
}

/// Writes the enlarged row from screen pixel `begin` to `end`, which both lie in the enlarged picture.
class RowExpander {
public:
    RowExpander(int scale, std::uint32_t clear, std::uint32_t set)
        : scale_(scale), colours_(MakeNibbleColours(clear, set)) {}

    void Row(const std::uint8_t* bits, std::int64_t begin, std::int64_t end, std::uint32_t* target) const {
        const std::int64_t byteWidth = 8 * scale_;
        const std::int64_t firstByte = (begin + byteWidth - 1) / byteWidth, endByte = end / byteWidth;
        if (!HasFastBytes() || firstByte >= endByte) {
            Pixels(bits, begin, end, target);
            return;
        }
        Pixels(bits, begin, firstByte * byteWidth, target);
        Bytes(bits + firstByte, endByte - firstByte, target + (firstByte * byteWidth - begin));
        Pixels(bits, endByte * byteWidth, end, target + (endByte * byteWidth - begin));
    }

private:
    bool HasFastBytes() const { return scale_ <= 16 && (scale_ & (scale_ - 1)) == 0; }

    void Bytes(const std::uint8_t* bits, std::int64_t count, std::uint32_t* target) const {
        switch (scale_) {
        case 1: return ExpandBytes<1>(bits, count, colours_, target);
        case 2: return ExpandBytes<2>(bits, count, colours_, target);
        case 4: return ExpandBytes<4>(bits, count, colours_, target);
        case 8: return ExpandBytes<8>(bits, count, colours_, target);
        default: return ExpandBytes<16>(bits, count, colours_, target);
        }
    }

    void Pixels(const std::uint8_t* bits, std::int64_t begin, std::int64_t end, std::uint32_t* target) const {
        for (std::int64_t x = begin / scale_; begin < end; ++x) {
            const std::int64_t next = std::min((x + 1) * scale_, end);
            target = std::fill_n(target, next - begin, colours_[BitAt(bits, x) ? 15 : 0][0]);
            begin = next;
        }
    }

    std::int64_t scale_;
    NibbleColours colours_;
};

} // namespace

void BitPicture::Resize(int width, int height) {
    width_ = std::max(width, 0);
    height_ = std::max(height, 0);
    const std::int64_t bytes = (std::int64_t{width_} + 7) / 8;
    stride_ = static_cast<int>((bytes + kStrideUnit - 1) / kStrideUnit * kStrideUnit);
    bits_.assign(static_cast<std::size_t>(stride_) * static_cast<std::size_t>(height_), 0);
}

void BitPicture::SetPixel(int x, int y, bool on) {
    if (!Holds(x, y))
        return;
    std::uint8_t& byte = Row(y)[x >> 3];
    const int mask = 0x80 >> (x & 7);
    byte = static_cast<std::uint8_t>(on ? byte | mask : byte & ~mask);
}

void BitPicture::CopyArea(const BitPicture& source, const Rect& area) {
    if (&source == this) {
        const BitPicture copy = source;
        CopyArea(copy, area);
        return;
    }
    Resize(area.width, area.height);
    foreColour = source.foreColour;
    backColour = source.backColour;

    const std::int64_t left = area.x;
    const std::int64_t firstByte = left >> 3; // rounds down, also left of the source
    const int shift = static_cast<int>(left & 7);
    const std::int64_t sourceBytes = (std::int64_t{source.width_} + 7) / 8;
    const std::int64_t targetBytes = (std::int64_t{width_} + 7) / 8;
    // Byte i of a row is cut from the source's bytes firstByte + i and the one after; others are clear already.
    const std::int64_t begin = std::clamp<std::int64_t>(-firstByte - 1, 0, targetBytes);
    const std::int64_t end = std::clamp<std::int64_t>(sourceBytes - firstByte, begin, targetBytes);
    const int lastMask = (width_ & 7) != 0 ? 0xff00 >> (width_ & 7) : 0xff;

    for (int row = 0; row < height_; ++row) {
        const std::int64_t sourceRow = std::int64_t{area.y} + row;
        if (sourceRow < 0 || sourceRow >= source.height_ || begin == end)
            continue;
        const std::uint8_t* from = source.Row(static_cast<int>(sourceRow));
        std::uint8_t* to = Row(row);
        for (std::int64_t i = begin; i < end; ++i) {
            const std::int64_t at = firstByte + i;
            const int high = at >= 0 ? from[at] : 0;
            const int low = at + 1 < sourceBytes ? from[at + 1] : 0;
            to[i] = static_cast<std::uint8_t>(((high << 8) | low) >> (8 - shift));
        }
        to[targetBytes - 1] = static_cast<std::uint8_t>(to[targetBytes - 1] & lastMask);
    }
}

void BitPicture::Expand(const Rect& screen, int scale, std::uint32_t* target, std::ptrdiff_t stride) const {
    if (screen.width <= 0 || screen.height <= 0)
        return;
    scale = std::clamp(scale, 1, kMaxScale);
    const std::int64_t pictureWidth = std::int64_t{width_} * scale, pictureHeight = std::int64_t{height_} * scale;
    const std::int64_t left = screen.x, right = left + screen.width;
    const std::int64_t begin = std::clamp<std::int64_t>(left, 0, pictureWidth);
    const std::int64_t end = std::clamp<std::int64_t>(right, begin, pictureWidth);
    const std::int64_t before = std::min(begin - left, right - left), inside = end - begin;
    const auto rowBytes = static_cast<std::size_t>(screen.width) * sizeof(std::uint32_t);

    const RowExpander expander(scale, backColour, foreColour);
    std::int64_t shownRow = -1; // picture row that stands in the target row above, -1 for none
    for (int i = 0; i < screen.height; ++i, target += stride) {
        const std::int64_t y = std::int64_t{screen.y} + i;
        const bool inPicture = y >= 0 && y < pictureHeight && inside > 0;
        const std::int64_t row = inPicture ? y / scale : -1;
        if (!inPicture) {
            std::fill_n(target, screen.width, backColour);
        } else if (row == shownRow) {
            std::memcpy(target, target - stride, rowBytes);
        } else {
            std::fill_n(target, before, backColour);
            expander.Row(Row(static_cast<int>(row)), begin, end, target + before);
            std::fill_n(target + before + inside, screen.width - before - inside, backColour);
        }
        shownRow = row;
    }
}

void BitPicture::ExpandRowBits(int row, int scale, std::uint8_t* target) const {
    scale = std::clamp(scale, 1, kMaxScale);
    const std::int64_t bits = std::int64_t{width_} * scale;
    std::fill_n(target, (bits + 7) / 8, std::uint8_t{0});
    if (row < 0 || row >= height_)
        return;
    const std::uint8_t* from = Row(row);
    for (int x = 0; x < width_; ++x) {
        if (!BitAt(from, x))
            continue;
        const std::int64_t begin = std::int64_t{x} * scale, last = begin + scale - 1;
        const int firstMask = 0xff >> (begin & 7), lastMask = (0xff00 >> ((last & 7) + 1)) & 0xff;
        std::uint8_t* first = target + (begin >> 3);
        std::uint8_t* final = target + (last >> 3);
        if (first == final) {
            *first = static_cast<std::uint8_t>(*first | (firstMask & lastMask));
        } else {
            *first = static_cast<std::uint8_t>(*first | firstMask);
            std::fill(first + 1, final, std::uint8_t{0xff});
            *final = static_cast<std::uint8_t>(*final | lastMask);
        }
    }
}

} // namespace lmk
