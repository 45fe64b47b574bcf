#include "shell/window/shut_down.h"

#include "disk/recovery_run.h"
#include "shell/shell.h"

#include <cstdlib>
#include <utility>

namespace lumrake {

namespace {

std::function<void()> processEnd; // in place of the real one

} // namespace

void ShutDown() {
    SaveSettings();
    EndRecoveryRun();
    if (processEnd) {
        processEnd();
        return;
    }
    // At once: a command may still be waiting in a loop of events further up, and nothing is left to do.
    std::_Exit(EXIT_SUCCESS);
}

void SetProcessEnd(std::function<void()> end) {
    processEnd = std::move(end);
}

} // namespace lumrake
