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

/// Writes screen pixels `begin` to `end`, which lie in the enlarged rows, as colours: at the scales 1, 2, 4,
/// 8 and 16 always four at once. The table has those four for each value of the bits that they show: 4 bits
/// at scale 1, 2 at scale 2, else 1. It is 256 bytes at most, so that building one for every call costs next
/// to nothing.
class RowExpander {
  public:
    RowExpander(int scale, std::int64_t begin, std::int64_t end, std::uint32_t clear, std::uint32_t set)
        : scale_(scale), begin_(begin), end_(end), clear_(clear), set_(set) {
        const unsigned bits = scale == 1 ? 4 : scale == 2 ? 2 : 1;
        for (unsigned value = 0; value < 1U << bits; ++value) {
            for (unsigned pixel = 0; pixel < 4; ++pixel) {
                fours_[value][pixel] = (value >> (bits - 1 - pixel * bits / 4) & 1) != 0 ? set : clear;
            }
        }

        isFast_ = scale <= kMaxFastScale && (scale & (scale - 1)) == 0;
        const std::int64_t byteWidth = 8 * scale_;
        firstByte_ = (begin + byteWidth - 1) / byteWidth;
        wholeBytes_ = std::max<std::int64_t>(end / byteWidth - firstByte_, 0);
        skip_ = begin - (firstByte_ - 1) * byteWidth;
        head_ = std::min(end, firstByte_ * byteWidth) - begin;
        middle_ = wholeBytes_ * byteWidth;
        tail_ = end - begin - head_ - middle_;
    }

    void Row(const std::uint8_t* bits, std::uint32_t* target) const {
        if (!isFast_) {
            Pixels(bits, target);
            return;
        }
        if (head_ > 0) {
            target = PartOfByte(bits[firstByte_ - 1], skip_, head_, target);
        }
        WholeBytes(bits + firstByte_, wholeBytes_, target);
        if (tail_ > 0) {
            PartOfByte(bits[firstByte_ + wholeBytes_], 0, tail_, target + middle_);
        }
    }

  private:
    static constexpr int kMaxFastScale = 16;

    /// Every kBits bits choose four colours, which are written kRepeat times.
    template <unsigned kBits, unsigned kRepeat>
    void WriteFours(const std::uint8_t* __restrict bits, std::int64_t count,
                    std::uint32_t* __restrict target) const {
        constexpr unsigned kSteps = 8 / kBits, kFour = sizeof fours_[0], kMask = ((1U << kBits) - 1) * kFour;
        const auto* const fours = reinterpret_cast<const std::uint8_t*>(fours_);
#pragma GCC unroll 4
        for (std::int64_t i = 0; i < count; ++i) {
            const unsigned byte = bits[i] * kFour; // counted in bytes of the table from here on
#pragma GCC unroll 8
            for (unsigned step = 1; step <= kSteps; ++step) {
                const std::uint8_t* four = fours + (byte >> (8 - step * kBits) & kMask);
                for (unsigned repeat = 0; repeat < kRepeat; ++repeat, target += 4) {
                    std::memcpy(target, four, kFour);
                }
            }
        }
    }

    void WholeBytes(const std::uint8_t* bits, std::int64_t count, std::uint32_t* target) const {
        switch (scale_) {
        case 1: return WriteFours<4, 1>(bits, count, target);
        case 2: return WriteFours<2, 1>(bits, count, target);
        case 4: return WriteFours<1, 1>(bits, count, target);
        case 8: return WriteFours<1, 2>(bits, count, target);
        default: return WriteFours<1, 4>(bits, count, target);
        }
    }

    std::uint32_t* PartOfByte(std::uint8_t byte, std::int64_t skip, std::int64_t count,
                              std::uint32_t* target) const {
        std::uint32_t whole[8 * kMaxFastScale];
        WholeBytes(&byte, 1, whole);
        return std::copy_n(whole + skip, count, target);
    }

    /// The road for every other scale.
    void Pixels(const std::uint8_t* bits, std::uint32_t* target) const {
        std::int64_t at = begin_;
        for (std::int64_t x = begin_ / scale_; at < end_; ++x) {
            const std::int64_t next = std::min((x + 1) * scale_, end_);
            target = std::fill_n(target, next - at, BitAt(bits, x) ? set_ : clear_);
            at = next;
        }
    }

    std::int64_t scale_, begin_, end_;
    std::uint32_t clear_, set_;
    std::uint32_t fours_[16][4];
    bool isFast_;
    // Screen pixels of the byte that begins before `begin`, of whole bytes, and of the byte that `end` cuts.
    std::int64_t firstByte_, wholeBytes_, skip_, head_, middle_, tail_;
};

/// Every half of a byte with its four bits widened: kScale x 4 bits, whole bytes for an even scale.
template <int kScale> constexpr auto WidenedHalves() {
    std::array<std::array<std::uint8_t, std::size_t{kScale / 2}>, 16> halves{};
    for (unsigned value = 0; value < 16; ++value) {
        for (unsigned bit = 0; bit < 4 * kScale; ++bit) {
            if ((value >> (3 - bit / kScale) & 1) != 0) {
                halves[value][bit / 8] = static_cast<std::uint8_t>(halves[value][bit / 8] | 0x80 >> bit % 8);
            }
        }
    }
    return halves;
}

/// Writes `count` bytes of pixels, every pixel kScale times, one bit a pixel.
template <int kScale> void WidenBytes(const std::uint8_t* from, int count, std::uint8_t* target) {
    static constexpr auto kHalves = WidenedHalves<kScale>();
    constexpr std::size_t kBytes = kHalves[0].size();
    for (int i = 0; i < count; ++i, target += 2 * kBytes) {
        std::memcpy(target, kHalves[from[i] >> 4].data(), kBytes);
        std::memcpy(target + kBytes, kHalves[from[i] & 15].data(), kBytes);
    }
}

} // namespace

void BitPicture::Resize(int width, int height) {
    width_ = std::max(width, 0);
    height_ = std::max(height, 0);
    const std::int64_t bytes = (std::int64_t{width_} + 7) / 8;
    stride_ = static_cast<int>((bytes + kStrideUnit - 1) / kStrideUnit * kStrideUnit);
    const std::size_t size = static_cast<std::size_t>(stride_) * static_cast<std::size_t>(height_);
    bits_.assign((size + sizeof(CacheLine) - 1) / sizeof(CacheLine), CacheLine{});
}

void BitPicture::CopyArea(const BitPicture& source, const Rect& area) {
    if (&source == this) {
        // Resize clears the original. NOLINTNEXTLINE(performance-unnecessary-copy-initialization)
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
    // Byte i of a row is cut from the source's bytes firstByte + i and the one after; the others stay clear.
    const std::int64_t begin = std::clamp<std::int64_t>(-firstByte - 1, 0, targetBytes);
    const std::int64_t end = std::clamp<std::int64_t>(sourceBytes - firstByte, begin, targetBytes);
    const int lastMask = (width_ & 7) != 0 ? 0xff00 >> (width_ & 7) : 0xff;

    for (int row = 0; row < height_; ++row) {
        const std::int64_t sourceRow = std::int64_t{area.y} + row;
        if (sourceRow < 0 || sourceRow >= source.height_ || begin == end) {
            continue;
        }
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
    if (screen.width <= 0 || screen.height <= 0) {
        return;
    }
    scale = std::clamp(scale, 1, kMaxScale);
    const std::int64_t pictureWidth = std::int64_t{width_} * scale;
    const std::int64_t pictureHeight = std::int64_t{height_} * scale;
    const std::int64_t left = screen.x, right = left + screen.width;
    const std::int64_t begin = std::clamp<std::int64_t>(left, 0, pictureWidth);
    const std::int64_t end = std::clamp<std::int64_t>(right, begin, pictureWidth);
    const std::int64_t before = std::min(begin - left, right - left), inside = end - begin;
    const auto rowBytes = static_cast<std::size_t>(screen.width) * sizeof(std::uint32_t);

    const RowExpander expander(scale, begin, end, backColour, foreColour);
    constexpr std::int64_t kOutside = -1, kNone = -2;
    std::int64_t rowAbove = kNone; // picture row, or kOutside, that the target row above shows
    for (int i = 0; i < screen.height; ++i, target += stride) {
        const std::int64_t y = std::int64_t{screen.y} + i;
        const std::int64_t row = y >= 0 && y < pictureHeight && inside > 0 ? y / scale : kOutside;
        if (row == rowAbove) {
            std::memcpy(target, target - stride, rowBytes);
        } else if (row == kOutside) {
            std::fill_n(target, screen.width, backColour);
        } else {
            std::fill_n(target, before, backColour);
            expander.Row(Row(static_cast<int>(row)), target + before);
            std::fill_n(target + before + inside, screen.width - before - inside, backColour);
        }
        rowAbove = row;
    }
}

void BitPicture::ExpandRowBits(int row, int scale, std::uint8_t* target) const {
    scale = std::clamp(scale, 1, kMaxScale);
    const std::int64_t bits = std::int64_t{width_} * scale;
    std::fill_n(target, (bits + 7) / 8, std::uint8_t{0});
    if (row < 0 || row >= height_) {
        return;
    }
    const std::uint8_t* from = Row(row);
    // The factors of a view take the fast road as far as whole bytes go.
    int x = width_ / 8 * 8;
    switch (scale) {
    case 2: WidenBytes<2>(from, width_ / 8, target); break;
    case 4: WidenBytes<4>(from, width_ / 8, target); break;
    case 8: WidenBytes<8>(from, width_ / 8, target); break;
    case 16: WidenBytes<16>(from, width_ / 8, target); break;
    default: x = 0; break;
    }
    for (; x < width_; ++x) {
        if (!BitAt(from, x)) {
            continue;
        }
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
