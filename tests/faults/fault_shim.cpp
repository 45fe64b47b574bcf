#include "faults/fault_shim.h"

#include <cerrno>
#include <cstdarg>
#include <dlfcn.h>
#include <fcntl.h>
#include <set>
#include <string_view>
#include <sys/file.h>
#include <sys/stat.h>
#include <sys/types.h>
#include <unistd.h>

namespace lumrake::testing {

namespace {

FaultPlan plan;
bool armed = false;
bool full = false; // the disk, after a short write
int calls = 0;
int interruptible = 0;

std::string struck;
std::set<int> watched; // open files and directories below the plan's directory

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
    struck = name;
    errno = plan.error;
    return true;
}

/// Passes a call on unless it counts and its turn to fail has come.
template <typename Result, typename... Arguments>
Result Pass(bool counts, const char* name, Arguments... arguments) {
    return counts && Strikes(name) ? -1 : Next<Result(Arguments...)>(name)(arguments...);
}

/// True when the caller is to try again.
bool Interrupts() {
    if (plan.interruptEvery == 0 || ++interruptible % plan.interruptEvery != 0) {
        return false;
    }
    errno = EINTR;
    return true;
}

} // namespace

void ArmFaults(const FaultPlan& newPlan) {
    plan = newPlan;
    calls = interruptible = 0;
    watched.clear();
    struck = "none";
    full = false;
    armed = true;
}

int DisarmFaults() {
    armed = false;
    return calls;
}

std::string StruckCall() {
    return struck;
}

} // namespace lumrake::testing

using namespace lumrake::testing;

extern "C" {

int open64(const char* path, int flags, ...) {
    va_list rest;
    va_start(rest, flags);
    const unsigned mode = va_arg(rest, unsigned);
    va_end(rest);
    const bool below = IsBelow(path);
    if (below && Strikes((flags & O_DIRECTORY) != 0 ? "directory" : "open")) {
        return -1;
    }
    const int handle = Next<int(const char*, int, ...)>("open64")(path, flags, mode);
    if (below && handle >= 0) {
        watched.insert(handle);
    }
    return handle;
}

[[gnu::alias("open64")]] int open(const char* path, int flags, ...);

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
    if (!IsWatched(handle)) {
        return next(handle);
    }
    struct stat found {};
    const bool directory =
        Next<int(int, struct stat*)>("fstat")(handle, &found) == 0 && S_ISDIR(found.st_mode);
    return Interrupts() || Strikes(directory ? "directory" : "fsync") ? -1 : next(handle);
}

int statx(int directory, const char* path, int flags, unsigned mask, struct statx* found) {
    const bool counts = IsBelow(path) || ((flags & AT_EMPTY_PATH) != 0 && IsWatched(directory));
    return Pass<int>(counts, "statx", directory, path, flags, mask, found);
}

int stat(const char* path, struct stat* found) {
    return Pass<int>(IsBelow(path), "stat", path, found);
}

int fchmod(int handle, mode_t mode) {
    return Pass<int>(IsWatched(handle), "fchmod", handle, mode);
}

int fsetxattr(int handle, const char* name, const void* value, size_t size, int flags) {
    return Pass<int>(IsWatched(handle), "fsetxattr", handle, name, value, size, flags);
}

int mkdir(const char* path, mode_t mode) {
    return Pass<int>(IsBelow(path), "mkdir", path, mode);
}

int flock(int handle, int operation) {
    return Pass<int>(IsWatched(handle), "flock", handle, operation);
}

int rename(const char* from, const char* to) {
    if (IsBelow(to) && plan.mounted && access(to, F_OK) == 0 &&
        std::string_view(to).find("/lumrake/") == std::string_view::npos) {
        errno = EBUSY;
        return -1;
    }
    return Pass<int>(IsBelow(to), "rename", from, to);
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
