#include "base/clock.h"

#include <chrono>
#include <utility>

namespace lumrake {

namespace {
std::function<double()>& ReplacedClock() {
    static std::function<double()> clock;
    return clock;
}
} // namespace

double ClockSeconds() {
    if (ReplacedClock()) {
        return ReplacedClock()();
    }
    return std::chrono::duration<double>(std::chrono::steady_clock::now().time_since_epoch()).count();
}

void SetClock(std::function<double()> clock) {
    ReplacedClock() = std::move(clock);
}

} // namespace lumrake
