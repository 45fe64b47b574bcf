#include "snapshot/rules/document.h"

#include <algorithm>
#include <utility>

namespace lumrake {

void SnapshotDocument::Open(MemoryBlock bytes) {
    byMemory = std::move(bytes);
    bChanged = 0;
}

bool SnapshotDocument::WritePixel(const std::optional<PicturePixel>& pixel, std::int16_t iValue) {
    bChanged = -1;
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
    bChanged = -1;
    for (std::int32_t row = 0; row < block.iHeight; ++row) {
        if (progress) {
            progress(row, block.iHeight);
        }
        ForEachRun(byMemory.size(), view, block, row,
                   [this](const BlockRun& run) { Put(run.place, run.Mask(), 0); });
    }
}

void SnapshotDocument::DropBlock(const PixelBlock& block, std::string_view sData) {
    bChanged = -1;
    if (block.IsEmpty()) {
        return;
    }
    const auto width = static_cast<std::size_t>(block.iWidth);
    const auto rows =
        static_cast<std::int32_t>(std::min(sData.size() / width, static_cast<std::size_t>(block.iHeight)));
    for (std::int32_t row = 0; row < rows; ++row) {
        const char* const text = sData.data() + width * static_cast<std::size_t>(row);
        ForEachRun(byMemory.size(), view, block, row, [&](const BlockRun& run) {
            int bits = 0;
            for (std::int32_t i = 0; i < run.count; ++i) {
                bits |= (text[run.column + i] == '1' ? 1 : 0) << (run.iBit - i);
            }
            Put(run.place, run.Mask(), bits);
        });
    }
}

} // namespace lumrake
