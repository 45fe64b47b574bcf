#pragma once

#include "snapshot/rules/addressing.h"
#include "snapshot/rules/net.h"

#include <algorithm>
#include <cstddef>
#include <functional>
#include <string>

namespace lumrake {

/// A block: a rectangle of picture pixels as the user sees them, counted from the picture's top left corner.
/// It may reach past the picture on any side; positions there are no pixels: they read 0 and writes to them
/// fall away, as they do past the end of the memory.
struct PixelBlock {
    std::int32_t iLeft = 0, iTop = 0, iWidth = 0, iHeight = 0;

    bool IsEmpty() const { return iWidth <= 0 || iHeight <= 0; }
    bool operator==(const PixelBlock&) const = default;
};

/// Longest side of a block in picture pixels. A net dragged further, far outside the picture, is cut at the
/// right and at the bottom, so that the data of a block never take more than 64 MiB.
inline constexpr std::int32_t kMaxBlockSide = 8192;

/// The pixels whose corners lie under the net: from Left on in steps of the factor up to Left + Width - 1,
/// and from Top on up to Top + Height - iZoomFactor. A net lower than one picture pixel has no rows.
PixelBlock BlockUnder(const NetRect& net, std::int32_t iZoomFactor);

/// Told before each row: how many rows are done, and of how many.
using RowProgress = std::function<void(std::int32_t iRow, std::int32_t iRows)>;

/// The pixels of a block as text: "1" for a set bit and "0" for a clear one, top row first, left to right,
/// with nothing between; iWidth x iHeight characters, none for an empty block.
std::string LiftBlock(std::span<const std::uint8_t> byMemory, const ViewNumbers& view,
                      const PixelBlock& block, const RowProgress& progress = {});

/// The pixels of one row of a block that share a byte of the memory: `count` bits from iBit downwards, whose place in
/// the row of the block is `column`.
struct BlockRun {
    std::size_t place; ///< of the byte
    std::int32_t iBit, count, column;

    int Mask() const { return 0xff >> (8 - count) << (iBit + 1 - count); }
};

/// Calls visit(row, run) for each byte of `memorySize` bytes that the block touches, top row first, left to right. Eight
/// neighbouring pixels share a byte in every mode: one LocatePixel for the first pixel of the byte that the row
/// touches, and the others are the bits below it. That keeps the one addressing rule and costs an eighth of asking it
/// for every pixel.
template <typename Visit>
void ForEachRun(std::size_t memorySize, const ViewNumbers& view, const PixelBlock& block,
                const RowProgress& progress, Visit visit) {
    const std::int32_t end = std::min(block.iLeft + block.iWidth, view.PictureWidth());
    for (std::int32_t row = 0; row < block.iHeight; ++row) {
        if (progress) {
            progress(row, block.iHeight);
        }
        const std::int32_t y = block.iTop + row;
        const bool isInside = y >= 0 && y < view.iLines;
        for (std::int32_t x = std::max(block.iLeft, 0), next = 0; isInside && x < end; x = next) {
            next = std::min((x / 8 + 1) * 8, end);
            if (const auto at = AddressIn(memorySize, view, {x, y})) {
                visit(row,
                      BlockRun{static_cast<std::size_t>(at->lAddress), at->iBit, next - x, x - block.iLeft});
            }
        }
    }
}

} // namespace lumrake
