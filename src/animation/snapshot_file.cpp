#include "animation/snapshot_file.h"

#include "platform/files.h"
#include "platform/texts.h"

#include <QDir>
#include <QFileInfo>

namespace lumrake {

std::optional<QString> FindAnimationSnapshot(const QString& sSnapFile, const QString& sAnimFile) {
    const QString sPath = TrimBlanks(sSnapFile);
    const auto find = [](const QString& path) -> std::optional<QString> {
        std::optional<QString> found = FindFile(path);
        return found && QFileInfo(*found).isFile() ? found : std::nullopt;
    };
    if (std::optional<QString> found = find(sPath)) {
        return found;
    }
    if (sPath.isEmpty() || sAnimFile.isEmpty() || QFileInfo(sPath).isAbsolute()) {
        return std::nullopt;
    }
    return find(QFileInfo(sAnimFile).dir().filePath(sPath));
}

} // namespace lumrake
