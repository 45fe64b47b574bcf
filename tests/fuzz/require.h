#pragma once

#include <cstdlib>

/// Stops the program, which is how a fuzz target says that a rule is broken.
inline void Require(bool holds) {
    if (!holds) {
        std::abort();
    }
}
