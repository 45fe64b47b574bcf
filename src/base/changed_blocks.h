#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <span>
#include <utility>
#include <vector>

namespace lumrake {

/// Which blocks of a document's bytes have changed since it was read or saved, and which of them are not kept on the
/// disk yet.
class ChangedBlocks {
  public:
    static constexpr std::size_t kBytes = 4096; ///< of a block; the last one may be shorter

    struct Block {
        std::uint32_t number;
        std::uint64_t before; ///< check sum of its bytes as the file has them
    };

    /// The bytes that a block has among all.
    template <class Byte> static std::span<Byte> Of(std::span<Byte> all, std::size_t number) {
        const std::size_t place = std::min(number * kBytes, all.size());
        return all.subspan(place, std::min(kBytes, all.size() - place));
    }

    /// Called when the first block becomes new: something is to be kept.
    std::function<void()> onNew;

    /// Nothing has changed in `length` bytes.
    void Open(std::size_t length);
    /// The byte at `place` is about to be written; `all` are the document's bytes before that. Costs a store but at
    /// the first write to a block.
    void Touch(std::span<const std::uint8_t> all, std::size_t place) {
        written_ = true;
        if (marks_[place / kBytes] != kNew) {
            MarkNew(all, place / kBytes);
        }
    }
    /// Whether anything was written since the last call.
    bool TakeWritten() { return std::exchange(written_, false); }

    /// All that changed, and those of them that are not kept.
    const std::vector<Block>& Changed() const { return changed_; }
    std::vector<Block> New() const;
    void SetKept();
    /// The file has the bytes as they now are.
    void Saved();

  private:
    enum Mark : std::uint8_t { kSame, kKept, kNew };
    void MarkNew(std::span<const std::uint8_t> all, std::size_t number);
    void SetMarks(Mark mark);

    std::vector<Mark> marks_; ///< one for each block
    std::vector<Block> changed_;
    bool written_ = false, anyNew_ = false;
};

} // namespace lumrake
