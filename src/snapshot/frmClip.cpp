#include "snapshot/frmClip.h"

#include "snapshot/bitmap_export.h"

namespace lumrake {

frmClip& frmClip::Instance() {
    static frmClip clipboard;
    return clipboard;
}

void frmClip::SaveToBMP(const lmk::BitPicture& picture) const {
    ExportBitmap(picture, 1);
}

} // namespace lumrake
