#include "base/changed_blocks.h"

#include "base/check_sum.h"

#include <algorithm>
#include <iterator>

namespace lumrake {

void ChangedBlocks::Open(std::size_t length) {
    marks_.assign((length + kBytes - 1) / kBytes, kSame);
    changed_.clear();
    anyNew_ = false;
}

void ChangedBlocks::MarkNew(std::span<const std::uint8_t> all, std::size_t number) {
    if (marks_[number] == kSame) {
        changed_.push_back({static_cast<std::uint32_t>(number), CheckSum(Of(all, number))});
    }
    marks_[number] = kNew;
    if (!std::exchange(anyNew_, true) && onNew) {
        onNew();
    }
}

std::vector<ChangedBlocks::Block> ChangedBlocks::New() const {
    std::vector<Block> blocks;
    std::copy_if(changed_.begin(), changed_.end(), std::back_inserter(blocks),
                 [this](const Block& block) { return marks_[block.number] == kNew; });
    return blocks;
}

void ChangedBlocks::SetMarks(Mark mark) {
    for (const Block& block : changed_) {
        marks_[block.number] = mark;
    }
    anyNew_ = false;
}

void ChangedBlocks::SetKept() {
    SetMarks(kKept);
}

void ChangedBlocks::Saved() {
    SetMarks(kSame);
    changed_.clear();
}

} // namespace lumrake
