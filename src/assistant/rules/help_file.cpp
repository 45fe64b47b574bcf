#include "assistant/rules/help_file.h"

#include "base/numbers.h"

#include <algorithm>

namespace lumrake {

namespace {

constexpr std::size_t kKeyCharacters = 3; ///< of a key field; what follows is a remark

} // namespace

void HelpFields::SkipBlanks() {
    while (at_ < bytes_.size() && bytes_[at_] == ' ') {
        ++at_;
    }
}

void HelpFields::SkipEnding() {
    if (AtEnd()) {
        return;
    }
    const char ending = bytes_[at_];
    if (ending == ',' || ending == '\n' || ending == '\r') {
        ++at_;
        if (ending == '\r' && !AtEnd() && bytes_[at_] == '\n') {
            ++at_;
        }
    }
}

std::string_view HelpFields::Next() {
    SkipBlanks();
    if (!AtEnd() && bytes_[at_] == '"') {
        const std::size_t begin = at_ + 1;
        const std::size_t end = std::min(bytes_.find('"', begin), bytes_.size());
        at_ = std::min(end + 1, bytes_.size());
        SkipBlanks();
        SkipEnding();
        return bytes_.substr(begin, end - begin);
    }
    const std::size_t begin = at_;
    at_ = std::min(bytes_.find_first_of(",\n\r", begin), bytes_.size());
    const std::string_view field = bytes_.substr(begin, at_ - begin);
    SkipEnding();
    return field;
}

std::optional<std::string> FindPrompt(std::string_view bytes, std::int32_t number) {
    if (number < 1) {
        return std::nullopt; // a field without a number reads as 0 and must not be taken for a key
    }
    HelpFields fields(bytes);
    while (!fields.AtEnd()) {
        const std::string_view key = fields.Next().substr(0, kKeyCharacters);
        if (NumberFromText(key) == number && !fields.AtEnd()) {
            return SemicolonsToCommas(fields.Next());
        }
    }
    return std::nullopt;
}

std::string SemicolonsToCommas(std::string_view text) {
    std::string result(text);
    std::replace(result.begin(), result.end(), ';', ',');
    return result;
}

} // namespace lumrake
