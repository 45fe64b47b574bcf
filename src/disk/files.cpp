#include "disk/files.h"

#include "disk/system_calls.h"
#include "disk/texts.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <algorithm>
#include <filesystem>

namespace lumrake {

namespace {

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

std::error_code RenameFile(const QString& from, const QString& to) {
    std::error_code failure;
    std::filesystem::rename(QFileInfo(from).filesystemFilePath(), QFileInfo(to).filesystemFilePath(),
                            failure);
    return failure;
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
        return Outcome::Failed(kIsDirectory);
    }
    if (info.exists() && !info.isFile()) { // a pipe would be waited for, a device has no length
        return Outcome::Failed(kIsNotRegular);
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
        return Outcome::Failed(kNoMemory);
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

} // namespace lumrake
