#include "animation/frmAnimation.h"

#include "animation/frmAnimSetup.h"
#include "animation/snapshot_file.h"
#include "controls/message_box.h"
#include "controls/picture_box.h"
#include "disk/files.h"
#include "shell/shell.h"

#include <QPointer>

#include <algorithm>
#include <limits>

namespace lumrake {

namespace {

const QString kTitle = QStringLiteral("Animation");

const DocumentKind kKind{iAnimationCount,
                         QStringLiteral("ANIMATION"),
                         kTitle,
                         kTitle,
                         QStringLiteral("Save animation file as..."),
                         kAnimationFilter,
                         false};

} // namespace

frmAnimation::frmAnimation()
    : DocumentForm(kKind), kept(blocks, [this] {
          byKept = EncodeAnimation(record);
          const RecoveryHeader header{RecoveryHeader::kAnimation, sFilePath.toStdString(), byKept.size()};
          return KeptDocument::State{header, byKept};
      }) {
    blocks.Open(kAnimationBytes);
    CreateControls();
}

bool frmAnimation::Launch(const QString& AnimFile, const QString& sSnapFile) {
    return (AnimFile.isEmpty() ? TakeNewSettings(sSnapFile) : ReadRecord(AnimFile)) && Open();
}

bool frmAnimation::BringBack(const Recovery& recovery, const QString& sKeptIn, bool bFileChanged) {
    const QString sFile = QString::fromStdString(recovery.header.path);
    const auto bytes = recovery.blocks.begin()->second.bytes;
    if (bytes.size() != kAnimationBytes || (!sFile.isEmpty() && !ReadRecord(sFile))) {
        return false;
    }
    record = HeldForUse(DecodeAnimation(bytes.first<kAnimationBytes>()), 0);
    bChanged = -1;
    kept.Adopt(sKeptIn);
    if (bFileChanged && !sFile.isEmpty()) {
        knownFile.Distrust();
    }
    return Open();
}

bool frmAnimation::Open() {
    std::optional<QString> sSnapshot = FindAnimationSnapshot(SnapshotPath(), sFilePath);
    if (!sSnapshot) {
        if (!AskForSnapshot()) {
            return false;
        }
        sSnapshot = FindAnimationSnapshot(SnapshotPath(), sFilePath);
    }
    // A file that vanished since the dialog found it is told as one that cannot be read.
    if (!LoadSnapshot(sSnapshot.value_or(SnapshotPath()))) {
        return false;
    }
    counted.emplace(iAnimationCount);
    state = PlayState();
    Shell().AdoptChild(this);
    SetPositions();
    Form_Activate(); // with its caption
    ShowCurrentFrame();
    picImage->setFocus();
    ChildFrame(this)->show();
    SetChanged(bChanged); // only what is open is kept
    return true;
}

void frmAnimation::SetChanged(std::int16_t NewStatus) {
    bChanged = NewStatus;
    if (bChanged != 0) {
        blocks.Touch(byFile, 0);
    } else {
        blocks.Saved();
        kept.Forget();
    }
}

bool frmAnimation::TakeNewSettings(const QString& sSnapFile) {
    if (!AskForSettings(sSnapFile)) {
        return false;
    }
    record.iZoom = 1;
    record.sAnimFile = {};
    record.lFileLength = 0; // all bytes that the snapshot has
    bChanged = -1;
    return true;
}

bool frmAnimation::ReadRecord(const QString& sFile) {
    MemoryBlock bytes;
    const Outcome read = knownFile.Read(sFile, bytes, kAnimationBytes).Then([&bytes] {
        return bytes.size() == kAnimationBytes
                   ? Outcome::Done()
                   : Outcome::Failed(QStringLiteral("It is too short for an animation."));
    });
    if (!TellFailure(
            read.During(QStringLiteral("The animation %1 could not be opened.").arg(sFile.toLower())),
            kTitle)) {
        return false;
    }
    std::ranges::copy(bytes.Bytes(), byFile.begin());
    record = HeldForUse(DecodeAnimation(byFile), 0); // the length waits for the snapshot
    record.sAnimFile.Set(sFile.toStdString());
    sFilePath = sFile;
    return true;
}

QString frmAnimation::SnapshotPath() const {
    return QString::fromStdString(record.sSnapFile.Trimmed());
}

bool frmAnimation::AskForSnapshot() {
    if (MsgBox(
            QStringLiteral("The snapshot associated with this animation cannot be found.  Select another?"),
            BoxButtons::YesNo, BoxIcon::Question, kTitle) != BoxAnswer::Yes) {
        return false;
    }
    AnimToGlobal();
    return AskForSettings(ProposedSnapshot(SnapshotPath(), sFilePath));
}

bool frmAnimation::AskForSettings(const QString& sSnapFile) {
    const QPointer<frmAnimation> alive(this);
    bool bOkay = false;
    frmAnimSetup(GlobalAnim).GetAnimSettings(bOkay, sFilePath, sSnapFile);
    if (!bOkay || !alive) {
        return false;
    }
    GlobalToAnim();
    return true;
}

bool frmAnimation::LoadSnapshot(const QString& sFile) {
    const std::int64_t lBytes = FileLength(sFile).value_or(0);
    record = HeldForUse(record, static_cast<std::int32_t>(std::min<std::int64_t>(
                                    lBytes, std::numeric_limits<std::int32_t>::max())));
    // A record may ask for more bytes than the file has: they are not stored, the display reads them as 0.
    const Outcome read = ReadWholeFile(sFile, byMemory, record.lFileLength);
    return TellFailure(read.During(QStringLiteral("The snapshot %1 could not be read.").arg(sFile.toLower())),
                       kTitle);
}

Outcome frmAnimation::SaveAnimation(const QString& sFilename) {
    if (sFilename.isEmpty()) {
        return Outcome::CalledOff();
    }
    AnimationRecord saved = record;
    saved.sAnimFile.Set(sFilename.toStdString());
    const Outcome written = knownFile.Write(sFilename, EncodeAnimation(saved));
    if (written.IsDone()) {
        record = saved;
        byFile = EncodeAnimation(saved);
        sFilePath = sFilename;
        SetChanged(0);
    }
    return written.During(QStringLiteral("The animation %1 could not be saved.").arg(sFilename.toLower()));
}

void frmAnimation::AnimToGlobal() const {
    CopySettings(record, GlobalAnim);
}

void frmAnimation::GlobalToAnim() {
    CopySettings(GlobalAnim, record);
}

void frmAnimation::LetGo() {
    Timer1.stop();
    kept.Forget();
}

} // namespace lumrake
