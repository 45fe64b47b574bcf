#pragma once

#include <cstddef>

namespace lumrake {

// What belongs to one operating system and has no counterpart in the toolkit.

/// Asks for large memory pages behind the `size` bytes from `memory` on, as far as whole ones lie in it: a
/// gigabyte is filled in a quarter of the time then. A hint: nothing happens where the system has no such
/// thing.
void AdviseLargePages(void* memory, std::size_t size);

/// Waits until everything written to the open file is on the disk. False on failure, with errno set.
bool SyncFile(int handle);

/// Gives the open file to the owner and the group of the file at `path`, as far as the system lets the user.
void GiveToOwnerOf(const char* path, int handle);

/// From now on a write past the limit that the system sets for the size of files, or a warning of the toolkit into
/// a pipe that nobody reads any more, fails like any other write; by itself each ends the process. Called once, at
/// the start of the run.
void HoldWriteSignals();

} // namespace lumrake
