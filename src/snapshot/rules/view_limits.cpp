#include "snapshot/rules/view_limits.h"

#include "display/attribute.h"

#include <algorithm>

namespace lumrake {

using lmk::kLeastWidth, lmk::kMostWidth, lmk::kMostLines, lmk::kMostColumns;

std::array<ValueLimits, 4> SpinLimits(std::int32_t lFileLength) {
    return {ValueLimits{0, lFileLength - 1, 1}, ValueLimits{kLeastWidth, kMostWidth, 8},
            ValueLimits{8, kMostLines, 8}, ValueLimits{1, kMostColumns, 1}};
}

std::int32_t SpinTo(std::int32_t lValue, bool bUp, const ValueLimits& limits) {
    const std::int64_t wanted = std::int64_t{lValue} + (bUp ? limits.lStep : -limits.lStep);
    if (bUp ? wanted > limits.lMax : wanted < limits.lMin) {
        return bUp ? limits.lMax : limits.lMin;
    }
    return static_cast<std::int32_t>(wanted);
}

ViewNumbers DefaultView(const SettingsRecord& settings, std::int32_t lFileLength) {
    const auto hold = [](std::int32_t value, std::int32_t least, std::int32_t most) {
        return static_cast<std::int16_t>(std::clamp(value, least, most));
    };
    ViewNumbers view;
    view.lFileLength = lFileLength;
    view.lOffset = std::clamp(settings.lDefaultOffset, 0, lFileLength - 1);
    view.iWidth = hold(settings.iDefaultWidth / 8 * 8, kLeastWidth, kMostWidth);
    view.iLines = hold(settings.iDefaultLines, 1, kMostLines);
    view.iColumns = hold(settings.iDefaultColumns, 1, kMostColumns);
    view.iMode = KnownMode(settings.iDefaultMode);
    return view;
}

void FitToMode(ViewNumbers& view, std::int16_t iNewMode) {
    view.iMode = iNewMode;
    const lmk::ModeRow& mode = lmk::RowOf(iNewMode);
    if (mode.fixedWidth != 0) {
        view.iWidth = mode.fixedWidth;
    }
    view.iLines = mode.fixedLines != 0 ? mode.fixedLines : lmk::LinesInMode(iNewMode, view.iLines);
}

std::int16_t NextAttribute(std::int16_t iAttribute, int iIndex, bool bBack) {
    const int step = bBack ? 7 : 1; // of eight
    const int ink = lmk::Ink(iAttribute + (iIndex == 0 ? step : 0));
    const int paper = lmk::Paper(iAttribute + (iIndex == 0 ? 0 : 8 * step));
    return lmk::MakeAttribute(ink, paper, lmk::IsBright(iAttribute));
}

} // namespace lumrake
