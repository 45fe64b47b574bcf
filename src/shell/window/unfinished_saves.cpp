#include "shell/window/unfinished_saves.h"

#include "controls/message_box.h"
#include "disk/files.h"
#include "disk/in_place.h"
#include "disk/recovery_run.h"
#include "disk/save_file.h"
#include "disk/temporary_file.h"
#include "shell/shell.h"

#include <QFileInfo>
#include <QLocale>
#include <QSet>

#include <algorithm>
#include <functional>

namespace lumrake {

namespace {

const QString kTitle = QStringLiteral("Save");

/// Lets `settle` say of the newest copy of each file whether it can go. The older ones go at once: the newest was to
/// take their place.
void ForEachUnfinishedSave(const std::function<bool(const UnfinishedSave&, const QString& sCopy)>& settle) {
    QStringList copies = FilesOfRun(kSafeCopy);
    std::ranges::reverse(copies);
    QSet<QString> seen;
    for (const QString& sCopy : copies) {
        MemoryBlock bytes;
        if (ReadWholeFile(sCopy, bytes).IsNotDone()) {
            continue;
        }
        const std::optional<UnfinishedSave> save = ParseSafeCopy(bytes.Bytes());
        if (!save) { // another version may know more of it
            continue;
        }
        if (seen.contains(save->path)) {
            RemoveFileOfRun(sCopy);
            continue;
        }
        seen.insert(save->path);
        HoldSafeCopy(save->path, sCopy);
        MemoryBlock there;
        const bool bDone =
            ReadWholeFile(save->path, there).IsDone() && std::ranges::equal(there.Bytes(), save->bytes);
        if (bDone || settle(*save, sCopy)) {
            ForgetSafeCopy(save->path);
        }
    }
}

/// True when the save was finished now, or the user does not want that.
bool Offer(const UnfinishedSave& save, const QString& sCopy) {
    const auto changed = [](const QString& sFile) {
        return QLocale::system().toString(QFileInfo(sFile).lastModified(), QLocale::ShortFormat);
    };
    const QString sFile = save.path.toLower();
    const BoxAnswer answer = MsgBox(QStringLiteral("Lumrake did not finish saving %1.  Finish it now?\n\n"
                                                   "Begun: %2\nLast change of the file: %3")
                                        .arg(sFile, changed(sCopy), changed(save.path)),
                                    BoxButtons::YesNoCancel, BoxIcon::Question, kTitle);
    if (answer != BoxAnswer::Yes) {
        return answer == BoxAnswer::No;
    }
    const Outcome written = WriteWholeFile(save.path, save.bytes);
    return TellFailure(written.During(sFile + QLatin1String(" could not be saved.")), kTitle);
}

} // namespace

void FinishSavingSettings() {
    AdoptDeadRuns();
    const QString sSettings = QFileInfo(SettingsFile()).canonicalFilePath();
    ForEachUnfinishedSave([&sSettings](const UnfinishedSave& save, const QString&) {
        return save.path == sSettings && WriteWholeFile(save.path, save.bytes).IsDone();
    });
}

void FinishSaves() {
    AdoptDeadRuns();
    RemoveLeftOvers();
    ForEachUnfinishedSave(Offer);
}

} // namespace lumrake
