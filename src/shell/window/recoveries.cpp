#include "shell/window/recoveries.h"

#include "animation/frmAnimation.h"
#include "controls/message_box.h"
#include "disk/files.h"
#include "disk/recovery_run.h"
#include "disk/recovery_store.h"
#include "snapshot/frmSnapshot.h"

#include <QDateTime>
#include <QLocale>

#include <memory>

namespace lumrake {

namespace {

BoxAnswer Ask(const Recovery& recovery, const FileBesideRecovery& file) {
    const bool isSnapshot = recovery.header.kind == RecoveryHeader::kSnapshot;
    const QString sFile = QString::fromStdString(recovery.header.path).toLower();
    QString text = QLatin1String("Lumrake ended without saving changes to ") +
                   (sFile.isEmpty() ? QStringLiteral("a new animation") : sFile);
    if (file.missing && !sFile.isEmpty()) {
        text += QLatin1String(", which cannot be found.  Keep them for the next start?");
    } else {
        text += QLatin1String(". Bring them back?");
    }
    text += QStringLiteral("\n\nLast change: %1\nBytes that differ: %2")
                .arg(QLocale::system().toString(QDateTime::fromMSecsSinceEpoch(recovery.time),
                                                QLocale::ShortFormat))
                .arg(file.differing);
    if (file.changed && !file.missing) {
        text += QLatin1String("\n\nThe file has been changed since.  You get its present bytes with your "
                              "changes laid over them.");
        text +=
            file.shorter ? QLatin1String("  It is shorter now: what is missing reads 0.") : QLatin1String();
    }
    return MsgBox(text, BoxButtons::YesNoCancel, BoxIcon::Question,
                  isSnapshot ? QStringLiteral("Snapshot") : QStringLiteral("Animation"));
}

/// A window that opens belongs to its frame in the main window; one that does not is let go, and the file is kept.
template <class Form> void BringBack(const Recovery& recovery, const QString& sKeptIn, bool bFileChanged) {
    auto child = std::make_unique<Form>();
    if (child->BringBack(recovery, sKeptIn, bFileChanged)) {
        static_cast<void>(child.release()); // its frame has it
    }
}

void Offer(const QString& sKeptIn) {
    MemoryBlock bytes;
    if (ReadWholeFile(sKeptIn, bytes).IsNotDone()) {
        return;
    }
    const std::optional<Recovery> recovery = ReadRecovery(bytes.Bytes());
    if (!recovery) { // another version may know more of it
        return;
    }
    const FileBesideRecovery file = LookBeside(*recovery);
    const bool isNew = recovery->header.path.empty();
    if (file.differing == 0 && !file.missing) { // it was saved, but not forgotten any more
        RemoveFileOfRun(sKeptIn);
        return;
    }
    switch (Ask(*recovery, file)) {
    case BoxAnswer::Yes:
        if (!file.missing || isNew) {
            const bool isSnapshot = recovery->header.kind == RecoveryHeader::kSnapshot;
            (isSnapshot ? BringBack<frmSnapshot> : BringBack<frmAnimation>)(*recovery, sKeptIn, file.changed);
        }
        break;
    case BoxAnswer::No: RemoveFileOfRun(sKeptIn); break;
    default: break; // it stays
    }
}

} // namespace

void OfferRecoveries() {
    AdoptDeadRuns();
    for (const QString& sKeptIn : FilesOfRun(kKeptChanges)) {
        Offer(sKeptIn);
    }
}

} // namespace lumrake
