#include "platform/system_calls.h"

#if defined(__unix__) || defined(__APPLE__)
#include <cerrno>
#include <csignal>
#include <cstdint>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>
#elif defined(_WIN32)
#include <io.h>
#endif

namespace lumrake {

void AdviseLargePages([[maybe_unused]] void* memory, [[maybe_unused]] std::size_t size) {
#if defined(__linux__)
    constexpr std::uintptr_t kLargePage = std::uintptr_t{2} << 20;
    const std::uintptr_t address = reinterpret_cast<std::uintptr_t>(memory);
    const std::uintptr_t begin = (address + kLargePage - 1) & ~(kLargePage - 1);
    const std::uintptr_t end = (address + size) & ~(kLargePage - 1);
    if (begin < end) {
        madvise(reinterpret_cast<void*>(begin), end - begin, MADV_HUGEPAGE);
    }
#endif
}

bool SyncFile(int handle) {
#if defined(_WIN32)
    return _commit(handle) == 0;
#else
    int result = 0;
    do {
        result = fsync(handle);
    } while (result != 0 && errno == EINTR);
    // Files that cannot be synced by their nature (a pipe, some network shares) are not a failure.
    return result == 0 || errno == EINVAL || errno == ENOTSUP;
#endif
}

void GiveToOwnerOf([[maybe_unused]] const char* path, [[maybe_unused]] int handle) {
#if !defined(_WIN32)
    struct stat old {};
    if (stat(path, &old) == 0 && fchown(handle, old.st_uid, old.st_gid) != 0) {
        constexpr uid_t kAsItIs = static_cast<uid_t>(-1);
        [[maybe_unused]] const int result = fchown(handle, kAsItIs, old.st_gid); // of one's own groups
    }
#endif
}

void HoldWriteSignals() {
#if defined(SIGXFSZ)
    std::signal(SIGXFSZ, SIG_IGN);
#endif
#if defined(SIGPIPE)
    std::signal(SIGPIPE, SIG_IGN);
#endif
}

} // namespace lumrake
