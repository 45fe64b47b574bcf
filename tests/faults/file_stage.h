#pragma once

#include "snapshot/snapshot_probe.h"

#include <cstring>
#include <sys/stat.h>
#include <sys/xattr.h>
#include <tuple>
#include <unistd.h>

namespace lumrake::testing {

/// An access list that lets user 1234 read and write.
inline const QByteArray kList = QByteArray::fromHex(
    "0200000001000600ffffffff02000600d204000004000000ffffffff10000600ffffffff20000000ffffffff");

/// Gives a file what no new file has, as far as the disk and the user allow.
inline void GiveRights(const QByteArray& file) {
    std::ignore = chown(file, 1234, 1234);
    setxattr(file, "user.note", "kept", 4, 0);
    setxattr(file, "system.posix_acl_access", kList, static_cast<std::size_t>(kList.size()), 0);
    chmod(file, 06764);
}

/// All that says who may do what with a file.
inline QByteArray RightsOf(const QByteArray& file) {
    struct stat found {};
    EXPECT_EQ(stat(file, &found), 0);
    QByteArray rights = QByteArray::number(found.st_mode, 8) + ' ' + QByteArray::number(found.st_uid);
    char names[1000], value[1000];
    const ssize_t length = listxattr(file, names, sizeof names);
    for (const char* name = names; name < names + length; name += std::strlen(name) + 1) {
        rights += QByteArray(name) + QByteArray(value, getxattr(file, name, value, sizeof value)).toHex();
    }
    return rights + QByteArray::number(found.st_gid);
}

/// Snapshot windows over files of any name.
struct FileStage : SnapshotStage {
    /// Opens a file of these bytes; null when it did not open.
    frmSnapshot* Open(const std::vector<std::uint8_t>& bytes, const QString& name) {
        MakeFile(name, bytes);
        return Launch(name);
    }
};

} // namespace lumrake::testing
