// Eight neighbouring pixels share a byte in every mode. So a row of a block is walked byte by byte: one
// LocatePixel for the first pixel of the byte that the row touches, and the others are the bits below it.
// That keeps the one addressing rule and costs an eighth of asking it for every pixel.
#include "snapshot/rules/block.h"

#include "base/numbers.h"

#include <algorithm>

namespace lumrake {

namespace {

/// The pixels of one row that share a byte: `count` bits from iBit downwards, whose place in the row of the
/// block is `column`.
struct Run {
    std::int64_t lAddress;
    std::int32_t iBit, count, column;

    std::uint8_t Mask() const { return static_cast<std::uint8_t>(0xff >> (8 - count) << (iBit + 1 - count)); }
};

/// Calls visit(run) for each byte of `memorySize` bytes that row `row` of the block touches, left to right.
template <typename Visit>
void ForEachRun(std::size_t memorySize, const ViewNumbers& view, const PixelBlock& block, std::int32_t row,
                Visit visit) {
    const std::int32_t z = view.iZoomFactor;
    const std::int32_t y = block.iTop + row;
    const std::int32_t first = std::max(block.iLeft, 0);
    const std::int32_t end = std::min(block.iLeft + block.iWidth, view.PictureWidth());
    for (std::int32_t x = first; x < end;) {
        const std::int32_t next = std::min((x / 8 + 1) * 8, end);
        const auto place =
            LocatePixel(view, static_cast<float>(x * z), static_cast<float>(y) * static_cast<float>(z));
        if (!place) {
            return; // above or below the picture
        }
        if (place->lAddress >= 0 && place->lAddress < static_cast<std::int64_t>(memorySize)) {
            visit(Run{place->lAddress, place->iBit, next - x, x - block.iLeft});
        }
        x = next;
    }
}

void Tell(const RowProgress& progress, std::int32_t row, const PixelBlock& block) {
    if (progress) {
        progress(row, block.iHeight);
    }
}

} // namespace

PixelBlock BlockUnder(const NetRect& net, std::int32_t iZoomFactor) {
    const std::int32_t z = iZoomFactor;
    return {FloorDiv(net.Left, z), FloorDiv(net.Top, z),
            std::min(FloorDiv(net.Width + z - 1, z), kMaxBlockSide), std::min(net.Height / z, kMaxBlockSide)};
}

std::string LiftBlock(std::span<const std::uint8_t> byMemory, const ViewNumbers& view,
                      const PixelBlock& block, const RowProgress& progress) {
    if (block.IsEmpty()) {
        return {};
    }
    const auto width = static_cast<std::size_t>(block.iWidth);
    std::string sData(width * static_cast<std::size_t>(block.iHeight), '0');
    for (std::int32_t row = 0; row < block.iHeight; ++row) {
        Tell(progress, row, block);
        char* const text = sData.data() + width * static_cast<std::size_t>(row);
        ForEachRun(byMemory.size(), view, block, row, [&](const Run& run) {
            const int byte = byMemory[static_cast<std::size_t>(run.lAddress)];
            for (std::int32_t i = 0; i < run.count; ++i) {
                text[run.column + i] = static_cast<char>('0' + ((byte >> (run.iBit - i)) & 1));
            }
        });
    }
    return sData;
}

void ClearBlock(std::span<std::uint8_t> byMemory, const ViewNumbers& view, const PixelBlock& block,
                const RowProgress& progress) {
    if (block.IsEmpty()) {
        return;
    }
    for (std::int32_t row = 0; row < block.iHeight; ++row) {
        Tell(progress, row, block);
        ForEachRun(byMemory.size(), view, block, row, [&](const Run& run) {
            std::uint8_t& byte = byMemory[static_cast<std::size_t>(run.lAddress)];
            byte = static_cast<std::uint8_t>(byte & ~run.Mask());
        });
    }
}

void DropBlock(std::span<std::uint8_t> byMemory, const ViewNumbers& view, const PixelBlock& block,
               std::string_view sData) {
    if (block.IsEmpty()) {
        return;
    }
    const auto width = static_cast<std::size_t>(block.iWidth);
    const auto rows =
        static_cast<std::int32_t>(std::min(sData.size() / width, static_cast<std::size_t>(block.iHeight)));
    for (std::int32_t row = 0; row < rows; ++row) {
        const std::string_view text = sData.substr(width * static_cast<std::size_t>(row), width);
        ForEachRun(byMemory.size(), view, block, row, [&](const Run& run) {
            int bits = 0;
            for (std::int32_t i = 0; i < run.count; ++i) {
                bits |= (text[static_cast<std::size_t>(run.column + i)] == '1' ? 1 : 0) << (run.iBit - i);
            }
            std::uint8_t& byte = byMemory[static_cast<std::size_t>(run.lAddress)];
            byte = static_cast<std::uint8_t>((byte & ~run.Mask()) | bits);
        });
    }
}

} // namespace lumrake
