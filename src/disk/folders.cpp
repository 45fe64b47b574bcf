#include "disk/folders.h"

#include <QDir>
#include <QFileInfo>

namespace lumrake {

Outcome MakeOwnFolder(const QString& path) {
    if (QFileInfo(path).isDir()) {
        return Outcome::Done();
    }
    const QString above = QFileInfo(path).path();
    if (const Outcome outcome = above == path ? Outcome::Done() : MakeOwnFolder(above); outcome.IsNotDone()) {
        return outcome;
    }
    const bool made =
        QDir().mkdir(path, QFileDevice::ReadOwner | QFileDevice::WriteOwner | QFileDevice::ExeOwner);
    return made || QFileInfo(path).isDir() ? Outcome::Done() : Outcome::Failed(qt_error_string());
}

} // namespace lumrake
