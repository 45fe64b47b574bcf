#pragma once

#include <cstdio>
#include <cstdlib>
#include <source_location>

/// Stops the program, which is how a fuzz target says that a rule is broken.
inline void Require(bool holds, const std::source_location& rule = std::source_location::current()) {
    if (!holds) {
        std::fprintf(stderr, "broken: the rule at %s:%u\n", rule.file_name(), unsigned{rule.line()});
        std::abort();
    }
}
