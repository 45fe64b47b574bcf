#include "snapshot/bitmap_export.h"

#include "controls/common_dialog.h"
#include "controls/save_picture.h"
#include "controls/screen.h"
#include "shell/shell.h"

namespace lumrake {

// A copy: the window that shows it may be closed while a dialog asks.
// NOLINTNEXTLINE(performance-unnecessary-value-param)
void ExportBitmap(lmk::BitPicture picture, int factor) {
    const QString sFile =
        AskNewFileName(QStringLiteral("Save Bitmap file as..."),
                       QStringLiteral("Bitmap Files (*.BMP)|*.BMP|All files (*.*)|*.*"), QString())
            .value_or(QString());
    if (sFile.isEmpty()) {
        return;
    }
    Outcome saved = Outcome::CalledOff();
    {
        const HourglassScope hourglass;
        saved = SavePicture(sFile, picture, factor);
    }
    TellFailure(saved.During(QStringLiteral("The bitmap could not be saved.")), QStringLiteral("Save"));
}

} // namespace lumrake
