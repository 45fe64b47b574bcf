#include "shell/window/unfinished_saves.h"

#include "controls/message_box.h"
#include "disk/files.h"
#include "disk/in_place.h"
#include "disk/recovery_run.h"
#include "disk/save_file.h"
#include "disk/temporary_file.h"
#include "shell/shell.h"

#include <algorithm>

namespace lumrake {

namespace {

const QString kTitle = QStringLiteral("Save");

/// True when the file is as it was meant to be, or the user does not want it so.
bool IsSettled(const UnfinishedSave& save) {
    MemoryBlock there;
    if (ReadWholeFile(save.path, there).IsDone() && std::ranges::equal(there.Bytes(), save.bytes)) {
        return true;
    }
    const QString sFile = save.path.toLower();
    const BoxAnswer answer =
        MsgBox(QStringLiteral("Lumrake did not finish saving %1.  Finish it now?").arg(sFile),
               BoxButtons::YesNoCancel, BoxIcon::Question, kTitle);
    if (answer != BoxAnswer::Yes) {
        return answer == BoxAnswer::No;
    }
    const Outcome written = WriteWholeFile(save.path, save.bytes);
    return TellFailure(written.During(sFile + QLatin1String(" could not be saved.")), kTitle);
}

} // namespace

void FinishSaves() {
    AdoptDeadRuns();
    RemoveLeftOvers();
    for (const QString& copy : FilesOfRun(kSafeCopy)) {
        MemoryBlock bytes;
        if (ReadWholeFile(copy, bytes).IsNotDone()) {
            continue;
        }
        // One that is not whole was cut short before its file was touched.
        const std::optional<UnfinishedSave> save = ParseSafeCopy(bytes.Bytes());
        if (!save || IsSettled(*save)) {
            RemoveFileOfRun(copy);
        }
    }
}

} // namespace lumrake
