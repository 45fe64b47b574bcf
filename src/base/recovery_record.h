#pragma once

#include "base/changed_blocks.h"

#include <cstdint>
#include <iterator>
#include <map>
#include <optional>
#include <span>
#include <string>
#include <utility>
#include <vector>

namespace lumrake {

/// What a document differs in from its file, as it is kept in case that the program ends without saving. A header and
/// records that are only ever appended, all little-endian. Each check sum goes on from the one before it, the first
/// from 0, so that a file which was cut or harmed anywhere still gives what the whole records before that place say:
/// a state that the document was in.
///
///   offset  width    field
///        0      4    "LMKR"
///        4      1    version, 1
///        5      1    0 a snapshot, 1 an animation
///        6      2    P, bytes of the path, at most 4096
///        8      8    length of the document, 1 to 2147483647; 759 for an animation
///       16      P    true path of its file, UTF-8; none for an animation that was never saved
///     16+P      8    check sum of all that
///
///   a record: the blocks that changed since the one before
///        0      8    when, in milliseconds since 1970 (UTC)
///        8      4    number of blocks, 1 and more
///       12   each    block: 4 its number, the place divided by 4096; 8 check sum of the block in the file, which tells
///                    whether that is still the one that was read; 4096 bytes, or as many as the document has there
///                    at its end
///      end      8    check sum of the record
///
/// The first pixel of a 6912-byte document "/a" drawn:
///   4C 4D 4B 52 01 00 02 00  00 1B 00 00 00 00 00 00  2F 61  sum
///   time  01 00 00 00  00 00 00 00  sum  80 and 4095 bytes  sum
struct RecoveryHeader {
    enum Kind : std::uint8_t { kSnapshot, kAnimation };
    Kind kind = kSnapshot;
    std::string path;         ///< UTF-8
    std::uint64_t length = 0; ///< bytes of the document
};

/// Makes the bytes of such a file, one stretch after the other.
class RecoveryWriter {
  public:
    /// The next bytes begin a file.
    void Begin(const RecoveryHeader& header);
    /// Adds a record of these blocks out of all bytes of the document.
    void Add(std::span<const ChangedBlocks::Block> blocks, std::span<const std::uint8_t> all,
             std::int64_t time);
    /// What came to since the last call; what goes behind the bytes taken before.
    std::vector<std::uint8_t> Take() { return std::exchange(bytes_, {}); }

  private:
    void Number(std::uint64_t value, std::size_t width);
    void Sum(std::size_t from);

    std::vector<std::uint8_t> bytes_;
    std::uint64_t sum_ = 0;
};

/// What a file says, up to its first record that is harmed or not whole.
struct Recovery {
    struct Block {
        std::uint64_t before;                ///< check sum
        std::span<const std::uint8_t> bytes; ///< in the memory of the file
    };
    RecoveryHeader header;
    std::int64_t time = 0;                 ///< of the last record
    std::map<std::uint32_t, Block> blocks; ///< by their numbers, not empty

    /// Behind the last byte of them.
    std::int64_t End() const {
        const auto& [number, block] = *blocks.rbegin();
        return std::int64_t{number} * std::int64_t{ChangedBlocks::kBytes} + std::ssize(block.bytes);
    }
};

/// Nothing where the bytes are no such file, of another version, or have no whole record. Any bytes will do.
std::optional<Recovery> ReadRecovery(std::span<const std::uint8_t> file);

} // namespace lumrake
