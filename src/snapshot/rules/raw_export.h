#pragma once

#include "display/lmk.h"
#include "snapshot/rules/addressing.h"

#include <cstdint>
#include <span>

namespace lumrake {

/// A view as raw data: rows of packed pixels, eight in a byte with the leftmost in bit 7, without masks,
/// interleaving or flip. Row n holds line n of every column, from the left. Bytes past the end of the memory
/// are 0, so a view always has its full size: Rows() x RowBytes() bytes.
///
///   mode                        bytes in a row        rows
///   Graphics and both masks     iColumns * iWidth/8   iLines
///   Screen                      32                    192
///   Text                        iWidth/8              iLines
///
/// Example: Graphics, lOffset 0, iWidth 16, iLines 2, iColumns 2 gives the memory's bytes 0, 1, 4, 5, 2, 3,
/// 6, 7; Line masks 0, 1, 8, 9, 4, 5, 12, 13; Byte masks 0, 2, 8, 10, 4, 6, 12, 14.
class RawExport {
  public:
    /// Takes the rows as the memory is now; it is not needed afterwards.
    RawExport(std::span<const std::uint8_t> byMemory, const ViewNumbers& view);

    std::int32_t RowBytes() const { return context_.Picture().Width() / 8; }
    std::int32_t Rows() const { return context_.Picture().Height(); }
    /// The bytes of a row, 0 <= row < Rows().
    std::span<const std::uint8_t> Row(std::int32_t row) const;
    /// What a progress bar (0 to 100) shows when a row is finished: the share of the bytes before that row.
    std::int32_t Progress(std::int32_t row) const { return 100 * row / Rows(); }

  private:
    lmk::DeviceContext context_;
};

} // namespace lumrake
