#include "disk/known_file.h"

#include "base/check_sum.h"
#include "disk/files.h"
#include "disk/save_file.h"
#include "disk/system_calls.h"
#include "disk/texts.h"

#include <QFile>
#include <QFileInfo>

#include <chrono>
#include <utility>
#include <vector>

namespace lumrake {

struct KnownFile::Stamp {
    QString path; ///< behind all symbolic links
    FileIdentity identity;
    bool settled = false; ///< a later change could not have left it the same time
    std::int64_t summed = 0;
    std::optional<std::uint64_t> sum; ///< of the first `summed` bytes, when they are not too many

    bool IsSameAs(const Stamp& other) const {
        FileIdentity mine = identity;
        mine.touched = other.identity.touched; // its rights alone may have changed
        return path == other.path && mine == other.identity;
    }
    void Sum(std::span<const std::uint8_t> bytes) {
        constexpr std::size_t kMost = std::size_t{64} << 20; // a hundredth of a second
        summed = static_cast<std::int64_t>(bytes.size());
        sum = bytes.size() <= kMost ? std::optional(CheckSum(bytes)) : std::nullopt;
    }
};

Outcome KnownFile::Look(const QString& path, Stamp& stamp) {
    using namespace std::chrono;
    stamp.path = QFileInfo(path).canonicalFilePath();
    if (!IdentifyFile(QFile::encodeName(path).constData(), stamp.identity)) {
        return Outcome::Failed(qt_error_string());
    }
    // The time of a change is that of the last tick of a clock. Some disks tell it in seconds, or two of them.
    const bool coarse = stamp.identity.time % 10'000'000 == 0;
    const nanoseconds now = system_clock::now().time_since_epoch();
    stamp.settled = now.count() - stamp.identity.time > (coarse ? 3'000'000'000 : 30'000'000);
    return Outcome::Done();
}

std::shared_ptr<KnownFile::Stamp> KnownFile::Shared(const Stamp& stamp) {
    static std::vector<std::weak_ptr<Stamp>> known; // of all open documents
    std::erase_if(known, [](const auto& one) { return one.expired(); });
    for (const std::weak_ptr<Stamp>& one : known) {
        if (std::shared_ptr<Stamp> same = one.lock();
            same->IsSameAs(stamp) && (!stamp.sum || same->sum == stamp.sum)) {
            return same;
        }
    }
    auto fresh = std::make_shared<Stamp>(stamp);
    known.push_back(fresh);
    return fresh;
}

Outcome KnownFile::Read(const QString& path, MemoryBlock& target, std::int64_t limit) {
    Stamp stamp;
    // Looked at before it is read: a change meanwhile is one.
    Outcome outcome = Look(path, stamp).Then([&] { return ReadWholeFile(path, target, limit); });
    if (outcome.IsDone()) {
        stamp.Sum(target.Bytes());
        stamp_ = Shared(stamp);
    }
    return outcome;
}

Outcome KnownFile::Write(const QString& path, std::span<const std::uint8_t> bytes) {
    Stamp before, now;
    const bool known = Look(path, before).IsDone();
    Outcome outcome = WriteWholeFile(path, bytes);
    if (Look(path, now).IsNotDone()) {
        now.identity.length = static_cast<std::int64_t>(bytes.size()); // its bytes will decide
        now.settled = false;
    }
    if (outcome.IsDone()) {
        now.Sum(bytes);
    } else if (!known || !stamp_ || !before.IsSameAs(*stamp_) || now.IsSameAs(before)) {
        return outcome; // else what a failed save left there is this program's as well
    }
    std::shared_ptr<Stamp> shared = known ? Shared(before) : nullptr;
    // Alone with what was there: it was changed by others, or is gone, and is written over knowingly.
    if (stamp_ && stamp_->path == now.path && (!shared || shared.use_count() == 1)) {
        shared = stamp_;
    }
    stamp_ = shared ? shared : Shared(now);
    *stamp_ = now;
    return outcome;
}

void KnownFile::Distrust() {
    auto foreign = std::make_shared<Stamp>();
    foreign->identity.length = -1; // no file has that
    stamp_ = std::move(foreign);
}

Outcome KnownFile::FindUnchanged(const QString& path) const {
    if (!stamp_ || IsMissing(path) ||
        !QFileInfo(path).isFile()) { // what is no file is for the writer to tell
        return Outcome::Done();
    }
    Stamp now;
    if (Outcome looked = Look(path, now); looked.IsNotDone()) {
        return looked;
    }
    bool same = now.IsSameAs(*stamp_);
    if (stamp_->sum && !(stamp_->settled && same && now.identity.touched == stamp_->identity.touched) &&
        now.identity.length == stamp_->identity.length) {
        MemoryBlock bytes;
        if (Outcome read = ReadWholeFile(path, bytes, stamp_->summed); read.IsNotDone()) {
            return read;
        }
        same = CheckSum(bytes.Bytes()) == *stamp_->sum;
    }
    return same ? Outcome::Done()
                : Outcome::Failed(
                      TrimBlanks(path.toLower()) +
                      QLatin1String(" has been changed by another program.  Save As can overwrite it."));
}

} // namespace lumrake
