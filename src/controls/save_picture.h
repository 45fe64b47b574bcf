#pragma once

#include "disk/outcome.h"
#include "display/bit_picture.h"

namespace lumrake {

/// Writes a picture enlarged `factor` times (1 to 64) as a Windows bitmap: one bit a pixel, uncompressed, the
/// two colours as palette (entry 0 the clear bits' colour, entry 1 the set bits'), width x factor by height x
/// factor pixels. The enlarged picture and its file exist only meanwhile: 64 MiB each for 65536 x 8192 pixels. A
/// picture without width or height has no bitmap: that is a failure, as is a lack of memory. Atomic as
/// WriteWholeFile.
Outcome SavePicture(const QString& path, const lmk::BitPicture& picture, int factor);

} // namespace lumrake
