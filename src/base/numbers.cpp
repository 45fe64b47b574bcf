#include "base/numbers.h"

#include <algorithm>
#include <charconv>
#include <system_error>

namespace lumrake {

namespace {

/// Which way a decimal number without a sign left the range of a double: true when it is too small for it. The
/// digits alone can make it so, and an exponent does not say it when there are hundreds of digits before it.
bool IsTiny(std::string_view number) {
    const std::size_t mark = number.find_first_of("eE");
    const std::string_view digits = number.substr(0, mark);
    const std::size_t point = std::min(digits.find('.'), digits.size());
    const std::size_t first = digits.find_first_of("123456789");
    // Places from the point to the first digit that counts: 3 for 123, 0 for 0.123, -1 for 0.0123.
    const auto places =
        static_cast<std::int64_t>(point) - static_cast<std::int64_t>(first) + (first > point ? 1 : 0);
    std::int64_t exponent = 0;
    if (mark != std::string_view::npos) {
        std::string_view text = number.substr(mark + 1);
        const bool negative = text.starts_with('-');
        text.remove_prefix(negative || text.starts_with('+') ? 1 : 0);
        const auto result = std::from_chars(text.data(), text.data() + text.size(), exponent);
        if (result.ec == std::errc::result_out_of_range) {
            return negative;
        }
        exponent = negative ? -exponent : exponent;
    }
    return places + exponent < 0;
}

} // namespace

double NumberFromText(std::string_view text) {
    const auto start = text.find_first_not_of(' ');
    if (start == std::string_view::npos) {
        return 0;
    }
    text.remove_prefix(start);
    bool negative = false;
    if (text.front() == '+' || text.front() == '-') {
        negative = text.front() == '-';
        text.remove_prefix(1);
    }
    // from_chars also knows "inf", "nan" and a second sign; none of them is a number to us.
    const bool begins =
        !text.empty() && ((text.front() >= '0' && text.front() <= '9') || text.front() == '.');
    if (!begins) {
        return 0;
    }
    double value = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (error == std::errc::result_out_of_range) {
        const std::string_view number(text.data(), static_cast<std::size_t>(end - text.data()));
        value = IsTiny(number) ? 0 : std::numeric_limits<double>::infinity();
    }
    return negative ? -value : value;
}

double RoundHalfEven(double value) {
    return std::isnan(value) ? 0 : std::nearbyint(value);
}

std::string TextOfNumber(double value) {
    char digits[32];
    // "%.7g" would follow the locale's decimal point; to_chars never does.
    const double number = value + 0.0; // a zero has no sign then
    const auto [end, error] =
        std::to_chars(digits, digits + sizeof digits, number, std::chars_format::general, 7);
    return error == std::errc() ? std::string(digits, end) : std::string("0");
}

} // namespace lumrake
