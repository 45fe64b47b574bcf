#include "shell/window/file_commands.h"

#include "controls/common_dialog.h"
#include "disk/files.h"
#include "shell/shell.h"
#include "shell/window/animation_commands.h"
#include "shell/window/child_windows.h"
#include "snapshot/frmSnapshot.h"

#include <QDir>
#include <QFileInfo>

#include <algorithm>

namespace lumrake {

namespace {

const QString kOpenTitle = QStringLiteral("Open snapshot file...");
const QString kOpenFilter = QStringLiteral(
    "Snapshot files (*.SNA,*.Z80,*.SLT,*.SP,*.TAP)|*.SNA;*.Z80;*.SLT;*.SP;*.TAP|Raw files (*.RAW)|*.RAW|"
    "All files (*.*)|*.*");

/// The true path beside each slot of the record, for this run; empty when the slot comes from an earlier run.
std::array<QString, 4> truePaths;

QString StoredPath(std::size_t slot) {
    return QString::fromStdString(Settings.sRecentFile[slot].Trimmed());
}

/// The path may go on behind the end of the field: not even the longest character has room there.
bool IsCut(std::size_t slot) {
    const auto& bytes = Settings.sRecentFile[slot].Bytes();
    return std::any_of(bytes.end() - 4, bytes.end(), [](char byte) { return byte != ' '; });
}

} // namespace

void OpenSnapshotFile(const QString& sFile) {
    if (!sFile.isEmpty()) {
        const QString sFullName = // a bare name has no title
            QDir::toNativeSeparators(QFileInfo(sFile).absoluteFilePath());
        OpenWindow<frmSnapshot>(sFullName, FileTitleOf(sFullName));
        return;
    }
    const QString sChosen = AskOpenFileName(kOpenTitle, kOpenFilter);
    if (!sChosen.isEmpty()) {
        AddRecentFile(sChosen);
        OpenWindow<frmSnapshot>(sChosen, comDialog.FileTitle);
    }
}

void OpenRecentFile(std::size_t slot) {
    const QString sTrue = truePaths[slot], sStored = StoredPath(slot);
    const QStringList meant = !sTrue.isEmpty() ? QStringList(sTrue) : FilesOfStoredPath(sStored, false);
    const QStringList possible = sTrue.isEmpty() && IsCut(slot) ? FilesOfStoredPath(sStored, true) : meant;
    if (possible.isEmpty() || IsMissing(possible[0])) { // one of another case is not meant
        TellFileNotFound();
    } else if (meant.size() == 1 && possible.size() == 1) {
        OpenWindow<frmSnapshot>(meant[0], FileTitleOf(meant[0]));
    } else {
        const QString sNear = possible.contains(sStored) ? sStored : possible[0];
        const QString sChosen = AskOpenFileName(kOpenTitle, kOpenFilter, QFileInfo(sNear).path());
        if (!sChosen.isEmpty()) {
            OpenWindow<frmSnapshot>(sChosen, comDialog.FileTitle);
        }
    }
}

void OpenDroppedFiles(const QList<QUrl>& dropped) {
    for (const QUrl& url : dropped) {
        const QString sFile = url.isLocalFile() ? QDir::toNativeSeparators(url.toLocalFile())
                                                : url.toDisplayString(); // which is not found
        if (sFile.endsWith(QLatin1String(".ANM"), Qt::CaseInsensitive)) {
            OpenAnimationFile(sFile);
            continue;
        }
        if (QFileInfo(sFile).isFile()) {
            AddRecentFile(sFile);
        }
        OpenSnapshotFile(sFile);
    }
}

void AddRecentFile(const QString& sFile) {
    for (std::size_t slot = 3; slot > 0; --slot) {
        Settings.sRecentFile[slot] = Settings.sRecentFile[slot - 1];
        truePaths[slot] = truePaths[slot - 1];
    }
    Settings.sRecentFile[0].Set(sFile.toLower().toStdString());
    truePaths[0] = sFile;
    Shell().ShowRecentFiles();
}

std::array<QString, 4> RecentFiles() {
    std::array<QString, 4> files;
    for (std::size_t slot = 0; slot < files.size(); ++slot) {
        // The menu shows the whole path of this run even where the record had to cut it.
        const QString& sTrue = truePaths[slot];
        files[slot] = sTrue.isEmpty() ? StoredPath(slot) : sTrue.toLower();
    }
    return files;
}

void ResetRecentFiles() {
    truePaths.fill(QString());
    Shell().ShowRecentFiles();
}

} // namespace lumrake
