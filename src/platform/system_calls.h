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

} // namespace lumrake
