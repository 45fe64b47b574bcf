// The document: opening, drawing, saving, closing.
#include "snapshot/frmSnapshot.h"

#include "controls/message_box.h"
#include "controls/panel_bar.h"
#include "controls/screen.h"
#include "controls/value_box.h"
#include "disk/files.h"
#include "display/lmk.h"
#include "shell/shell.h"
#include "snapshot/rules/view_limits.h"

#include <QPointer>
#include <QProgressBar>

#include <limits>
#include <utility>

namespace lumrake {

namespace {

constexpr int kTitleLength = 40; ///< of the caption, in characters
constexpr int kProgressHeight = 16;

const DocumentKind kKind{
    iSnapshotCount,
    QStringLiteral("SNAPSHOT"),
    QStringLiteral("Snapshot"),
    QStringLiteral("Save"),
    QStringLiteral("Save snapshot file as..."),
    QStringLiteral(
        "Snapshot files (*.SNA,*.Z80,*.SLT,*.SP,*.TAP)|*.SNA;*.Z80;*.SLT;*.SP;*.TAP|All files (*.*)|*.*"),
    true};

/// Why a file of this length is no document, or nothing. One that is not known is for the reader to tell.
Outcome Refusal(std::optional<std::int64_t> length, std::int64_t lLeast) {
    if (length == 0 && lLeast == 0) {
        return Outcome::Failed(QStringLiteral("The file is empty."));
    }
    if (length > std::numeric_limits<std::int32_t>::max()) {
        return Outcome::Failed(QStringLiteral("The file is longer than 2147483647 bytes."));
    }
    return Outcome::Done();
}

} // namespace

frmSnapshot::frmSnapshot()
    : DocumentForm(kKind), kept(document.Blocks(), [this] {
          const RecoveryHeader header{RecoveryHeader::kSnapshot, sSnapFile.toStdString(), byMemory.size()};
          return KeptDocument::State{header, byMemory.Bytes()};
      }) {}
frmSnapshot::~frmSnapshot() {
    EndPlacing();
}

bool frmSnapshot::Launch(const QString& sFullFileName, const QString& sFileTitle, std::int64_t lLeast) {
    const QString sFile = FindFile(sFullFileName).value_or(sFullFileName);
    if (IsMissing(sFile)) {
        TellFileNotFound();
        return false;
    }
    const HourglassScope hourglass;
    MemoryBlock bytes;
    const auto read = [&] { return knownFile.Read(sFile, bytes); };
    const auto grow = [&] {
        return bytes.GrowTo(static_cast<std::size_t>(lLeast)) ? Outcome::Done() : Outcome::Failed(kNoMemory);
    };
    const auto lookAgain = [&] { // it may have changed meanwhile
        return Refusal(static_cast<std::int64_t>(bytes.size()), 0);
    };
    const Outcome opened = Refusal(FileLength(sFile), lLeast).Then(read).Then(grow).Then(lookAgain);
    if (!TellFailure(opened.During(sFile.toLower() + QLatin1String(" could not be opened.")),
                     QStringLiteral("Open file"))) {
        return false;
    }

    document.Open(std::move(bytes));
    sSnapFile = sFile;
    sSnapTitle = sFileTitle.toLower().left(kTitleLength);
    view = DefaultView(Settings, static_cast<std::int32_t>(byMemory.size()));
    iAttribute = Settings.iDefaultAttribute;
    FitToMode(view, view.iMode); // filling the value boxes already draws
    Form_Load();
    SetMode(view.iMode, false);
    SetAttribute(iAttribute, false);
    counted.emplace(iSnapshotCount);

    sbrSnapshot->SetText(1, sSnapFile.toLower());
    sbrSnapshot->SetText(2, QStringLiteral("%1 bytes").arg(view.lFileLength));
    sbrSnapshot->SetText(3, QStringLiteral("%1x").arg(view.iZoomFactor));
    SetCaption(this, sSnapTitle.trimmed());
    show();
    ChildFrame(this)->show();
    txtValue[0]->selectAll(); // it gets the focus, but that comes with the main window, back from the dialog
    return true;
}

bool frmSnapshot::BringBack(const Recovery& recovery, const QString& sKeptIn, bool bFileChanged) {
    const QString sFile = QString::fromStdString(recovery.header.path);
    if (!Launch(sFile, FileTitleOf(sFile), recovery.End())) {
        return false;
    }
    kept.Adopt(sKeptIn);
    if (bFileChanged) {
        knownFile.Distrust();
    }
    for (const auto& [number, block] : recovery.blocks) {
        document.LayOver(number, block.bytes);
    }
    ShowMem();
    return true;
}

void frmSnapshot::DrawView() {
    const std::int32_t options = view.iUpsideDown * 128 | view.iZoom * 16 | view.iMode;
    lmk::zxShowMem(&picImage->hDC(), byMemory.data(), view.lOffset, view.lFileLength, view.iWidth,
                   view.iLines, view.iColumns, options, static_cast<std::uint8_t>(iAttribute & 255),
                   Settings.lPalette.data());
}

void frmSnapshot::ShowMem() {
    if (view.iWidth < lmk::RowOf(view.iMode).fixedWidth || view.iLines < lmk::RowOf(view.iMode).fixedLines) {
        MsgBox(QStringLiteral("Oops!  I should never appear."), BoxButtons::Ok, BoxIcon::None, sAppTitle);
        return;
    }
    const QSize size(view.ScreenWidth(), view.ScreenHeight());
    if (picImage->size() != size) {
        picImage->resize(size);
    }
    DrawView();
    picImage->update();
    ShowCell();
}

void frmSnapshot::ShowPixel(const PicturePixel& pixel) {
    const int factor = view.iZoomFactor;
    picImage->hDC().SetClip({pixel.x, pixel.y, 1, 1});
    DrawView();
    picImage->hDC().ResetClip();
    picImage->UpdateArea(QRect(pixel.x * factor, pixel.y * factor, factor, factor));
}

void frmSnapshot::WritePixel(float X, float Y, std::int16_t iValue, bool bRefresh) {
    const std::optional<PicturePixel> pixel = PixelUnder(view, X, Y);
    if (document.WritePixel(pixel, iValue) && bRefresh) {
        ShowPixel(*pixel);
    }
}

std::int16_t frmSnapshot::ReadPixel(float X, float Y) const {
    return document.ReadPixel(PixelUnder(view, X, Y));
}

Outcome frmSnapshot::SaveSnap(const QString& sFilename, const QString& sTitle) {
    if (sFilename.isEmpty()) {
        return Outcome::CalledOff();
    }
    const auto hold = kept.Hold();
    // Between the stages only painting and timers run: nothing can be drawn that would not be saved.
    barProgress->setValue(0);
    if (!ShowProgress(true) || !ShowStage(20)) {
        return Outcome::CalledOff(); // closed, and its question answered
    }
    const Outcome written = knownFile.Write(sFilename, byMemory.Bytes());
    if (written.IsNotDone()) {
        ShowProgress(false);
        return written.During(sFilename.toLower() + QLatin1String(" could not be saved."));
    }
    sSnapFile = sFilename;
    sSnapTitle = sTitle.toLower().left(kTitleLength);
    SetCaption(this, sSnapTitle.trimmed());
    sbrSnapshot->SetText(1, sSnapFile.toLower());
    for (const int percent : {40, 60, 80, 100}) {
        if (!ShowStage(percent)) {
            return written; // the bytes are on the disk, and nobody is left to be told
        }
    }
    document.Saved();
    kept.Forget();
    ShowProgress(false);
    return written;
}

Outcome frmSnapshot::SaveTo(const QString& sFilename) {
    return SaveSnap(sFilename, FileTitleOf(sFilename));
}

bool frmSnapshot::ServeEvents() {
    const QPointer<frmSnapshot> window(this);
    DoEvents(Events::NoUserInput);
    return !window.isNull();
}

bool frmSnapshot::ShowStage(int percent) {
    barProgress->setValue(percent);
    return ServeEvents();
}

bool frmSnapshot::ShowProgress(bool bShow) {
    if (bShow) {
        barProgress->setGeometry(0, height() - kProgressHeight, sbrSnapshot->PanelWidth(1), kProgressHeight);
    }
    barProgress->setVisible(bShow);
    return ServeEvents();
}

void frmSnapshot::LetGo() {
    EndPlacing(); // the block that was being placed goes with its window
    kept.Forget();
}

} // namespace lumrake
