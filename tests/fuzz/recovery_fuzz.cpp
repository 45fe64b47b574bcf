/// What a dead program kept, of any bytes: only what lies within the document is brought back, in the state of a whole
/// record. The bytes are read as they are, and once more as a record with right check sums behind a right header; the
/// first two are the document's length there.
#include "base/check_sum.h"
#include "base/recovery_record.h"
#include "fuzz/require.h"

#include <cstring>

using namespace lumrake;

namespace {

std::size_t BlocksWithin(std::span<const std::uint8_t> file) {
    const auto recovery = ReadRecovery(file);
    if (!recovery) {
        return 0;
    }
    Require(recovery->header.length >= 1 && recovery->header.length <= 0x7fffffff &&
            !recovery->blocks.empty());
    for (const auto& [number, block] : recovery->blocks) {
        const std::uint64_t place = std::uint64_t{number} * ChangedBlocks::kBytes;
        Require(!block.bytes.empty() && place + block.bytes.size() <= recovery->header.length);
        Require(block.bytes.data() >= file.data() &&
                block.bytes.data() + block.bytes.size() <= file.data() + file.size());
    }
    return recovery->blocks.size();
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    std::vector<std::uint8_t> file(data, data + size);
    BlocksWithin(file);

    std::uint16_t length = 0;
    std::memcpy(&length, data, std::min(size, sizeof length));
    RecoveryWriter writer;
    writer.Begin({RecoveryHeader::kSnapshot, "/a", length});
    std::vector<std::uint8_t> right = writer.Take();
    std::uint64_t sum = 0;
    std::memcpy(&sum, right.data() + right.size() - sizeof sum, sizeof sum);
    const std::span<const std::uint8_t> record = std::span(file).subspan(std::min(size, sizeof length));
    sum = CheckSum(record, sum);
    right.insert(right.end(), record.begin(), record.end());
    right.insert(right.end(), reinterpret_cast<std::uint8_t*>(&sum),
                 reinterpret_cast<std::uint8_t*>(&sum + 1));
    const std::size_t blocks = BlocksWithin(right);
    Require(blocks <= size / 13); // a number, a check sum and a byte
    // Whole records may stand in front of the last one, which is nothing without the last byte of its check sum.
    const std::span<const std::uint8_t> whole(right);
    Require(BlocksWithin(whole.first(whole.size() - 1)) ==
            BlocksWithin(whole.first(whole.size() - sizeof sum)));
    return 0;
}
