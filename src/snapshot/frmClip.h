#pragma once

#include "display/bit_picture.h"

#include <cstdint>
#include <string>

namespace lumrake {

/// The clipboard of the program's own: the last block copied, as pixel values and as a picture. It is never
/// shown and outlives all windows. The system's clipboard is not involved.
class frmClip {
  public:
    /// The one clipboard, made at its first use.
    static frmClip& Instance();

    /// The pixels of the block, one character each, "1" set and "0" clear: top row first as seen on the
    /// screen, left to right, picClip.Width() characters to a row. Empty when there is no block.
    const std::string& GetData() const { return sClipData; }
    void SetData(std::string NewData) { sClipData = std::move(NewData); }
    /// -1 when there is no block, else 0.
    std::int16_t IsEmpty() const { return sClipData.empty() ? std::int16_t{-1} : std::int16_t{0}; }

    /// Asks for a name and writes a picture as a bitmap, one pixel for each of its pixels. The picture is the
    /// caller's, so that an export leaves the block that was copied alone. A failure is told.
    void SaveToBMP(const lmk::BitPicture& picture) const;

    /// The block as it looked, in the colours of the view it came from, one pixel for each picture pixel.
    lmk::BitPicture picClip;

  private:
    std::string sClipData;
};

} // namespace lumrake
