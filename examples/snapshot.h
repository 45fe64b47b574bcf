#pragma once

#include "bitmap.h"

namespace lumrake::examples {

constexpr std::size_t kSnapshotSize =
    49179; // 27 bytes of registers and 48 KiB of memory from address 16384 on
constexpr std::size_t kAnimationSize = 759;

// The whole snapshot file. Throws std::logic_error when two parts of the memory overlap.
Bytes MakeSnapshot();

// The whole animation record, over the walking figure of the snapshot.
Bytes MakeAnimation();

} // namespace lumrake::examples
