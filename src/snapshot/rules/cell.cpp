#include "snapshot/rules/cell.h"

#include "base/numbers.h"

#include <algorithm>

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

PicturePixel CellCursor::In(const ViewNumbers& view, std::int32_t left, std::int32_t top,
                            std::int32_t past) const {
    return bByKeys ? HeldInside(view, pixel.x, pixel.y, past)
                   : HeldInside(view, FloorDiv(iMouseLeft - left, view.iZoomFactor),
                                FloorDiv(iMouseTop - top, view.iZoomFactor), past);
}

} // namespace lumrake
