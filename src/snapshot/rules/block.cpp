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
    std::string sData(static_cast<std::size_t>(block.iWidth) * static_cast<std::size_t>(block.iHeight), '0');
    ForEachRun(byMemory.size(), view, block, progress, [&](std::int32_t row, const BlockRun& run) {
        char* const text = sData.data() + row * block.iWidth + run.column;
        for (std::int32_t i = 0; i < run.count; ++i) {
            text[i] = static_cast<char>('0' + ((byMemory[run.place] >> (run.iBit - i)) & 1));
        }
    });
    return sData;
}

} // namespace lumrake
