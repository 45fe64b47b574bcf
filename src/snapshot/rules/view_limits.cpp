#include "snapshot/rules/view_limits.h"

#include <algorithm>

namespace lumrake {

namespace {
constexpr std::int32_t kMinWidth = 8, kMaxWidth = 256;
constexpr std::int16_t kScreenModeWidth = 256, kScreenModeLines = 192;
} // namespace

std::array<ValueLimits, 4> SpinLimits(std::int32_t lFileLength) {
    return {ValueLimits{0, lFileLength - 1, 1}, ValueLimits{kMinWidth, kMaxWidth, 8},
            ValueLimits{8, kMaxLines, 8}, ValueLimits{1, kMaxColumns, 1}};
}

std::int32_t SpinTo(std::int32_t lValue, bool bUp, const ValueLimits& limits) {
    const std::int64_t wanted = std::int64_t{lValue} + (bUp ? limits.lStep : -limits.lStep);
    if (bUp ? wanted > limits.lMax : wanted < limits.lMin) {
        return bUp ? limits.lMax : limits.lMin;
    }
    return static_cast<std::int32_t>(wanted);
}

TypedValue TypedCount(std::int32_t lNumber, std::int32_t lMost) {
    const std::int32_t held = std::clamp(lNumber, 1, lMost);
    return {held, held != lNumber};
}

TypedValue TypedOffset(std::int32_t lNumber, std::int32_t lFileLength) {
    const std::int32_t held = std::clamp(lNumber, 0, lFileLength - 1);
    return {held, held != lNumber};
}

ViewNumbers DefaultView(const SettingsRecord& settings, std::int32_t lFileLength) {
    const auto hold = [](std::int32_t value, std::int32_t least, std::int32_t most) {
        return static_cast<std::int16_t>(std::clamp(value, least, most));
    };
    ViewNumbers view;
    view.lFileLength = lFileLength;
    view.lOffset = TypedOffset(settings.lDefaultOffset, lFileLength).lValue;
    view.iWidth = hold(settings.iDefaultWidth / 8 * 8, kMinWidth, kMaxWidth);
    view.iLines = hold(settings.iDefaultLines, 1, kMaxLines);
    view.iColumns = hold(settings.iDefaultColumns, 1, kMaxColumns);
    view.iMode = KnownMode(settings.iDefaultMode);
    return view;
}

void FitToMode(ViewNumbers& view, std::int16_t iNewMode) {
    view.iMode = iNewMode;
    if (iNewMode == kScreen) {
        view.iWidth = kScreenModeWidth;
        view.iLines = kScreenModeLines;
    } else if (iNewMode == kText) {
        view.iLines = std::max<std::int16_t>(static_cast<std::int16_t>(view.iLines / 8 * 8), 8);
    }
}

std::int16_t NextAttribute(std::int16_t iAttribute, int iIndex) {
    const int shift = iIndex == 0 ? 0 : 3;
    const int next = ((iAttribute >> shift) + 1) & 7;
    const int kept = iAttribute & (iIndex == 0 ? 0x78 : 0x47); // the other colour and the bright bit
    return static_cast<std::int16_t>(kept | next << shift);
}

} // namespace lumrake
