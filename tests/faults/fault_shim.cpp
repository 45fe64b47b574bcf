#include "faults/fault_shim.h"

#include <cerrno>
#include <cstdarg>
#include <cstdlib>
#include <cstring>
#include <dlfcn.h>
#include <fcntl.h>
#include <optional>
#include <set>
#include <sys/types.h>
#include <unistd.h>

namespace lumrake::testing {

namespace {

FaultPlan plan;
bool armed = false;
int calls = 0;
int interruptible = 0;
std::set<int>& Watched() {
    static std::set<int> handles; // open files below the plan's directory
    return handles;
}

template <typename Function> Function Next(const char* name) {
    return reinterpret_cast<Function>(dlsym(RTLD_NEXT, name));
}

bool IsBelow(const char* path) {
    return armed && path != nullptr && std::string_view(path).starts_with(plan.directory);
}

/// Counts one call; true when it is to fail, with errno set.
bool Strikes() {
    ++calls;
    if (calls == plan.failAt) {
        errno = plan.error;
        return true;
    }
    return false;
}

/// True when this call is to be repeated by its caller.
bool Interrupts() {
    if (plan.interruptEvery > 0 && ++interruptible % plan.interruptEvery == 0) {
        errno = EINTR;
        return true;
    }
    return false;
}

int Open(const char* symbol, const char* path, int flags, unsigned mode) {
    const bool below = IsBelow(path);
    if (below && Strikes()) {
        return -1;
    }
    const int handle = Next<int (*)(const char*, int, ...)>(symbol)(path, flags, mode);
    if (below && handle >= 0) {
        Watched().insert(handle);
    }
    return handle;
}

} // namespace

void ArmFaults(const FaultPlan& newPlan) {
    plan = newPlan;
    calls = 0;
    interruptible = 0;
    Watched().clear();
    armed = true;
}

int DisarmFaults() {
    armed = false;
    return calls;
}

} // namespace lumrake::testing

using namespace lumrake::testing;

extern "C" {

int open(const char* path, int flags, ...) {
    va_list rest;
    va_start(rest, flags);
    const unsigned mode = va_arg(rest, unsigned);
    va_end(rest);
    return Open("open", path, flags, mode);
}

int open64(const char* path, int flags, ...) {
    va_list rest;
    va_start(rest, flags);
    const unsigned mode = va_arg(rest, unsigned);
    va_end(rest);
    return Open("open64", path, flags, mode);
}

ssize_t write(int handle, const void* bytes, size_t count) {
    static const auto next = Next<ssize_t (*)(int, const void*, size_t)>("write");
    if (armed && Watched().contains(handle)) {
        if (Interrupts()) {
            return -1;
        }
        if (Strikes()) {
            if (plan.shortWrite && count > 1) {
                plan.failAt = calls + 1; // what is written next finds the disk full
                return next(handle, bytes, count / 2);
            }
            return -1;
        }
    }
    return next(handle, bytes, count);
}

int fsync(int handle) {
    static const auto next = Next<int (*)(int)>("fsync");
    if (armed && Watched().contains(handle) && (Interrupts() || Strikes())) {
        return -1;
    }
    return next(handle);
}

int rename(const char* from, const char* to) {
    static const auto next = Next<int (*)(const char*, const char*)>("rename");
    return IsBelow(to) && Strikes() ? -1 : next(from, to);
}

int linkat(int fromDirectory, const char* from, int toDirectory, const char* to, int flags) {
    static const auto next = Next<int (*)(int, const char*, int, const char*, int)>("linkat");
    return IsBelow(to) && Strikes() ? -1 : next(fromDirectory, from, toDirectory, to, flags);
}

int close(int handle) {
    static const auto next = Next<int (*)(int)>("close");
    if (armed && Watched().erase(handle) > 0 && Strikes()) {
        next(handle);
        errno = plan.error;
        return -1;
    }
    return next(handle);
}
}
