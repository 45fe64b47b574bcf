#include "disk/in_place.h"

#include "base/check_sum.h"
#include "base/little_endian.h"
#include "disk/recovery_run.h"
#include "disk/system_calls.h"
#include "disk/texts.h"
#include "disk/write_into.h"

#include <QByteArray>
#include <QFile>
#include <QFileInfo>
#include <QHash>

#include <array>
#include <cstring>
#include <filesystem>

namespace lumrake {

namespace {

constexpr char kMagic[] = "LMKCOPY2";
constexpr std::size_t kNumber = 8, kTail = 3 * kNumber; ///< bytes

QHash<QString, QString> copies; ///< of attempts that were not finished, by path

/// What follows the new bytes in a copy.
QByteArray Remark(const QString& path, std::span<const std::uint8_t> bytes) {
    const auto number = [](std::uint64_t value) {
        std::array<std::uint8_t, kNumber> digits{};
        PutNumber(value, digits);
        return QByteArray(reinterpret_cast<const char*>(digits.data()), kNumber);
    };
    const QByteArray named = QFile::encodeName(path) + number(bytes.size());
    return named + number(CheckSum(BytesOf(named), CheckSum(bytes))) + kMagic;
}

/// Writes over the file from its beginning and cuts what is left of it.
Outcome WriteOver(QFile& file, std::span<const std::uint8_t> bytes) {
    const Outcome written = WriteInto(file, bytes)
                                .Then([&] {
                                    return file.resize(static_cast<qint64>(bytes.size()))
                                               ? Outcome::Done()
                                               : Outcome::Failed(file.errorString());
                                })
                                .Then([&] { return Outcome::OfSystem(SyncFile(file.handle())); });
    const Outcome closed = CloseFile(file);
    return written.Then([&closed] { return closed; });
}

} // namespace

Outcome WriteInPlace(const QString& path, std::span<const std::uint8_t> bytes) {
    namespace fs = std::filesystem;
    QFile file(path);
    if (!file.open(QIODevice::ReadWrite | QIODevice::ExistingOnly)) {
        return Outcome::Failed(file.errorString());
    }
    QString copy;
    Outcome outcome =
        NameFileOfRun(kSafeCopy, copy)
            .Then([&] { return WriteFileOfRun(copy, bytes, BytesOf(Remark(path, bytes))); })
            .During(QLatin1String("A copy to save in place cannot be kept") +
                    (copy.isEmpty() ? QString() : QLatin1String(" as ") + copy) + QLatin1Char('.'))
            .Then([&] {
                return Outcome::OfSystem(
                    ReserveSpace(file.handle(), static_cast<std::int64_t>(bytes.size())));
            });
    if (outcome.IsNotDone()) {
        RemoveFileOfRun(copy);
        return outcome;
    }
    std::error_code unknown, ignored;
    const fs::path place = QFileInfo(path).filesystemFilePath();
    const fs::perms rights = fs::status(place, unknown).permissions();
    outcome = WriteOver(file, bytes);
    if (outcome.IsDone()) {
        if (!unknown) { // a write takes some away
            fs::permissions(place, rights, ignored);
        }
        ForgetSafeCopy(path); // first: an older one must not be found alone
        RemoveFileOfRun(copy);
        return outcome;
    }
    ForgetSafeCopy(path);
    HoldSafeCopy(path, copy);
    return Outcome::Failed(outcome.Reason() + QLatin1String("\n\nAll its new bytes are kept in ") + copy);
}

void HoldSafeCopy(const QString& path, const QString& copy) {
    copies.insert(path, copy);
}

void ForgetSafeCopy(const QString& path) {
    RemoveFileOfRun(copies.take(path));
}

std::optional<UnfinishedSave> ParseSafeCopy(std::span<const std::uint8_t> copy) {
    if (copy.size() < kTail) {
        return std::nullopt;
    }
    const auto tail = copy.last(kTail), rest = copy.first(copy.size() - kTail);
    const std::uint64_t length = NumberOf(tail.first(kNumber));
    if (std::memcmp(tail.data() + 2 * kNumber, kMagic, kNumber) != 0 || length > rest.size()) {
        return std::nullopt;
    }
    const auto bytes = rest.first(static_cast<std::size_t>(length)), path = rest.subspan(bytes.size());
    const auto named = copy.subspan(bytes.size(), path.size() + kNumber);
    if (NumberOf(tail.subspan(kNumber, kNumber)) != CheckSum(named, CheckSum(bytes))) {
        return std::nullopt;
    }
    return UnfinishedSave{QFile::decodeName(QByteArray(reinterpret_cast<const char*>(path.data()),
                                                       static_cast<qsizetype>(path.size()))),
                          bytes};
}

} // namespace lumrake
