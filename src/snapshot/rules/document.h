#pragma once

#include "base/changed_blocks.h"
#include "base/memory_block.h"
#include "snapshot/rules/addressing.h"
#include "snapshot/rules/block.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string_view>

namespace lumrake {

/// A document: the bytes of a file, the numbers that say how they are looked at, and whether the bytes differ from
/// those of the file. It knows no window. Every byte that changes is changed here, and here alone it is noted.
class SnapshotDocument {
  public:
    ViewNumbers view;            ///< what is looked at, and how
    std::int16_t iAttribute = 0; ///< attribute byte of the whole view

    /// Takes the bytes over as those of the file. The view is for the caller to set.
    void Open(MemoryBlock bytes);
    /// The whole file, of constant size from Open on.
    const MemoryBlock& Memory() const { return byMemory; }
    std::span<const std::uint8_t> Bytes() const { return byMemory.Bytes(); }

    /// -1 when the bytes may differ from those of the file, else 0.
    std::int16_t Changed() const { return bChanged; }
    /// The file has the bytes as they now are.
    void Saved();
    /// Which of the bytes differ, for whoever keeps them.
    ChangedBlocks& Blocks() { return blocks; }
    /// Lays bytes that were kept over those of a block, as far as the document reaches.
    void LayOver(std::size_t number, std::span<const std::uint8_t> bytes);

    /// Sets (iValue 1) or clears (any other value) the bit of a picture pixel. A place outside the picture, which is
    /// nothing, and one past the end of the memory fall away, but the document counts as changed all the same. True
    /// when the pixel has a byte in the memory.
    bool WritePixel(const std::optional<PicturePixel>& pixel, std::int16_t iValue);
    /// 1 or 0; 0 outside the picture and past the end.
    std::int16_t ReadPixel(const std::optional<PicturePixel>& pixel) const;

    /// Clears every pixel of a block. An empty block changes nothing.
    void ClearBlock(const PixelBlock& block, const RowProgress& progress = {});
    /// Writes the text of a block (LiftBlock) over the pixels of a block; both values are written, nothing is
    /// transparent. Any character but "1" clears. Rows that `sData` is too short for stay as they are. An empty block
    /// changes nothing.
    void DropBlock(PixelBlock block, std::string_view sData);

  private:
    void SetChanged() { bChanged = -1; }
    /// The one place where a byte of the document is written: those of its bits that are in `mask`.
    void Put(std::size_t place, int mask, int bits) {
        blocks.Touch(Bytes(), place);
        std::uint8_t& byte = byMemory.data()[place];
        byte = static_cast<std::uint8_t>((byte & ~mask) | bits);
    }

    MemoryBlock byMemory;
    ChangedBlocks blocks;
    std::int16_t bChanged = 0;
};

} // namespace lumrake
