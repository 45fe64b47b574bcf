#pragma once

#include <cmath>
#include <concepts>
#include <cstdint>
#include <limits>
#include <string>
#include <string_view>

namespace lumrake {

/// The number that a text begins with: blanks are skipped, then the longest prefix that reads as a decimal
/// number counts, with sign, fraction and exponent. 0 when the text does not begin with a number. Numbers
/// too large for a double come out as plus or minus infinity.
double NumberFromText(std::string_view text);

/// To the nearest whole number, a half to the even neighbour. Not a number gives 0.
double RoundHalfEven(double value);

/// `value` rounded as by RoundHalfEven and held at the ends of the field `Field`.
template <std::signed_integral Field> Field HeldTo(double value) {
    const double rounded = RoundHalfEven(value);
    if (rounded <= static_cast<double>(std::numeric_limits<Field>::min())) {
        return std::numeric_limits<Field>::min();
    }
    // The largest 32-bit number is exact as a double; a 64-bit one would round up, hence >=.
    if (rounded >= static_cast<double>(std::numeric_limits<Field>::max())) {
        return std::numeric_limits<Field>::max();
    }
    return static_cast<Field>(rounded);
}

/// The number in a text as a whole number of the field's width, held at the field's ends.
template <std::signed_integral Field> Field WholeNumberFromText(std::string_view text) {
    return HeldTo<Field>(NumberFromText(text));
}

/// A number in general format: no exponent for everyday values, no trailing zeros, no signed zero: "4.5", "-3", "0".
/// Seven significant digits, as a 32-bit float has them.
std::string TextOfNumber(double value);

/// -1 when `divisor` is 0 or divides `value` without a remainder, else 0.
constexpr std::int16_t IsDivisible(std::int32_t value, std::int32_t divisor) {
    // A divisor of -1 is told apart because the smallest number has no quotient by it.
    return divisor == 0 || divisor == -1 || value % divisor == 0 ? std::int16_t{-1} : std::int16_t{0};
}

/// floor(a / b) for b above 0: the rounding that positions left of and above the origin need.
constexpr std::int32_t FloorDiv(std::int32_t a, std::int32_t b) {
    return a / b - (a % b < 0 ? 1 : 0);
}

} // namespace lumrake
