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
        const Outcome outcome = Outcome::OfSystem(made);
        return QFileInfo(path).isDir() // another program may have made it just now
                   ? Outcome::Done()
                   : outcome.During(QStringLiteral("The folder %1 cannot be made.").arg(path));
    });
}

} // namespace lumrake
