#include "snapshot/rules/block.h"

#include "base/numbers.h"

namespace lumrake {

PixelBlock BlockUnder(const NetRect& net, std::int32_t iZoomFactor) {
    const std::int32_t z = iZoomFactor;
    return {FloorDiv(net.Left, z), FloorDiv(net.Top, z),
            std::min(FloorDiv(net.Width + z - 1, z), kMaxBlockSide), std::min(net.Height / z, kMaxBlockSide)};
}

std::string LiftBlock(std::span<const std::uint8_t> byMemory, const ViewNumbers& view,
                      const PixelBlock& block, const RowProgress& progress) {
    if (block.IsEmpty()) {
        return {};
    }
    const auto width = static_cast<std::size_t>(block.iWidth);
    std::string sData(width * static_cast<std::size_t>(block.iHeight), '0');
    for (std::int32_t row = 0; row < block.iHeight; ++row) {
        if (progress) {
            progress(row, block.iHeight);
        }
        char* const text = sData.data() + width * static_cast<std::size_t>(row);
        ForEachRun(byMemory.size(), view, block, row, [&](const BlockRun& run) {
            const int byte = byMemory[run.place];
            for (std::int32_t i = 0; i < run.count; ++i) {
                text[run.column + i] = static_cast<char>('0' + ((byte >> (run.iBit - i)) & 1));
            }
        });
    }
    return sData;
}

} // namespace lumrake
