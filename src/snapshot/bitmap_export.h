#pragma once

#include "display/bit_picture.h"

namespace lumrake {

/// Asks for a name and writes the picture there as a bitmap, enlarged `factor` times. Nothing happens when
/// the user gives up; a failure is told. The picture is a copy, for its window may close before the name is given.
void ExportBitmap(lmk::BitPicture picture, int factor);

} // namespace lumrake
