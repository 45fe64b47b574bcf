#include "disk/save_file.h"

#include "base/memory_block.h"
#include "disk/files.h"
#include "disk/folders.h"
#include "disk/in_place.h"
#include "disk/system_calls.h"
#include "disk/temporary_file.h"
#include "disk/write_into.h"

#include <QFile>
#include <QFileInfo>

#include <algorithm>
#include <filesystem>

namespace lumrake {

namespace {

/// Where a save goes.
struct Target {
    QString path; ///< behind the symbolic links, as far as they lead anywhere
    bool exists = false;
};

/// Looks for the target, and says why an existing file must not get new contents, or nothing. The new file would take
/// its place whatever it was.
Outcome FindTarget(const QString& path, Target& target) {
    namespace fs = std::filesystem;
    const fs::path given = QFileInfo(path).filesystemFilePath();
    QFileInfo place(path); // that a link leads to, even where nothing is yet
    for (int links = 0; place.isSymLink() && links < 40; ++links) {
        place.setFile(place.symLinkTarget());
    }
    target.path = place.filePath();
    if (!IsNameOfAFile(QFileInfo(path).fileName().toStdString())) {
        return Outcome::Failed(QStringLiteral("The system does not allow this name."));
    }
    std::error_code failure;
    const fs::file_status status = fs::status(given, failure);
    if (!fs::exists(status) && fs::status_known(status)) {
        return Outcome::Done();
    }
    if (failure) {
        return Outcome::OfSystem(failure);
    }
    if (fs::is_directory(status)) {
        return Outcome::Failed(kIsDirectory);
    }
    if (!fs::is_regular_file(status)) { // a pipe or a device would be gone
        return Outcome::Failed(kIsNotRegular);
    }
    // Left alone even by the administrator, whom the system would let through.
    constexpr fs::perms kAnyWrite = fs::perms::owner_write | fs::perms::group_write | fs::perms::others_write;
    if ((status.permissions() & kAnyWrite) == fs::perms::none) {
        return Outcome::Failed(QStringLiteral("The file is write-protected."));
    }
    QFile file(path); // only the system knows the reason: a read-only disk, no permission, a running program
    if (!file.open(QIODevice::Append | QIODevice::ExistingOnly)) {
        return Outcome::Failed(file.errorString());
    }
    target.path = QFileInfo(fs::canonical(given, failure)).filePath();
    target.exists = true;
    return Outcome::OfSystem(failure);
}

/// Gives the new file what says who may do what with the old one.
Outcome TakeOverRights(const Target& target, const QFile& file) {
    if (!target.exists || KeepRights(QFile::encodeName(target.path).constData(), file.handle())) {
        return Outcome::Done();
    }
    return Outcome::Failed(QLatin1String("Its rights cannot be kept: ") + qt_error_string());
}

/// Whether a file could not take the place of another because of the folder, or of the place itself.
bool IsRefused(const std::error_code& failure) {
    return failure == std::errc::permission_denied || failure == std::errc::operation_not_permitted ||
           failure == std::errc::device_or_resource_busy || failure == std::errc::cross_device_link;
}

/// Lets a new file take the place of the target. On failure `refused` says that the folder is the trouble.
Outcome ReplaceFile(const Target& target, std::span<const std::uint8_t> bytes, bool& refused) {
    TemporaryFile temporary(target.path);
    QFile file(temporary.Path());
    constexpr QIODevice::OpenMode kNew = QIODevice::WriteOnly | QIODevice::NewOnly;
    // Until it has the rights of the old one, nobody else may open it.
    if (!(target.exists ? file.open(kNew, QFile::ReadOwner | QFile::WriteOwner) : file.open(kNew))) {
        refused = !QFileInfo(QFileInfo(target.path).path()).isWritable();
        return Outcome::Failed(file.errorString());
    }
    temporary.SetMade();
    return TakeOverRights(target, file)
        .Then([&] { return WriteInto(file, bytes); })
        .Then([&] { return TakeOverRights(target, file); }) // what the write took away
        .Then([&] { return Outcome::OfSystem(SyncFile(file.handle())); })
        .Then([&] { return CloseFile(file); })
        .Then([&] {
            const std::error_code failure = RenameFile(temporary.Path(), target.path);
            refused = IsRefused(failure);
            return Outcome::OfSystem(failure);
        })
        .Then([&] { return SyncFolderOf(target.path); });
}

} // namespace

Outcome WriteWholeFile(const QString& path, std::span<const std::uint8_t> bytes) {
    Target target;
    if (const Outcome outcome = FindTarget(path, target); outcome.IsNotDone()) {
        return outcome;
    }
    bool refused = target.exists && !MayTakePlace(QFile::encodeName(target.path).constData());
    Outcome outcome = refused ? Outcome::CalledOff() : ReplaceFile(target, bytes, refused);
    if (refused) {
        const QString folder = QFileInfo(target.path).absolutePath();
        outcome = (target.exists ? WriteInPlace(target.path, bytes) : outcome)
                      .During(QStringLiteral("The folder %1 takes no new file.").arg(folder));
    }
    if (outcome.IsDone()) {
        ForgetSafeCopy(target.path);
    }
    return outcome;
}

Outcome WriteFirstRecord(const QString& path, std::span<const std::uint8_t> record) {
    MemoryBlock old;
    Target target;
    return FindTarget(path, target)
        .Then([&] { return target.exists ? ReadWholeFile(path, old) : Outcome::Done(); })
        .Then([&] {
            if (old.size() < record.size()) {
                return WriteWholeFile(path, record);
            }
            std::ranges::copy(record, old.data());
            return WriteWholeFile(path, old.Bytes());
        });
}

} // namespace lumrake
