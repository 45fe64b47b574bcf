#include "disk/system_calls.h"

#if defined(__unix__) || defined(__APPLE__)
#include <cerrno>
#include <csignal>
#include <cstdint>
#include <fcntl.h>
#include <string>
#include <string_view>
#include <sys/file.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>
#elif defined(_WIN32)
#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <io.h>
#include <string>
#include <sys/stat.h>
#include <vector>
#include <windows.h>
#endif
#if defined(__linux__)
#include <algorithm>
#include <cstring>
#include <string_view>
#include <sys/xattr.h>
#include <vector>
#endif

namespace lumrake {

namespace {

#if defined(__unix__) || defined(__APPLE__)
constexpr int kEndSignals[] = {SIGTERM, SIGHUP, SIGINT};
int signalPipe = -1;

/// Runs between any two instructions of the program: only calls that may be made there.
void TellOfSignal(int) {
    const int error = errno;
    for (const int signal : kEndSignals) {
        std::signal(signal, SIG_DFL);
    }
    [[maybe_unused]] const ssize_t written = write(signalPipe, "", 1);
    errno = error;
}

bool Fails(int error) {
    errno = error;
    return false;
}

/// Owner and group of `old`. Only the administrator gives a file away: it may stay with the one who saves, unless
/// it runs in its owner's name. A foreign group is made up for only where it may do no more and no less than
/// everybody.
bool KeepOwner(const struct stat& old, int handle) {
    constexpr uid_t kAsItIs = static_cast<uid_t>(-1);
    struct stat now {};
    if (fstat(handle, &now) != 0) {
        return false;
    }
    if ((now.st_uid == old.st_uid && now.st_gid == old.st_gid) ||
        fchown(handle, old.st_uid, old.st_gid) == 0) {
        return true;
    }
    const bool notAllowed =
        errno == EPERM || errno == EINVAL; // EINVAL: a user whom a container does not know
    if (!notAllowed || (now.st_uid != old.st_uid && (old.st_mode & S_ISUID) != 0)) {
        return false;
    }
    const bool likeEverybody =
        (old.st_mode & S_ISGID) == 0 && (old.st_mode & S_IRWXG) >> 3 == (old.st_mode & S_IRWXO);
    return now.st_gid == old.st_gid || fchown(handle, kAsItIs, old.st_gid) == 0 || likeEverybody;
}
#endif

#if defined(__linux__)
constexpr const char* kAccessList = "system.posix_acl_access";

/// Check sums of the contents, which the system keeps itself.
bool IsOfTheContents(std::string_view attribute) {
    return attribute == "security.ima" || attribute == "security.evm";
}

/// The extended attributes, of which an access list is one. A file system that knows none has none to keep.
bool KeepAttributes(const char* path, int handle) {
    constexpr std::size_t kLongest = 65536; // bytes of all names, or of a value
    std::vector<char> names(kLongest), old(kLongest), now(kLongest);
    const ssize_t length = listxattr(path, names.data(), names.size());
    if (length < 0 && errno != ENOTSUP) {
        return false;
    }
    const char* const end = names.data() + std::max<ssize_t>(length, 0);
    bool hasAccessList = false;
    for (const char* name = names.data(); name < end; name += std::strlen(name) + 1) {
        if (IsOfTheContents(name)) {
            continue;
        }
        hasAccessList = hasAccessList || std::string_view(name) == kAccessList;
        const ssize_t size = getxattr(path, name, old.data(), old.size());
        if (size < 0) {
            return false;
        }
        const auto bytes = static_cast<std::size_t>(size);
        const bool same = fgetxattr(handle, name, now.data(), now.size()) == size &&
                          std::memcmp(now.data(), old.data(), bytes) == 0;
        if (!same && fsetxattr(handle, name, old.data(), bytes, 0) != 0) {
            return false;
        }
    }
    // A directory may have given the new file a list that the old one does not have.
    return hasAccessList || fgetxattr(handle, kAccessList, nullptr, 0) < 0 ||
           fremovexattr(handle, kAccessList) == 0;
}
#elif defined(__unix__) || defined(__APPLE__)
bool KeepAttributes(const char*, int) {
    return true;
}
#endif

#if defined(_WIN32)
/// Who may do what with a file, or nothing on failure.
std::vector<char> AccessListOf(const char* path) {
    DWORD size = 0;
    GetFileSecurityA(path, DACL_SECURITY_INFORMATION, nullptr, 0, &size);
    std::vector<char> list(size);
    if (size == 0 || GetFileSecurityA(path, DACL_SECURITY_INFORMATION, list.data(), size, &size) == 0) {
        list.clear();
    }
    return list;
}
#endif

} // namespace

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

bool IsNameOfAFile([[maybe_unused]] std::string_view name) {
#if defined(_WIN32)
    if (name.empty() || name.back() == '.' || name.back() == ' ' ||
        name.find_first_of("<>:\"/\\|?*") != name.npos) {
        return false;
    }
    std::string stem(name.substr(0, name.find('.')));
    while (!stem.empty() && stem.back() == ' ') {
        stem.pop_back();
    }
    for (const char* device : {"con", "prn", "aux", "nul", "conin$", "conout$"}) {
        if (_stricmp(stem.c_str(), device) == 0) {
            return false;
        }
    }
    const bool numbered = stem.size() == 4 && stem[3] >= '1' && stem[3] <= '9';
    return !numbered || (_strnicmp(stem.c_str(), "com", 3) != 0 && _strnicmp(stem.c_str(), "lpt", 3) != 0);
#else
    return true;
#endif
}

std::int64_t LengthOfFile(int handle) {
#if defined(_WIN32)
    return _filelengthi64(handle);
#else
    struct stat file {};
    return fstat(handle, &file) == 0 ? std::int64_t{file.st_size} : -1;
#endif
}

bool IdentifyFile(const char* path, FileIdentity& identity) {
#if defined(_WIN32)
    const HANDLE handle = CreateFileA(path, 0, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE,
                                      nullptr, OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS, nullptr);
    BY_HANDLE_FILE_INFORMATION found{};
    if (handle == INVALID_HANDLE_VALUE) {
        return false;
    }
    FILE_BASIC_INFO basic{};
    const bool known = GetFileInformationByHandle(handle, &found) != 0 &&
                       GetFileInformationByHandleEx(handle, FileBasicInfo, &basic, sizeof basic) != 0;
    CloseHandle(handle);
    const auto join = [](DWORD high, DWORD low) { return std::uint64_t{high} << 32 | low; };
    constexpr std::uint64_t kFrom1601To1970 = 116444736000000000; // in steps of 100 ns
    const std::uint64_t steps =
        join(found.ftLastWriteTime.dwHighDateTime, found.ftLastWriteTime.dwLowDateTime);
    identity = {found.dwVolumeSerialNumber, join(found.nFileIndexHigh, found.nFileIndexLow),
                static_cast<std::int64_t>(steps - kFrom1601To1970) * 100,
                static_cast<std::int64_t>(join(found.nFileSizeHigh, found.nFileSizeLow)),
                static_cast<std::int64_t>(basic.ChangeTime.QuadPart)};
    return known;
#else
    struct stat found {};
    if (stat(path, &found) != 0) {
        return false;
    }
#if defined(__APPLE__)
    const timespec time = found.st_mtimespec, touched = found.st_ctimespec;
#else
    const timespec time = found.st_mtim, touched = found.st_ctim;
#endif
    const auto nanoseconds = [](const timespec& of) {
        return std::int64_t{of.tv_sec} * 1'000'000'000 + of.tv_nsec;
    };
    identity = FileIdentity{found.st_dev, found.st_ino, nanoseconds(time), std::int64_t{found.st_size},
                            nanoseconds(touched)};
    return true;
#endif
}

bool MayTakePlace([[maybe_unused]] const char* path) {
#if !defined(_WIN32)
    const std::string folder(path, std::string_view(path).find_last_of('/') + 1);
    struct stat above {
    }, file{};
    return geteuid() == 0 || stat(folder.c_str(), &above) != 0 || (above.st_mode & S_ISVTX) == 0 ||
           above.st_uid == geteuid() || stat(path, &file) != 0 || file.st_uid == geteuid();
#else
    return true;
#endif
}

bool ReserveSpace([[maybe_unused]] int handle, [[maybe_unused]] std::int64_t length) {
#if defined(__linux__)
    const std::int64_t end = LengthOfFile(handle);
    const int error = end < 0 ? errno : end < length ? posix_fallocate(handle, end, length - end) : 0;
    if (error != 0 && error != EINVAL && error != EOPNOTSUPP) { // these: the disk knows no such thing
        return ftruncate(handle, end) == 0 && Fails(error);
    }
#endif
    return true;
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

bool SyncDirectory([[maybe_unused]] const char* path) {
#if defined(_WIN32)
    return true;
#else
    const int handle = open(path, O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (handle < 0) {
        return errno == EACCES; // one may be allowed to write into it and not to read it
    }
    const bool synced = SyncFile(handle);
    const int error = errno;
    close(handle);
    return synced || Fails(error);
#endif
}

bool KeepRights(const char* path, int handle) {
#if defined(_WIN32)
    constexpr DWORD kKept = FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM;
    std::vector<char> ours(32768); // the longest path
    const DWORD length = GetFinalPathNameByHandleA(reinterpret_cast<HANDLE>(_get_osfhandle(handle)),
                                                   ours.data(), static_cast<DWORD>(ours.size()), 0);
    const DWORD attributes = GetFileAttributesA(path);
    if (length == 0 || length >= ours.size() || attributes == INVALID_FILE_ATTRIBUTES) {
        return false;
    }
    std::vector<char> old = AccessListOf(path);
    // Where the list is the same nothing is asked of the system: some disks have none to set.
    if (old.empty() || (old != AccessListOf(ours.data()) &&
                        SetFileSecurityA(ours.data(), DACL_SECURITY_INFORMATION, old.data()) == 0)) {
        return false;
    }
    return (attributes & kKept) == 0 ||
           SetFileAttributesA(ours.data(), (attributes & kKept) | FILE_ATTRIBUTE_ARCHIVE) != 0;
#else
    constexpr mode_t kBits = 07777;
    struct stat old {
    }, now{};
    // An owner takes bits away, and a list sets some: they come last.
    if (stat(path, &old) != 0 || !KeepOwner(old, handle) || !KeepAttributes(path, handle) ||
        fstat(handle, &now) != 0) {
        return false;
    }
    if ((now.st_mode & kBits) == (old.st_mode & kBits)) {
        return true;
    }
    if (fchmod(handle, old.st_mode & kBits) != 0 || fstat(handle, &now) != 0) {
        return false;
    }
    // The bit of a group that is not the user's is left out without a word.
    return (now.st_mode & kBits) == (old.st_mode & kBits) || Fails(EPERM);
#endif
}

bool IsOwnFolder(const char* path) {
#if defined(_WIN32)
    const DWORD attributes = GetFileAttributesA(path);
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0 &&
           (attributes & FILE_ATTRIBUTE_REPARSE_POINT) == 0;
#else
    struct stat found {};
    return lstat(path, &found) == 0 && S_ISDIR(found.st_mode) && found.st_uid == geteuid() &&
           (found.st_mode & (S_IWGRP | S_IWOTH)) == 0;
#endif
}

int TakeLock(const char* path) {
#if defined(_WIN32)
    const int handle = _open(path, _O_RDWR | _O_CREAT | _O_NOINHERIT | _O_BINARY, _S_IREAD | _S_IWRITE);
    OVERLAPPED place{};
    if (handle >= 0 &&
        LockFileEx(reinterpret_cast<HANDLE>(_get_osfhandle(handle)),
                   LOCKFILE_EXCLUSIVE_LOCK | LOCKFILE_FAIL_IMMEDIATELY, 0, 1, 0, &place) == 0) {
        _close(handle);
        errno = EWOULDBLOCK;
        return -1;
    }
    return handle;
#else
    const int handle = open(path, O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW, 0600);
    if (handle < 0) {
        return -1;
    }
    struct stat held {
    }, named{};
    const bool locked = flock(handle, LOCK_EX | LOCK_NB) == 0;
    // Whoever had it may have taken the file away meanwhile: a lock of it would be seen by nobody.
    if (locked && fstat(handle, &held) == 0 && lstat(path, &named) == 0 && held.st_ino == named.st_ino &&
        held.st_dev == named.st_dev) {
        return handle;
    }
    const int error = locked ? EWOULDBLOCK : errno;
    close(handle);
    errno = error;
    return -1;
#endif
}

void DropLock(const char* path, int handle) {
#if defined(_WIN32)
    _close(handle); // what is open cannot be taken away; who locks it now takes it away himself
    _unlink(path);
#else
    unlink(path);
    close(handle);
#endif
}

int CatchEndSignals() {
#if defined(_WIN32)
    return -1;
#else
    int ends[2];
    if (pipe(ends) != 0) {
        return -1;
    }
    for (const int end : ends) {
        fcntl(end, F_SETFD, FD_CLOEXEC);
    }
    signalPipe = ends[1];
    for (const int signal : kEndSignals) {
        if (std::signal(signal, TellOfSignal) == SIG_IGN) {
            std::signal(signal, SIG_IGN);
        }
    }
    return ends[0];
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
