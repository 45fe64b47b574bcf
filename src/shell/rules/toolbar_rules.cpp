#include "shell/rules/toolbar_rules.h"

#include "base/numbers.h"

#include <algorithm>
#include <array>

namespace lumrake {

namespace {
constexpr std::array kWithPrompt = {2, 3, 4, 6, 7, 8, 10, 11, 12, 13, 15, 16, 18, 19, 20};
constexpr std::int32_t kPromptBeforeButtons = 18;
} // namespace

int ButtonAtX(double X, std::span<const std::int32_t> widths) {
    const std::int32_t x = HeldTo<std::int16_t>(X);
    std::int32_t left = 0;
    int index = 0;
    int hit = -1;
    for (const std::int32_t width : widths) {
        ++index;
        if (x > left && x < left + width) {
            hit = index;
        }
        left += width;
    }
    return hit;
}

std::int32_t PromptOfButton(int hit) {
    const bool speaks = std::find(kWithPrompt.begin(), kWithPrompt.end(), hit) != kWithPrompt.end();
    return speaks ? hit + kPromptBeforeButtons : 0;
}

} // namespace lumrake
