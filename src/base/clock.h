#pragma once

#include <functional>

namespace lumrake {

/// Seconds on a clock that never goes back (it does not count from midnight, so a wait across midnight ends
/// as any other). Only differences mean something.
double ClockSeconds();

/// Puts another clock in place of the real one, for tests; an empty function brings the real one back.
void SetClock(std::function<double()> clock);

} // namespace lumrake
