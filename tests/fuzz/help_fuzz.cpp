/// Any bytes as a help file: the reader comes to an end, what it reads are pieces of the file in their order, and
/// exactly the prompts that follow a key are found.
#include "assistant/help_file.h"
#include "fuzz/require.h"
#include "platform/numbers.h"

#include <algorithm>
#include <cstdint>
#include <string>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    std::vector<std::string> fields;
    const char* read = bytes.data();
    for (lumrake::HelpFields reader(bytes); !reader.AtEnd();) {
        const std::string_view field = reader.Next();
        Require(field.data() >= read && field.data() + field.size() <= bytes.data() + size);
        read = field.data() + field.size();
        Require(field.find('"') == field.npos || field.find_first_of(",\r\n") == field.npos);
        fields.emplace_back(field);
        Require(fields.size() <= size);
    }
    for (const std::int32_t number : {-1, 0, 1, 12, 98, 999, 1000}) {
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
