#include "snapshot/frmSnapshot.h"

#include "controls/common_dialog.h"
#include "controls/message_box.h"
#include "disk/files.h"
#include "disk/save_file.h"
#include "shell/shell.h"
#include "snapshot/bitmap_export.h"
#include "snapshot/frmClip.h"
#include "snapshot/rules/block.h"
#include "snapshot/rules/raw_export.h"

#include <QPointer>

#include <vector>

namespace lumrake {

void frmSnapshot::ExportViewToBMP() {
    ExportBitmap(picImage->hDC().Picture(), view.iZoomFactor);
}

void frmSnapshot::ExportViewToRaw() {
    const QPointer<frmSnapshot> window(this);
    const QString sFile =
        AskNewFileName(QStringLiteral("Save Raw file as..."),
                       QStringLiteral("Raw files (*.RAW)|*.RAW|All files (*.*)|*.*"), QString())
            .value_or(QString());
    if (sFile.isEmpty() || window.isNull()) {
        return;
    }
    const RawExport rows(byMemory.Bytes(), view);                     // from here on the window is not needed
    const std::int32_t rowsAtOnce = lmk::RowOf(view.iMode).linesUnit; // Text is served by rows of characters
    ShowProgress(true);
    std::vector<std::uint8_t> bytes; // at most 256 KiB
    bytes.reserve(static_cast<std::size_t>(rows.Rows() * rows.RowBytes()));
    for (std::int32_t row = 0; row < rows.Rows(); ++row) {
        const auto from = rows.Row(row);
        bytes.insert(bytes.end(), from.begin(), from.end());
        if ((row + 1) % rowsAtOnce == 0 && !window.isNull()) {
            window->ShowStage(rows.Progress(row + 1 - rowsAtOnce));
        }
    }
    const Outcome saved = WriteWholeFile(sFile, bytes);
    if (!window.isNull()) {
        window->ShowProgress(false);
    }
    TellFailure(saved.During(QStringLiteral("The raw data could not be saved.")), QStringLiteral("Save"));
}

void frmSnapshot::ExportSelectionToBMP() {
    const PixelBlock block = BlockUnder(shpNet, view.iZoomFactor);
    if (block.IsEmpty()) {
        MsgBox(QStringLiteral("The selection has no width or no height.  There is nothing to save."),
               BoxButtons::Ok, BoxIcon::Information, QStringLiteral("Save"));
        return;
    }
    lmk::BitPicture picture;
    picture.CopyArea(picImage->hDC().Picture(), {block.iLeft, block.iTop, block.iWidth, block.iHeight});
    frmClip::Instance().SaveToBMP(picture);
}

} // namespace lumrake
