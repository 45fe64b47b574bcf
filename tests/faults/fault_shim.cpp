#include "faults/fault_shim.h"

#include <cerrno>
#include <cstdarg>
#include <dlfcn.h>
#include <fcntl.h>
#include <string_view>
#include <sys/types.h>
#include <unistd.h>

namespace lumrake::testing {

namespace {

FaultPlan plan;
bool armed = false;
bool full = false; // the disk, after a short write
int calls = 0;
int interruptible = 0;

std::set<std::string> struck;
std::set<int> watched; // open files below the plan's directory

template <typename Function> Function* Next(const char* name) {
    return reinterpret_cast<Function*>(dlsym(RTLD_NEXT, name));
}

bool IsBelow(const char* path) {
    return armed && path != nullptr && std::string_view(path).starts_with(plan.directory);
}

bool IsWatched(int handle) {
    return armed && watched.contains(handle);
}

/// Counts one call; true when it is to fail, with errno set.
bool Strikes(const char* name) {
    if (++calls != plan.failAt) {
        return false;
    }
    struck.insert(name);
    errno = plan.error;
    return true;
}

/// True when the caller is to try again.
bool Interrupts() {
    if (plan.interruptEvery == 0 || ++interruptible % plan.interruptEvery != 0) {
        return false;
    }
    errno = EINTR;
    return true;
}

int Open(const char* symbol, const char* path, int flags, unsigned mode) {
    const bool below = IsBelow(path);
    if (below && plan.onlyNamed && (flags & O_TMPFILE) == O_TMPFILE) {
        errno = EOPNOTSUPP;
        return -1;
    }
    if (below && Strikes("open")) {
        return -1;
    }
    const int handle = Next<int(const char*, int, ...)>(symbol)(path, flags, mode);
    if (below && handle >= 0) {
        watched.insert(handle);
    }
    return handle;
}

} // namespace

void ArmFaults(const FaultPlan& newPlan) {
    plan = newPlan;
    calls = interruptible = 0;
    watched.clear();
    full = false;
    armed = true;
}

int DisarmFaults() {
    armed = false;
    return calls;
}

const std::set<std::string>& StruckCalls() {
    return struck;
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

ssize_t read(int handle, void* bytes, size_t count) {
    static const auto next = Next<ssize_t(int, void*, size_t)>("read");
    return IsWatched(handle) && (Interrupts() || Strikes("read")) ? -1 : next(handle, bytes, count);
}

ssize_t write(int handle, const void* bytes, size_t count) {
    static const auto next = Next<ssize_t(int, const void*, size_t)>("write");
    if (!IsWatched(handle)) {
        return next(handle, bytes, count);
    }
    if (Interrupts()) {
        return -1;
    }
    if (full) {
        errno = plan.error;
        return -1;
    }
    const bool strikes = Strikes("write");
    full = strikes && plan.shortWrite;
    return full ? next(handle, bytes, count / 2) : strikes ? -1 : next(handle, bytes, count);
}

int fsync(int handle) {
    static const auto next = Next<int(int)>("fsync");
    return IsWatched(handle) && (Interrupts() || Strikes("fsync")) ? -1 : next(handle);
}

int rename(const char* from, const char* to) {
    return IsBelow(to) && Strikes("rename") ? -1 : Next<int(const char*, const char*)>("rename")(from, to);
}

int linkat(int fromDirectory, const char* from, int toDirectory, const char* to, int flags) {
    static const auto next = Next<int(int, const char*, int, const char*, int)>("linkat");
    return IsBelow(to) && Strikes("linkat") ? -1 : next(fromDirectory, from, toDirectory, to, flags);
}

int close(int handle) {
    static const auto next = Next<int(int)>("close");
    if (armed && watched.erase(handle) > 0 && Strikes("close")) {
        next(handle);
        errno = plan.error;
        return -1;
    }
    return next(handle);
}
}
