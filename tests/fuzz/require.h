#pragma once

#include <cstdio>
#include <cstdlib>

/// Stops the program, which is how a fuzz target says that a rule is broken. The place is that of the call: clang 14
/// has no std::source_location.
inline void Require(bool holds, const char* file = __builtin_FILE(), int line = __builtin_LINE()) {
    if (!holds) {
        std::fprintf(stderr, "broken: the rule at %s:%d\n", file, line);
        std::abort();
    }
}
