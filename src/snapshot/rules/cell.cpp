#include "snapshot/rules/cell.h"

#include "base/numbers.h"

#include <algorithm>
#include <sstream>

namespace lumrake {

PicturePixel HeldInside(const ViewNumbers& view, std::int64_t x, std::int64_t y, std::int32_t past) {
    const auto held = [past](std::int64_t at, std::int32_t size) {
        return static_cast<std::int32_t>(std::clamp<std::int64_t>(at, 0, size - 1 + past));
    };
    return {held(x, view.PictureWidth()), held(y, view.iLines)};
}

std::int32_t PannedToShow(std::int32_t place, std::int32_t first, std::int32_t length, std::int32_t room) {
    return std::max(std::min(place, room - first - length), -first);
}

std::int32_t PannedBy(std::int32_t place, std::int32_t by, std::int32_t size, std::int32_t room) {
    const std::int32_t least = std::min({0, room - size, place}), most = std::max(0, place);
    return static_cast<std::int32_t>(std::clamp<std::int64_t>(std::int64_t{place} + by, least, most));
}

ByteUnder ByteAt(std::span<const std::uint8_t> byMemory, const ViewNumbers& view, const PicturePixel& pixel) {
    const PixelAddress at = LocatePixel(view, pixel);
    const auto place = static_cast<std::uint64_t>(at.lAddress);
    return {at.lAddress, at.iBit, place < byMemory.size() ? byMemory[place] : -1};
}

std::array<std::string, 3> LinesOf(const ByteUnder& byte) {
    std::ostringstream hexadecimal;
    hexadecimal << "0x" << std::uppercase << std::hex << byte.lAddress;
    return {std::to_string(byte.lAddress) + " bit " + std::to_string(byte.iBit), hexadecimal.str(),
            byte.iValue < 0 ? "past the end" : "value " + std::to_string(byte.iValue)};
}

PicturePixel CellCursor::In(const ViewNumbers& view, std::int32_t left, std::int32_t top,
                            std::int32_t past) const {
    return bByKeys ? HeldInside(view, pixel.x, pixel.y, past)
                   : HeldInside(view, FloorDiv(iMouseLeft - left, view.iZoomFactor),
                                FloorDiv(iMouseTop - top, view.iZoomFactor), past);
}

} // namespace lumrake
