#include "platform/files.h"

#include "platform/texts.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>
#include <QUuid>

#include <algorithm>
#include <filesystem>

namespace lumrake {

namespace {

const QString kNotRegular = QStringLiteral("It is not a regular file.");

/// Entries of `directory` that are `name` when letter case does not count.
QStringList MatchesWithoutCase(const QString& directory, const QString& name) {
    QStringList matches;
    const QStringList entries =
        QDir(directory).entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot);
    for (const QString& entry : entries) {
        if (entry.compare(name, Qt::CaseInsensitive) == 0) {
            matches << entry;
        }
    }
    return matches;
}

/// True for a link that leads nowhere as well: the name is taken.
bool IsTaken(const QString& path) {
    const QFileInfo info(path);
    return info.exists() || info.isSymLink();
}

/// Why an existing file must not get new contents, or nothing. The new file would take its place whatever it was.
FileError WhyNotReplaced(const QString& path) {
    const QFileInfo info(path);
    if (!info.exists() || info.isDir()) { // a directory is refused by what writes
        return std::nullopt;
    }
    if (!info.isFile()) { // a pipe or a device would be gone
        return kNotRegular;
    }
    // Left alone even by those whom the system would let through. WriteUser says what the present user may do,
    // and the administrator may do all.
    const QFile::Permissions anyWrite = QFile::WriteOwner | QFile::WriteGroup | QFile::WriteOther;
    if ((info.permissions() & anyWrite) == QFile::Permissions{}) {
        return QStringLiteral("The file is write-protected.");
    }
    QFile file(path); // only the system knows the reason: a read-only disk, no permission, a running program
    return file.open(QIODevice::Append | QIODevice::ExistingOnly) ? std::nullopt
                                                                  : FileError(file.errorString());
}

/// Where the bytes for the file at `path` go. A temporary file beside it has a dot and six letters more, which a
/// name near the limit of file systems has no room for: then a shorter name stands in for it, and is renamed.
QString StandInFor(const QString& path) {
    constexpr qsizetype kLongest = 255 - 7; // bytes
    const QFileInfo info(path);
    QString name = info.fileName();
    if (QFile::encodeName(name).size() <= kLongest) {
        return path;
    }
    while (QFile::encodeName(name).size() > kLongest - 7) {
        name.chop(1);
    }
    const QString letters = QUuid::createUuid().toString(QUuid::WithoutBraces).left(6);
    return info.dir().filePath(name + QLatin1Char('.') + letters);
}

/// Lets `standIn` take the place of the file at `path`, with its mode bits.
FileError Rename(const QString& standIn, const QString& path) {
    if (QFileInfo::exists(path)) {
        QFile::setPermissions(standIn, QFile::permissions(path));
    }
    std::error_code failure;
    std::filesystem::rename(QFileInfo(standIn).filesystemFilePath(), QFileInfo(path).filesystemFilePath(),
                            failure);
    if (failure) {
        QFile::remove(standIn);
        return QString::fromLocal8Bit(failure.message().c_str());
    }
    return std::nullopt;
}

/// Writes all bytes. A disk that runs full takes a part without a word and says why it refuses only when it is
/// asked for the rest.
bool WriteAll(QIODevice& device, std::span<const std::uint8_t> bytes) {
    while (!bytes.empty()) {
        const qint64 count =
            device.write(reinterpret_cast<const char*>(bytes.data()), static_cast<qint64>(bytes.size()));
        if (count <= 0) {
            return false;
        }
        bytes = bytes.subspan(static_cast<std::size_t>(count));
    }
    return true;
}

/// The reason of a failed write. When the disk took a part of the buffer, only the rest is told why not.
QString WriteErrorOf(QSaveFile& file) {
    file.flush();
    return file.error() == QFileDevice::NoError ? QStringLiteral("Only a part of it could be written.")
                                                : file.errorString();
}

} // namespace

QString FileTitleOf(const QString& sPath) {
    const qsizetype end = std::max(sPath.lastIndexOf(QLatin1Char('/')), sPath.lastIndexOf(QLatin1Char('\\')));
    return end < 0 ? QString() : sPath.mid(end + 1);
}

std::optional<QString> FindFile(const QString& path) {
    if (path.isEmpty()) {
        return std::nullopt;
    }
    if (QFileInfo::exists(path)) {
        return path;
    }
    const QFileInfo info(path);
    const QString name = info.fileName();
    const QString given = info.path();
    if (name.isEmpty() || given == path) {
        return std::nullopt;
    }
    const std::optional<QString> directory = FindFile(given);
    if (!directory || !QFileInfo(*directory).isDir()) {
        return std::nullopt;
    }
    const QStringList matches = MatchesWithoutCase(*directory, name);
    if (matches.size() != 1) {
        return std::nullopt;
    }
    // A bare name stays a bare name.
    const QString found = path.contains(QLatin1Char('/')) ? QDir(*directory).filePath(matches.constFirst())
                                                          : matches.constFirst();
    return QFileInfo::exists(found) ? std::optional(found) : std::nullopt;
}

NewFile PathForNewFile(const QString& chosen) {
    const QFileInfo info(chosen);
    const QString spelled = info.fileName();
    const QString name = TrimBlanks(spelled);
    if (name.isEmpty()) {
        return {};
    }
    const QDir directory(info.path());
    const QString lower = name.toLower();
    for (const QString& candidate : {spelled, name, lower}) {
        if (IsTaken(directory.filePath(candidate))) {
            return {directory.filePath(candidate), true};
        }
    }
    const QStringList matches = MatchesWithoutCase(directory.path(), name);
    if (matches.size() == 1) { // of several the question could not say which one it means
        return {directory.filePath(matches.constFirst()), true};
    }
    return {directory.filePath(lower), false};
}

std::optional<std::int64_t> FileLength(const QString& path) {
    const QFileInfo info(path);
    if (!info.exists()) {
        return std::nullopt;
    }
    return info.size();
}

FileError ReadWholeFile(const QString& path, MemoryBlock& target, std::int64_t limit) {
    QFile file(path);
    const QFileInfo info(path);
    if (info.isDir()) {
        return QStringLiteral("It is a directory.");
    }
    if (info.exists() && !info.isFile()) { // a pipe would be waited for, a device has no length
        return kNotRegular;
    }
    // Unbuffered: the bytes go from the system straight into their place.
    if (!file.open(QIODevice::ReadOnly | QIODevice::Unbuffered)) {
        return file.errorString();
    }
    const std::int64_t length = std::min<std::int64_t>(file.size(), limit);
    MemoryBlock block(static_cast<std::size_t>(length));
    if (length > 0 && block.size() == 0) {
        return QStringLiteral("There is not enough memory for it.");
    }
    std::int64_t done = 0;
    while (done < length) {
        const qint64 count = file.read(reinterpret_cast<char*>(block.data()) + done, length - done);
        if (count < 0) {
            return file.errorString();
        }
        if (count == 0) {
            return QStringLiteral("The file ended before its length.");
        }
        done += count;
    }
    target = std::move(block);
    return std::nullopt;
}

FileError WriteFileWith(const QString& path, const std::function<bool(QIODevice&)>& write) {
    if (const FileError error = WhyNotReplaced(path)) {
        return error;
    }
    const QFileInfo info(path);
    // A link that leads nowhere yet has no such path; it is followed by QSaveFile.
    const QString target = info.isSymLink() && info.exists() ? info.canonicalFilePath() : path;
    const QString standIn = StandInFor(target);
    QSaveFile file(standIn);
    if (!file.open(QIODevice::WriteOnly)) {
        return file.errorString();
    }
    GiveToOwnerOf(QFile::encodeName(target).constData(), file.handle());
    if (!write(file) || !file.flush()) {
        return WriteErrorOf(file);
    }
    if (!SyncFile(file.handle())) {
        return qt_error_string();
    }
    if (!file.commit()) {
        return file.errorString();
    }
    return standIn == target ? std::nullopt : Rename(standIn, target);
}

FileError WriteWholeFile(const QString& path, std::span<const std::uint8_t> bytes) {
    return WriteFileWith(path, [bytes](QIODevice& device) { return WriteAll(device, bytes); });
}

FileError WriteFirstRecord(const QString& path, std::span<const std::uint8_t> record) {
    MemoryBlock old;
    if (QFileInfo::exists(path)) {
        if (const FileError error = ReadWholeFile(path, old)) {
            return error;
        }
    }
    const auto tail = old.Bytes().subspan(std::min(record.size(), old.size()));
    return WriteFileWith(
        path, [&](QIODevice& device) { return WriteAll(device, record) && WriteAll(device, tail); });
}

} // namespace lumrake
