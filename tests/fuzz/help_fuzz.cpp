/// Any bytes as a help file: the reader comes to an end, reads what a plain reader of single bytes reads, and
/// finds exactly the prompts that follow a key.
#include "assistant/rules/help_file.h"
#include "base/numbers.h"
#include "fuzz/require.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace {

std::vector<std::string> ReadByteByByte(std::string_view bytes) {
    std::vector<std::string> fields;
    std::size_t at = 0;
    const auto is = [&](char wanted) { return at < bytes.size() && bytes[at] == wanted; };
    while (at < bytes.size()) {
        std::string field;
        for (; is(' '); ++at) {
        }
        if (is('"')) {
            for (++at; at < bytes.size() && bytes[at] != '"'; ++at) {
                field += bytes[at];
            }
            for (at += at < bytes.size(); is(' '); ++at) {
            }
        } else {
            for (; at < bytes.size() && !is(',') && !is('\n') && !is('\r'); ++at) {
                field += bytes[at];
            }
        }
        if (is('\r')) {
            ++at;
            at += is('\n');
        } else if (is(',') || is('\n')) {
            ++at;
        }
        fields.push_back(field);
    }
    return fields;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    const std::vector<std::string> fields = ReadByteByByte(bytes);
    lumrake::HelpFields reader(bytes);
    for (const std::string& field : fields) {
        Require(!reader.AtEnd() && reader.Next() == field);
    }
    Require(reader.AtEnd() && reader.Next().empty());

    for (const std::int32_t number : {-1, 0, 1, 12, 98, 123, 999, 1000}) {
        const auto prompt = lumrake::FindPrompt(bytes, number);
        const auto key = std::find_if(fields.begin(), fields.end(), [number](const std::string& field) {
            return number > 0 && lumrake::NumberFromText(field.substr(0, 3)) == number;
        });
        const bool found = key != fields.end() && key + 1 != fields.end();
        Require(prompt.has_value() == found);
        Require(!found || *prompt == lumrake::SemicolonsToCommas(key[1]));
    }
    return 0;
}
