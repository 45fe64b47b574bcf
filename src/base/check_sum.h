#pragma once

#include <algorithm>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <span>

namespace lumrake {

/// A check sum against mishaps, not against malice, of `bytes` after all that led to `sum`. Each step can be undone, so
/// that no change within eight bytes, wherever it is, leaves the sum as it was.
inline std::uint64_t CheckSum(std::span<const std::uint8_t> bytes, std::uint64_t sum = 0) {
    constexpr std::uint64_t kOdd = 0x9E3779B97F4A7C15;
    sum ^= bytes.size();
    while (!bytes.empty()) {
        std::uint64_t word = 0;
        const std::size_t count = std::min(sizeof word, bytes.size());
        std::memcpy(&word, bytes.data(), count);
        sum = std::rotl((sum ^ word) * kOdd, 29);
        bytes = bytes.subspan(count);
    }
    return sum;
}

} // namespace lumrake
