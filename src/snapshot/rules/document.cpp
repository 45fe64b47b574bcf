#include "snapshot/rules/document.h"

#include <algorithm>
#include <utility>

namespace lumrake {

void SnapshotDocument::Open(MemoryBlock bytes) {
    byMemory = std::move(bytes);
    blocks.Open(byMemory.size());
    bChanged = 0;
}

void SnapshotDocument::Saved() {
    blocks.Saved();
    bChanged = 0;
}

void SnapshotDocument::LayOver(std::size_t number, std::span<const std::uint8_t> bytes) {
    const auto block = ChangedBlocks::Of(byMemory.Bytes(), number);
    SetChanged();
    if (!block.empty()) {
        blocks.Touch(Bytes(), number * ChangedBlocks::kBytes);
        std::copy_n(bytes.begin(), std::min(bytes.size(), block.size()), block.begin());
    }
}

bool SnapshotDocument::WritePixel(const std::optional<PicturePixel>& pixel, std::int16_t iValue) {
    SetChanged();
    const auto at = pixel ? AddressIn(byMemory.size(), view, *pixel) : std::nullopt;
    if (at) {
        Put(static_cast<std::size_t>(at->lAddress), iBitValue[at->iBit],
            iValue == 1 ? iBitValue[at->iBit] : 0);
    }
    return at.has_value();
}

std::int16_t SnapshotDocument::ReadPixel(const std::optional<PicturePixel>& pixel) const {
    return pixel ? lumrake::ReadPixel(Bytes(), view, *pixel) : std::int16_t{0};
}

void SnapshotDocument::ClearBlock(const PixelBlock& block, const RowProgress& progress) {
    if (block.IsEmpty()) {
        return;
    }
    SetChanged();
    ForEachRun(byMemory.size(), view, block, progress,
               [this](std::int32_t, const BlockRun& run) { Put(run.place, run.Mask(), 0); });
}

void SnapshotDocument::DropBlock(PixelBlock block, std::string_view sData) {
    if (block.IsEmpty()) {
        return;
    }
    SetChanged();
    const std::size_t rows = sData.size() / static_cast<std::size_t>(block.iWidth);
    block.iHeight = static_cast<std::int32_t>(std::min(rows, static_cast<std::size_t>(block.iHeight)));
    ForEachRun(byMemory.size(), view, block, {}, [&](std::int32_t row, const BlockRun& run) {
        const char* const text = sData.data() + row * block.iWidth + run.column;
        int bits = 0;
        for (std::int32_t i = 0; i < run.count; ++i) {
            bits |= (text[i] == '1' ? 1 : 0) << (run.iBit - i);
        }
        Put(run.place, run.Mask(), bits);
    });
}

} // namespace lumrake
