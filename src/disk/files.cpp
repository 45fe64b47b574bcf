#include "disk/files.h"

#include "disk/system_calls.h"
#include "disk/texts.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>
#include <QUuid>

#include <algorithm>
#include <filesystem>

namespace lumrake {

namespace {

const QString kDirectory = QStringLiteral("It is a directory.");
const QString kNotRegular = QStringLiteral("It is not a regular file.");

enum class Fit {
    Case,   ///< differs in letter case at most
    Stored, ///< and in blanks at its end, which records do not keep
    Cut     ///< begins so
};

bool Fits(QStringView entry, QStringView name, Fit fit) {
    const auto chop = [](QStringView& text) {
        while (text.endsWith(QLatin1Char(' '))) {
            text.chop(1);
        }
    };
    if (fit != Fit::Case) {
        chop(entry);
        chop(name);
    }
    // Lowered first: some letters become two.
    const QString given = entry.toString().toLower(), wanted = name.toString().toLower();
    return fit == Fit::Cut ? given.startsWith(wanted, Qt::CaseInsensitive)
                           : given.compare(wanted, Qt::CaseInsensitive) == 0;
}

/// Entries of `directory` that `name` may mean.
QStringList Matches(const QString& directory, const QString& name, Fit fit) {
    QStringList matches;
    const QStringList entries =
        QDir(directory).entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot);
    for (const QString& entry : entries) {
        if (Fits(entry, name, fit)) {
            matches << entry;
        }
    }
    return matches;
}

enum class Spelling {
    OfTheDisk, ///< what is there as it is spelled is meant
    Lowered    ///< it says nothing of letter case
};

/// All that a path may mean, looked for component by component.
QStringList PathsThatFit(const QString& path, Spelling spelling, Fit fit) {
    const QFileInfo info(path);
    const QString name = info.fileName(), given = info.path();
    const bool exists = info.exists();
    if (exists && (spelling == Spelling::OfTheDisk || name.isEmpty() || given == path)) {
        return {path};
    }
    QStringList found;
    if (name.isEmpty() || given == path) {
        return found;
    }
    for (const QString& directory : PathsThatFit(given, spelling, Fit::Case)) {
        for (const QString& entry : Matches(directory, name, fit)) {
            // A bare name stays a bare name.
            found << (QDir::fromNativeSeparators(path).contains(QLatin1Char('/'))
                          ? QDir(directory).filePath(entry)
                          : entry);
        }
    }
    if (exists && !found.contains(path)) { // through directories that can be entered and not read
        found << path;
    }
    return found;
}

/// True for a link that leads nowhere as well: the name is taken.
bool IsTaken(const QString& path) {
    const QFileInfo info(path);
    return info.exists() || info.isSymLink();
}

Outcome ReasonOf(const std::error_code& failure) {
    return Outcome::Failed(QString::fromLocal8Bit(failure.message().c_str()));
}

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
    target.path = path;
    if (!IsNameOfAFile(QFileInfo(path).fileName().toStdString())) {
        return Outcome::Failed(QStringLiteral("The system does not allow this name."));
    }
    std::error_code failure;
    const fs::file_status status = fs::status(given, failure);
    if (!fs::exists(status) && fs::status_known(status)) {
        return Outcome::Done();
    }
    if (failure) {
        return ReasonOf(failure);
    }
    if (fs::is_directory(status)) {
        return Outcome::Failed(kDirectory);
    }
    if (!fs::is_regular_file(status)) { // a pipe or a device would be gone
        return Outcome::Failed(kNotRegular);
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
    return failure ? ReasonOf(failure) : Outcome::Done();
}

/// Gives the new file what says who may do what with the old one.
Outcome TakeOverRights(const Target& target, const QSaveFile& file) {
    if (!target.exists || KeepRights(QFile::encodeName(target.path).constData(), file.handle())) {
        return Outcome::Done();
    }
    return Outcome::Failed(QLatin1String("Its rights cannot be kept: ") + qt_error_string());
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

/// Lets `standIn` take the place of the file at `path`.
Outcome Rename(const QString& standIn, const QString& path) {
    std::error_code failure;
    std::filesystem::rename(QFileInfo(standIn).filesystemFilePath(), QFileInfo(path).filesystemFilePath(),
                            failure);
    if (failure) {
        QFile::remove(standIn);
        return ReasonOf(failure);
    }
    return Outcome::Done();
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
    const QStringList found = PathsThatFit(path, Spelling::OfTheDisk, Fit::Stored);
    return found.size() == 1 && QFileInfo::exists(found[0])
               ? std::optional(QDir::toNativeSeparators(found[0]))
               : std::nullopt;
}

QStringList FilesOfStoredPath(const QString& path, bool isCut) {
    QStringList found = PathsThatFit(path, Spelling::Lowered, isCut ? Fit::Cut : Fit::Stored);
    found.removeIf([](const QString& file) { return !QFileInfo::exists(file) || QFileInfo(file).isDir(); });
    for (QString& file : found) {
        file = QDir::toNativeSeparators(file);
    }
    return found;
}

NewFile PathForNewFile(const QString& chosen) {
    const QFileInfo info(chosen);
    const QString spelled = info.fileName();
    const QString name = TrimBlanks(spelled);
    if (name.isEmpty()) {
        return {};
    }
    const QDir directory(info.path());
    const auto pathOf = [&directory](const QString& entry) {
        return QDir::toNativeSeparators(directory.filePath(entry));
    };
    const QString lower = name.toLower();
    for (const QString& candidate : {spelled, name, lower}) {
        if (IsTaken(pathOf(candidate))) {
            return {pathOf(candidate), true};
        }
    }
    const QStringList matches = Matches(directory.path(), name, Fit::Case);
    if (matches.size() == 1) { // of several the question could not say which one it means
        return {pathOf(matches.constFirst()), true};
    }
    return {pathOf(lower), false};
}

bool IsMissing(const QString& path) {
    std::error_code failure;
    return std::filesystem::status(QFileInfo(path).filesystemFilePath(), failure).type() ==
           std::filesystem::file_type::not_found;
}

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

std::optional<std::int64_t> FileLength(const QString& path) {
    std::error_code failure;
    const auto length = std::filesystem::file_size(QFileInfo(path).filesystemFilePath(), failure);
    return failure ? std::nullopt : std::optional(static_cast<std::int64_t>(length));
}

Outcome ReadWholeFile(const QString& path, MemoryBlock& target, std::int64_t limit) {
    QFile file(path);
    const QFileInfo info(path);
    if (info.isDir()) {
        return Outcome::Failed(kDirectory);
    }
    if (info.exists() && !info.isFile()) { // a pipe would be waited for, a device has no length
        return Outcome::Failed(kNotRegular);
    }
    // Unbuffered: the bytes go from the system straight into their place.
    if (!file.open(QIODevice::ReadOnly | QIODevice::Unbuffered)) {
        return Outcome::Failed(file.errorString());
    }
    // The toolkit takes a length that the system does not tell for 0.
    const std::int64_t length = std::min(LengthOfFile(file.handle()), limit);
    if (length < 0) {
        return Outcome::Failed(qt_error_string());
    }
    MemoryBlock block(static_cast<std::size_t>(length));
    AdviseLargePages(block.data(), block.size());
    if (length > 0 && block.size() == 0) {
        return Outcome::Failed(QStringLiteral("There is not enough memory for it."));
    }
    std::int64_t done = 0;
    while (done < length) {
        const qint64 count = file.read(reinterpret_cast<char*>(block.data()) + done, length - done);
        if (count < 0) {
            return Outcome::Failed(file.errorString());
        }
        if (count == 0) {
            return Outcome::Failed(QStringLiteral("The file ended before its length."));
        }
        done += count;
    }
    target = std::move(block);
    return Outcome::Done();
}

Outcome WriteFileWith(const QString& path, const std::function<bool(QIODevice&)>& write) {
    Target target;
    if (const Outcome outcome = FindTarget(path, target); outcome.IsNotDone()) {
        return outcome;
    }
    const QString standIn = StandInFor(target.path);
    QSaveFile file(standIn); // it follows a link that leads nowhere yet
    if (!file.open(QIODevice::WriteOnly)) {
        return Outcome::Failed(file.errorString());
    }
    if (const Outcome outcome = TakeOverRights(target, file); outcome.IsNotDone()) {
        return outcome;
    }
    if (!write(file) || !file.flush()) {
        return Outcome::Failed(WriteErrorOf(file));
    }
    if (const Outcome outcome = TakeOverRights(target, file);
        outcome.IsNotDone()) { // what the write took away
        return outcome;
    }
    if (!SyncFile(file.handle())) {
        return Outcome::Failed(qt_error_string());
    }
    if (!file.commit()) {
        return Outcome::Failed(file.errorString());
    }
    if (standIn != target.path) {
        if (const Outcome outcome = Rename(standIn, target.path); outcome.IsNotDone()) {
            return outcome;
        }
    }
    const QByteArray directory = QFile::encodeName(QFileInfo(target.path).path());
    return SyncDirectory(directory.constData()) ? Outcome::Done() : Outcome::Failed(qt_error_string());
}

Outcome WriteWholeFile(const QString& path, std::span<const std::uint8_t> bytes) {
    return WriteFileWith(path, [bytes](QIODevice& device) { return WriteAll(device, bytes); });
}

Outcome WriteFirstRecord(const QString& path, std::span<const std::uint8_t> record) {
    MemoryBlock old;
    Target target;
    if (const Outcome outcome = FindTarget(path, target); outcome.IsNotDone()) {
        return outcome;
    }
    if (target.exists) {
        if (const Outcome outcome = ReadWholeFile(path, old); outcome.IsNotDone()) {
            return outcome;
        }
    }
    const auto tail = old.Bytes().subspan(std::min(record.size(), old.size()));
    return WriteFileWith(
        path, [&](QIODevice& device) { return WriteAll(device, record) && WriteAll(device, tail); });
}

} // namespace lumrake
