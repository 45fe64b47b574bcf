#include "animation/snapshot_file.h"

#include "animation/rules/animation_record.h"
#include "disk/files.h"
#include "disk/texts.h"

#include <QDir>
#include <QFileInfo>

namespace lumrake {

namespace {

std::optional<QString> Find(const QString& path) {
    std::optional<QString> found = FindFile(path);
    return found && QFileInfo(*found).isFile() ? found : std::nullopt;
}

std::optional<QString> FindBeside(const QString& sAnimFile, const QString& path) {
    return sAnimFile.isEmpty() || path.isEmpty() ? std::nullopt
                                                 : Find(QFileInfo(sAnimFile).dir().filePath(path));
}

} // namespace

std::optional<QString> FindAnimationSnapshot(const QString& sSnapFile, const QString& sAnimFile) {
    const QString sPath = TrimBlanks(sSnapFile);
    if (!QFileInfo(sPath).isAbsolute()) {
        if (std::optional<QString> found = FindBeside(sAnimFile, sPath)) {
            return found;
        }
    }
    return Find(sPath);
}

QString ProposedSnapshot(const QString& sSnapFile, const QString& sAnimFile) {
    const QString sPath = FindBeside(sAnimFile, FileTitleOf(TrimBlanks(sSnapFile))).value_or(QString());
    return decltype(AnimationRecord::sSnapFile)::Fits(sPath.toStdString()) ? sPath : FileTitleOf(sPath);
}

} // namespace lumrake
