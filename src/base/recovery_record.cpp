#include "base/recovery_record.h"

#include "base/check_sum.h"
#include "base/little_endian.h"

#include <algorithm>
#include <limits>
#include <utility>

namespace lumrake {

namespace {

constexpr std::uint32_t kMark = 0x524B4D4C; // "LMKR"
constexpr std::uint8_t kVersion = 1;
constexpr std::uint64_t kMostPath = 4096, kMostLength = std::numeric_limits<std::int32_t>::max();
constexpr std::size_t kSumWidth = 8;

/// A walk over bytes that may end anywhere. Behind the end everything reads 0, and nothing is `whole`.
class Reader {
  public:
    explicit Reader(std::span<const std::uint8_t> bytes) : bytes_(bytes) {}

    std::span<const std::uint8_t> Bytes(std::uint64_t count) {
        whole_ = whole_ && count <= bytes_.size() - at_;
        const auto taken = bytes_.subspan(at_, whole_ ? static_cast<std::size_t>(count) : 0);
        at_ += taken.size();
        return taken;
    }
    std::uint64_t Number(std::uint64_t width) { return NumberOf(Bytes(width)); }
    /// Whether all since the last check sum agrees with the one that stands here.
    bool Agrees() {
        sum_ = CheckSum(bytes_.subspan(checked_, at_ - checked_), sum_);
        const bool agrees = Number(kSumWidth) == sum_ && whole_;
        checked_ = at_;
        return agrees;
    }
    bool IsWhole() const { return whole_; }

  private:
    std::span<const std::uint8_t> bytes_;
    std::size_t at_ = 0, checked_ = 0;
    std::uint64_t sum_ = 0;
    bool whole_ = true;
};

bool ReadHeader(Reader& reader, RecoveryHeader& header) {
    if (reader.Number(4) != kMark || reader.Number(1) != kVersion) {
        return false;
    }
    const std::uint64_t kind = reader.Number(1), pathBytes = reader.Number(2);
    header.kind = kind == 0 ? RecoveryHeader::kSnapshot : RecoveryHeader::kAnimation;
    header.length = reader.Number(8);
    const auto path = reader.Bytes(std::min(pathBytes, kMostPath));
    header.path.assign(path.begin(), path.end());
    return reader.Agrees() && kind <= 1 && pathBytes <= kMostPath && header.length >= 1 &&
           header.length <= kMostLength;
}

/// Reads one record into `recovery`, or leaves it alone.
bool ReadRecord(Reader& reader, Recovery& recovery) {
    std::vector<std::pair<std::uint32_t, Recovery::Block>> blocks;
    const auto time = static_cast<std::int64_t>(reader.Number(8));
    for (std::uint64_t count = reader.Number(4); count > 0 && reader.IsWhole(); --count) {
        const std::uint64_t number = reader.Number(4), place = number * ChangedBlocks::kBytes;
        const std::uint64_t before = reader.Number(8);
        if (place >= recovery.header.length) {
            return false;
        }
        const std::uint64_t left = recovery.header.length - place;
        const auto bytes = reader.Bytes(std::min<std::uint64_t>(ChangedBlocks::kBytes, left));
        blocks.push_back({static_cast<std::uint32_t>(number), {before, bytes}});
    }
    if (!reader.Agrees() || blocks.empty()) {
        return false;
    }
    recovery.time = time;
    for (const auto& [number, block] : blocks) {
        recovery.blocks[number] = block;
    }
    return true;
}

} // namespace

void RecoveryWriter::Number(std::uint64_t value, std::size_t width) {
    bytes_.resize(bytes_.size() + width);
    PutNumber(value, std::span(bytes_).last(width));
}

void RecoveryWriter::Sum(std::size_t from) {
    sum_ = CheckSum(std::span(bytes_).subspan(from), sum_);
    Number(sum_, kSumWidth);
}

void RecoveryWriter::Begin(const RecoveryHeader& header) {
    bytes_.clear();
    sum_ = 0;
    Number(kMark, 4);
    Number(kVersion, 1);
    Number(header.kind, 1);
    Number(header.path.size(), 2);
    Number(header.length, 8);
    bytes_.insert(bytes_.end(), header.path.begin(), header.path.end());
    Sum(0);
}

void RecoveryWriter::Add(std::span<const ChangedBlocks::Block> blocks, std::span<const std::uint8_t> all,
                         std::int64_t time) {
    const std::size_t from = bytes_.size();
    Number(static_cast<std::uint64_t>(time), 8);
    Number(blocks.size(), 4);
    for (const ChangedBlocks::Block& block : blocks) {
        Number(block.number, 4);
        Number(block.before, 8);
        const auto bytes = ChangedBlocks::Of(all, block.number);
        bytes_.insert(bytes_.end(), bytes.begin(), bytes.end());
    }
    Sum(from);
}

std::optional<Recovery> ReadRecovery(std::span<const std::uint8_t> file) {
    Reader reader(file);
    Recovery recovery;
    if (!ReadHeader(reader, recovery.header)) {
        return std::nullopt;
    }
    while (ReadRecord(reader, recovery)) {
    }
    return recovery.blocks.empty() ? std::nullopt : std::optional(std::move(recovery));
}

} // namespace lumrake
