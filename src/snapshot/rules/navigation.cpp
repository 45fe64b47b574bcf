#include "snapshot/rules/navigation.h"

#include "base/numbers.h"

#include <algorithm>
#include <cmath>

namespace lumrake {

std::int32_t ThumbTravel(std::int32_t iBarHeight) {
    return std::max(iBarHeight - 2 * kArrowHeight - kThumbHeight, 1);
}

float BytesPerPixel(std::int32_t lFileLength, std::int32_t iBarHeight) {
    return static_cast<float>(lFileLength) / static_cast<float>(ThumbTravel(iBarHeight));
}

std::int32_t ThumbPlace(std::int32_t lOffset, std::int32_t lFileLength, std::int32_t iBarHeight) {
    const float place = std::floor(static_cast<float>(lOffset) / BytesPerPixel(lFileLength, iBarHeight));
    return std::clamp(HeldTo<std::int32_t>(place), 0, ThumbTravel(iBarHeight));
}

DraggedThumb DragThumb(std::int32_t iThumbTop, std::int32_t iMouseY, std::int32_t lGrabY,
                       std::int32_t lFileLength, std::int32_t iBarHeight) {
    const std::int32_t lLast = lFileLength - 1;
    const std::int32_t iTop = iThumbTop + iMouseY - lGrabY;
    if (iTop < kArrowHeight) {
        return {kArrowHeight, 0};
    }
    const std::int32_t iLastTop = kArrowHeight + ThumbTravel(iBarHeight);
    if (iTop > iLastTop) {
        return {iLastTop, lLast};
    }
    const auto place = static_cast<float>(iThumbTop - kArrowHeight);
    const float offset = std::floor(place * BytesPerPixel(lFileLength, iBarHeight));
    return {iTop, std::clamp(HeldTo<std::int32_t>(offset), 0, lLast)};
}

std::int32_t ScrolledOffset(const ViewNumbers& view, std::int32_t iTag, std::int32_t iValue,
                            std::int16_t iSmallChange, std::int16_t iLargeChange) {
    const float rowBytes = static_cast<float>(view.iWidth) / 8;
    double lines = 0;
    switch (std::abs(iValue - iTag)) {
    case 1: lines = std::max<int>(iSmallChange, 1); break;
    case 2: lines = RoundHalfEven(1.0 * view.iLines / std::max<int>(iLargeChange, 1)); break;
    default: return view.lOffset;
    }
    const auto step = static_cast<std::int64_t>(RoundHalfEven(lines * rowBytes));
    const std::int64_t offset = view.lOffset + (iValue < iTag ? -step : step);
    return static_cast<std::int32_t>(std::clamp<std::int64_t>(offset, 0, view.lFileLength - 1));
}

} // namespace lumrake
