#include "base/numbers.h"

#include <charconv>
#include <locale>
#include <sstream>
#include <system_error>

namespace lumrake {

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
        // Too small or too large for a double, which from_chars does not tell apart.
        std::istringstream number(std::string(text.data(), end));
        number.imbue(std::locale::classic());
        number >> value;
        value = value > 1 ? std::numeric_limits<double>::infinity() : 0;
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
