#include "disk/in_place.h"

#include "base/check_sum.h"
#include "base/memory_block.h"
#include "disk/files.h"
#include "disk/folders.h"
#include "disk/recovery_run.h"
#include "disk/system_calls.h"

#include <QByteArray>
#include <QFile>
#include <QFileInfo>
#include <QHash>
#include <QtEndian>

#include <cstring>
#include <filesystem>

namespace lumrake {

namespace {

constexpr char kMagic[] = "LMKCOPY1";
constexpr std::size_t kNumber = 8, kTail = 3 * kNumber; ///< bytes

QHash<QString, QString> failed; ///< the copies that failed attempts left, by path

QByteArray Number(std::uint64_t value) {
    QByteArray bytes(kNumber, '\0');
    qToLittleEndian(value, bytes.data());
    return bytes;
}

/// Writes what is still missing of a file and brings it to the disk.
Outcome Finish(QFile& file, const QByteArray& rest) {
    return WriteInto(file, [&rest](QIODevice& device) { return device.write(rest) == rest.size(); })
        .Then([&file] { return Outcome::OfSystem(SyncFile(file.handle())); });
}

/// Makes the copy; `bytes` are what it holds in front of its sum, the first `length` of them the file's.
Outcome WriteCopy(const QString& path, const Writer& write, QFile& copy, MemoryBlock& bytes,
                  std::int64_t& length) {
    if (!copy.open(QIODevice::WriteOnly | QIODevice::NewOnly, QFile::ReadOwner | QFile::WriteOwner)) {
        return Outcome::Failed(copy.errorString());
    }
    const auto measure = [&] {
        // The toolkit may be at 0 when it could not learn what kind of file it is.
        length = LengthOfFile(copy.handle());
        return Outcome::OfSystem(length >= 0);
    };
    return WriteInto(copy, write)
        .Then(measure)
        .Then([&] {
            return Finish(copy, QFile::encodeName(path) + Number(static_cast<std::uint64_t>(length)));
        })
        .Then([&] { return ReadWholeFile(copy.fileName(), bytes); })
        .Then([&] { return Finish(copy, Number(CheckSum(bytes.Bytes())) + kMagic); })
        .Then([&] { return SyncFolderOf(copy.fileName()); });
}

/// Writes over the file from its beginning and cuts what is left of it.
Outcome WriteOver(QFile& file, std::span<const std::uint8_t> bytes) {
    const Outcome written = WriteInto(file, [bytes](QIODevice& device) { return WriteAll(device, bytes); })
                                .Then([&] {
                                    return file.resize(static_cast<qint64>(bytes.size()))
                                               ? Outcome::Done()
                                               : Outcome::Failed(file.errorString());
                                })
                                .Then([&file] { return Finish(file, {}); });
    const Outcome closed = CloseFile(file);
    return written.Then([&closed] { return closed; });
}

} // namespace

Outcome WriteInPlace(const QString& path, const Writer& write) {
    namespace fs = std::filesystem;
    QFile file(path);
    if (!file.open(QIODevice::ReadWrite | QIODevice::ExistingOnly)) {
        return Outcome::Failed(file.errorString());
    }
    QString name;
    if (const Outcome outcome = NameFileOfRun(kSafeCopy, name); outcome.IsNotDone()) {
        return outcome;
    }
    std::int64_t length = 0;
    MemoryBlock bytes;
    QFile copy(name);
    Outcome outcome =
        WriteCopy(path, write, copy, bytes, length)
            .During(QLatin1String("A copy to save in place cannot be kept as ") + name + QLatin1Char('.'))
            .Then([&] { return Outcome::OfSystem(ReserveSpace(file.handle(), length)); });
    copy.close();
    if (outcome.IsNotDone()) {
        RemoveFileOfRun(name);
        return outcome;
    }
    std::error_code unknown, ignored;
    const fs::path place = QFileInfo(path).filesystemFilePath();
    const fs::perms rights = fs::status(place, unknown).permissions();
    outcome = WriteOver(file, bytes.Bytes().first(static_cast<std::size_t>(length)));
    if (outcome.IsDone()) {
        if (!unknown) { // a write takes some away
            fs::permissions(place, rights, ignored);
        }
        RemoveFileOfRun(name);
        return outcome;
    }
    ForgetSafeCopy(path);
    failed.insert(path, name);
    return Outcome::Failed(outcome.Reason() + QLatin1String("\n\nAll its new bytes are kept in ") + name);
}

void ForgetSafeCopy(const QString& path) {
    if (const QString name = failed.take(path); !name.isEmpty()) {
        RemoveFileOfRun(name);
    }
}

std::optional<UnfinishedSave> ParseSafeCopy(std::span<const std::uint8_t> copy) {
    if (copy.size() < kTail) {
        return std::nullopt;
    }
    const auto tail = copy.last(kTail), rest = copy.first(copy.size() - kTail);
    const auto length = qFromLittleEndian<std::uint64_t>(tail.data());
    const auto sum = qFromLittleEndian<std::uint64_t>(tail.data() + kNumber);
    if (std::memcmp(tail.data() + 2 * kNumber, kMagic, kNumber) != 0 || length > rest.size() ||
        sum != CheckSum(copy.first(rest.size() + kNumber))) {
        return std::nullopt;
    }
    const auto bytes = rest.first(static_cast<std::size_t>(length)), path = rest.subspan(bytes.size());
    return UnfinishedSave{QFile::decodeName(QByteArray(reinterpret_cast<const char*>(path.data()),
                                                       static_cast<qsizetype>(path.size()))),
                          bytes};
}

} // namespace lumrake
