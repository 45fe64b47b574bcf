#include "disk/folders.h"

#include "disk/system_calls.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

namespace lumrake {

Outcome SyncFolderOf(const QString& path) {
    return Outcome::OfSystem(SyncDirectory(QFile::encodeName(QFileInfo(path).path()).constData()));
}

Outcome MakeOwnFolder(const QString& path) {
    if (QFileInfo(path).isDir()) {
        return Outcome::Done();
    }
    const QString above = QFileInfo(path).path();
    return (above == path ? Outcome::Done() : MakeOwnFolder(above)).Then([&path] {
        const bool made =
            QDir().mkdir(path, QFileDevice::ReadOwner | QFileDevice::WriteOwner | QFileDevice::ExeOwner);
        return Outcome::OfSystem(made || QFileInfo(path).isDir());
    });
}

} // namespace lumrake
