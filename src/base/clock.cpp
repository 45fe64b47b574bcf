#include "base/clock.h"

#include <chrono>
#include <utility>

namespace lumrake {

namespace {
std::function<double()> replacedClock;
} // namespace

double ClockSeconds() {
    if (replacedClock) {
        return replacedClock();
    }
    return std::chrono::duration<double>(std::chrono::steady_clock::now().time_since_epoch()).count();
}

void SetClock(std::function<double()> clock) {
    replacedClock = std::move(clock);
}

} // namespace lumrake
