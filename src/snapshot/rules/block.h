#pragma once

#include "snapshot/rules/addressing.h"
#include "snapshot/rules/net.h"

#include <functional>
#include <string>
#include <string_view>

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

/// Clears every pixel of a block.
void ClearBlock(std::span<std::uint8_t> byMemory, const ViewNumbers& view, const PixelBlock& block,
                const RowProgress& progress = {});

/// Writes such a text over the pixels of a block; both values are written, nothing is transparent. Any
/// character but "1" clears. Rows that `sData` is too short for stay as they are.
void DropBlock(std::span<std::uint8_t> byMemory, const ViewNumbers& view, const PixelBlock& block,
               std::string_view sData);

} // namespace lumrake
