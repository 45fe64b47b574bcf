#pragma once

#include <cstdint>
#include <span>

namespace lumrake {

/// The number that at most eight bytes stand for, the lowest first.
constexpr std::uint64_t NumberOf(std::span<const std::uint8_t> bytes) {
    std::uint64_t value = 0;
    for (std::size_t i = bytes.size(); i-- > 0;) {
        value = value << 8 | bytes[i];
    }
    return value;
}

/// Writes as much of `value` as the bytes have room for.
constexpr void PutNumber(std::uint64_t value, std::span<std::uint8_t> bytes) {
    for (std::uint8_t& byte : bytes) {
        byte = static_cast<std::uint8_t>(value);
        value >>= 8;
    }
}

} // namespace lumrake
