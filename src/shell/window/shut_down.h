#pragma once

#include <functional>

namespace lumrake {

/// Writes the settings, the only place where they reach the disk, and ends the process at once. Called when
/// the main window has been unloaded.
void ShutDown();

/// Puts something else in place of the end of the process, for tests; an empty function brings it back.
void SetProcessEnd(std::function<void()> end);

} // namespace lumrake
