#pragma once

#include "disk/outcome.h"

#include <QString>

namespace lumrake {

/// Sees to it that the name of a file stands on the disk (SyncDirectory).
Outcome SyncFolderOf(const QString& path);

/// Makes a folder that only the user may enter, and those above it that are missing. Done as well when it is there.
Outcome MakeOwnFolder(const QString& path);

} // namespace lumrake
