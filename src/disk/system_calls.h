#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace lumrake {

// What belongs to one operating system and has no counterpart in the toolkit.

/// Asks for large memory pages behind the `size` bytes from `memory` on, as far as whole ones lie in it: a
/// gigabyte is filled in a quarter of the time then. A hint: nothing happens where the system has no such
/// thing.
void AdviseLargePages(void* memory, std::size_t size);

/// True when the system takes the last component of a path as the name of a file, and as no other than it says.
/// Windows gives some names to devices, drops dots and blanks at the end and keeps some characters to itself.
bool IsNameOfAFile(std::string_view name);

/// Length in bytes of the open file, or -1 with errno set.
std::int64_t LengthOfFile(int handle);

/// What tells one state of a file from another without a look into it.
struct FileIdentity {
    std::uint64_t device = 0, file = 0; ///< of the disk and, on it, of the file
    std::int64_t time = 0;              ///< of the last change of its contents, in nanoseconds since 1970
    std::int64_t length = -1;           ///< bytes
    std::int64_t touched =
        0; ///< when last, new rights and names too; nobody sets it back. Only to be compared

    bool operator==(const FileIdentity&) const = default;
};
/// Of the file at `path`, behind symbolic links. False on failure, with errno set.
bool IdentifyFile(const char* path, FileIdentity& identity);

/// Whether the system lets this user put a new file in the place of his file at `path`, as far as the owners of a sticky
/// folder and of its files decide about it. True where it cannot say.
bool MayTakePlace(const char* path);

/// Sees to it that the open file, as far as it goes beyond its present end, finds room on its disk when it is written
/// up to `length` bytes: the rest reads as zeros. False when there is none, with errno set and its end where it was.
bool ReserveSpace(int handle, std::int64_t length);

/// Waits until everything written to the open file is on the disk. False on failure, with errno set.
bool SyncFile(int handle);

/// The same for the names in a directory: that a new file stands there and not the old one. A directory that cannot
/// be read, or has no such thing by its nature, is not a failure.
bool SyncDirectory(const char* path);

/// Gives the open file `handle` all that says who may do what with the file at `path`: owner and group, mode bits,
/// access lists and the other extended attributes, no more and no less; on Windows its access list, and whether it is
/// hidden. A write takes some of it away again: call it
/// before the contents, so that nobody reads what he could not, and once more behind them. False when something
/// cannot be kept, with errno set; only the owner is let go where the system does not let the user give a file away.
bool KeepRights(const char* path, int handle);

/// Whether a folder of this user's own stands at `path`: no link to one, and nobody else may write there. Windows keeps
/// others out of a user's folders itself.
bool IsOwnFolder(const char* path);

/// Opens the file at `path`, which is made for the user alone when it is missing, and locks it. The system frees the
/// lock at the latest with the process, however that ends. The handle to keep open, or -1 with errno set: EWOULDBLOCK
/// while another process has the lock.
int TakeLock(const char* path);
/// Takes a locked file away and frees its lock.
void DropLock(const char* path, int handle);

/// From now on the first signal that tells the program to end (SIGTERM, SIGHUP, SIGINT) makes the handle given here
/// readable, and the second ends it at once. One that the program was started to ignore stays ignored. -1 where there
/// are no signals, and on failure. Called once.
int CatchEndSignals();

/// From now on a write past the limit that the system sets for the size of files, or a warning of the toolkit into
/// a pipe that nobody reads any more, fails like any other write; by itself each ends the process. Called once, at
/// the start of the run.
void HoldWriteSignals();

} // namespace lumrake
