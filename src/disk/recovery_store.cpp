#include "disk/recovery_store.h"

#include "base/check_sum.h"
#include "disk/files.h"
#include "disk/recovery_run.h"

#include <QDateTime>
#include <QFile>
#include <QFileInfo>

#include <algorithm>
#include <array>

namespace lumrake {

Outcome RecoveryStore::Keep(const RecoveryHeader& header, ChangedBlocks& blocks,
                            std::span<const std::uint8_t> all) {
    // A file that somebody cleared away is written anew.
    const bool appends = bytes_ > 0 && bytes_ <= 2 * ChangedBlocks::kBytes * blocks.Changed().size() &&
                         QFileInfo::exists(file_);
    if (blocks.Changed().empty() || (appends && blocks.New().empty())) {
        return Outcome::Done();
    }
    const auto record = [&](const std::vector<ChangedBlocks::Block>& kept) {
        writer_.Add(kept, all, QDateTime::currentMSecsSinceEpoch());
        return writer_.Take();
    };
    Outcome outcome = Outcome::CalledOff();
    if (appends) {
        const std::vector<std::uint8_t> bytes = record(blocks.New());
        outcome = AppendToFileOfRun(file_, bytes);
        bytes_ += bytes.size();
    }
    if (outcome.IsNotDone()) {
        writer_.Begin(header);
        const std::vector<std::uint8_t> bytes = record(blocks.Changed());
        outcome = (file_.isEmpty() ? NameFileOfRun(kKeptChanges, file_) : Outcome::Done()).Then([&] {
            return WriteFileOfRun(file_, bytes);
        });
        bytes_ = outcome.IsDone() ? bytes.size() : 0;
    }
    blocks.SetKept();
    return outcome;
}

void RecoveryStore::Forget() {
    RemoveFileOfRun(file_);
    *this = RecoveryStore();
}

FileBesideRecovery LookBeside(const Recovery& recovery) {
    const QString path = QString::fromStdString(recovery.header.path);
    FileBesideRecovery found;
    found.missing = path.isEmpty() || IsMissing(path);
    QFile file(path); // a pipe would be waited for
    const bool opened = QFileInfo(path).isFile() && file.open(QIODevice::ReadOnly | QIODevice::Unbuffered);
    const bool isAnimation = recovery.header.kind == RecoveryHeader::kAnimation; // more may stand behind it
    found.changed = !opened || (!isAnimation && file.size() != static_cast<qint64>(recovery.header.length));
    found.shorter = opened && file.size() < recovery.End();
    for (const auto& [number, block] : recovery.blocks) {
        std::array<char, ChangedBlocks::kBytes> bytes{};
        const auto place = static_cast<qint64>(number) * static_cast<qint64>(ChangedBlocks::kBytes);
        const qint64 read =
            opened && file.seek(place) ? file.read(bytes.data(), static_cast<qint64>(block.bytes.size())) : 0;
        const auto size = static_cast<std::size_t>(std::max<qint64>(read, 0));
        const std::span now(reinterpret_cast<const std::uint8_t*>(bytes.data()), size);
        found.changed = found.changed || CheckSum(now) != block.before;
        found.differing += static_cast<std::int64_t>(block.bytes.size() - size);
        for (std::size_t i = 0; i < size; ++i) {
            found.differing += now[i] != block.bytes[i] ? 1 : 0;
        }
    }
    return found;
}

} // namespace lumrake
