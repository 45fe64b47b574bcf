#include "base/number_field.h"

#include "base/text_codec.h"

namespace lumrake {

std::string_view FaultOf(std::string_view text, const NumberTest& test) {
    text = TrimBlanks(text);
    if (text.empty()) {
        return test.missing;
    }
    const double typed = NumberFromText(text);
    if (IsDivisible(HeldTo<std::int32_t>(typed), test.divisor) == 0) {
        return test.notDivisible;
    }
    const double number = test.rounded ? RoundHalfEven(typed) : typed;
    if (number < test.least || (number > test.most && test.tooLarge == nullptr)) {
        return test.outside;
    }
    return number > test.most ? test.tooLarge : std::string_view();
}

} // namespace lumrake
