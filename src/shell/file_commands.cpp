#include "shell/file_commands.h"

#include "platform/common_dialog.h"
#include "platform/files.h"
#include "platform/message_box.h"
#include "shell/shell.h"
#include "snapshot/frmSnapshot.h"

#include <QFileInfo>

namespace lumrake {

namespace {

const QString kOpenFilter = QStringLiteral(
    "Snapshot files (*.SNA,*.Z80,*.SLT,*.SP,*.TAP)|*.SNA;*.Z80;*.SLT;*.SP;*.TAP|Raw files (*.RAW)|*.RAW|"
    "All files (*.*)|*.*");
const QString kSaveFilter = QStringLiteral(
    "Snapshot files (*.SNA,*.Z80,*.SLT,*.SP,*.TAP)|*.SNA;*.Z80;*.SLT;*.SP;*.TAP|All files (*.*)|*.*");

/// The true path beside each slot of the record, for this run; empty when the slot comes from an earlier run.
std::array<QString, 4> truePaths;

QString StoredPath(std::size_t slot) {
    return QString::fromStdString(Settings.sRecentFile[slot].Trimmed());
}

std::optional<QString> AskName(const frmSnapshot& document) {
    return AskNewFileName(QStringLiteral("Save snapshot file as..."), kSaveFilter, document.GetFilename());
}

} // namespace

void OpenSnapshotFile(const QString& sFile) {
    QString sFullName = sFile;
    const bool bFromDialog = sFile.isEmpty();
    if (bFromDialog) {
        sFullName = AskOpenFileName(QStringLiteral("Open snapshot file..."), kOpenFilter);
    }
    if (sFullName.trimmed().isEmpty()) {
        return;
    }
    if (bFromDialog) {
        AddRecentFile(sFullName);
    } else {
        sFullName = QFileInfo(sFullName).absoluteFilePath(); // a name without a directory has no title
    }
    // A window that opens belongs to its frame in the main window; one that does not open is let go at once.
    auto* child = new frmSnapshot;
    if (!child->Launch(sFullName, bFromDialog ? comDialog.FileTitle : FileTitleOf(sFullName))) {
        delete child;
    }
}

void AddRecentFile(const QString& sFile) {
    for (std::size_t slot = 3; slot > 0; --slot) {
        Settings.sRecentFile[slot] = Settings.sRecentFile[slot - 1];
        truePaths[slot] = truePaths[slot - 1];
    }
    Settings.sRecentFile[0].Set(sFile.toLower().toStdString());
    truePaths[0] = sFile;
    ShowRecentFiles();
}

std::array<RecentFile, 4> RecentFiles() {
    std::array<RecentFile, 4> files;
    for (std::size_t slot = 0; slot < files.size(); ++slot) {
        // The menu shows the whole path of this run even where the record had to cut it.
        const QString& sTrue = truePaths[slot];
        files[slot].sShown = sTrue.isEmpty() ? StoredPath(slot) : sTrue.toLower();
        files[slot].sTruePath = sTrue.isEmpty() ? StoredPath(slot) : sTrue;
    }
    return files;
}

void ResetRecentFiles() {
    truePaths.fill(QString());
    ShowRecentFiles();
}

bool SaveSnapshot(frmSnapshot& document) {
    const QString sFile = document.GetFilename();
    return document.SaveSnap(sFile, FileTitleOf(sFile));
}

bool SaveSnapshotAs(frmSnapshot& document) {
    const std::optional<QString> sNewName = AskName(document);
    if (!sNewName || !document.SaveSnap(*sNewName, FileTitleOf(*sNewName))) {
        return false;
    }
    AddRecentFile(*sNewName);
    return true;
}

void SaveSnapshotBeforeClosing(frmSnapshot& document) {
    bool bAsked = false;
    const auto askName = [&] {
        bAsked = true;
        return AskName(document);
    };
    const auto save = [&](const QString& sFile, QString* sReason) {
        return document.SaveSnap(sFile, FileTitleOf(sFile), sReason);
    };
    if (SaveUntilGivenUp(document.GetFilename(), QStringLiteral("Save"), askName, save) && bAsked) {
        AddRecentFile(document.GetFilename());
    }
}

QString AskOpenFileName(const QString& sDialogTitle, const QString& sFilter) {
    comDialog.Flags = kDialogFlags;
    comDialog.Filter = sFilter;
    comDialog.DialogTitle = sDialogTitle;
    comDialog.FileName.clear();
    comDialog.Action(CommonDialog::Kind::Open);
    return comDialog.FileName.trimmed().isEmpty() ? QString() : comDialog.FileName;
}

std::optional<QString> AskNewFileName(const QString& sDialogTitle, const QString& sFilter,
                                      const QString& sProposed) {
    comDialog.Flags = kDialogFlags;
    comDialog.Filter = sFilter;
    comDialog.DialogTitle = sDialogTitle;
    comDialog.FileName = sProposed;
    comDialog.Action(CommonDialog::Kind::Save);
    const NewFile target = PathForNewFile(comDialog.FileName);
    if (target.path.isEmpty()) {
        return std::nullopt;
    }
    if (target.exists) {
        const QString sQuestion = target.path.toLower() + QLatin1String(" already exists, overwrite?");
        if (MsgBox(sQuestion, BoxButtons::YesNo, BoxIcon::Question, QStringLiteral("Save")) !=
            BoxAnswer::Yes) {
            return std::nullopt;
        }
    }
    return target.path;
}

bool SaveUntilGivenUp(const QString& sFile, const QString& sTitle,
                      const std::function<std::optional<QString>()>& askName,
                      const std::function<bool(const QString&, QString*)>& save) {
    QString sReason;
    if (save(sFile, &sReason)) {
        return true;
    }
    while (MsgBox(sReason + QLatin1String("\n\nSave under another name?"), BoxButtons::YesNo,
                  BoxIcon::Question, sTitle) == BoxAnswer::Yes) {
        const std::optional<QString> sNewName = askName();
        if (sNewName && save(*sNewName, &sReason)) {
            return true;
        }
    }
    return false;
}

} // namespace lumrake
