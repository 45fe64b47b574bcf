#include "assistant/rules/help_file.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace lumrake {
namespace {

TEST(HelpFile, FieldsEndAtCommasLineEndsAndQuotes) {
    const std::pair<const char*, std::vector<std::string>> cases[] = {
        {"", {}},
        {"a,b\nc\r\nd\re", {"a", "b", "c", "d", "e"}},
        {"\n,\r\na", {"", "", "", "a"}},
        {"   a b  ,\tc", {"a b  ", "\tc"}},
        {"  \"a, b\" , c", {"a, b", "c"}},
        {"\" a\nb\"\r\nc", {" a\nb", "c"}},
        {"\"a\"b,c\"d,e\"", {"a", "b", "c\"d", "e\""}},
        {"\"\",a,\"b,c\nd", {"", "a", "b,c\nd"}},
    };
    for (const auto& [bytes, expected] : cases) {
        HelpFields reader(bytes);
        std::vector<std::string> fields;
        while (!reader.AtEnd()) {
            fields.emplace_back(reader.Next());
        }
        EXPECT_EQ(fields, expected) << bytes;
    }
}

TEST(HelpFile, PromptsAreFoundByTheNumberInThreeCharacters) {
    constexpr const char* kNone = "(none)";
    const std::tuple<const char*, int, const char*> cases[] = {
        {"012 Logo,a; b;c\n", 12, "a, b,c"},
        {" 12\r\nHello, you\r\n", 12, "Hello"},
        {"\" 12, the logo\",\"Hello, you\"", 12, "Hello, you"},
        {"1234,Hello", 123, "Hello"},
        {"1 2,Hello", 12, kNone},
        {"\" 012\",Hello", 1, "Hello"}, // three characters, the blank among them
        {"x12,Hello", 12, kNone},
        {"11,12 hours\nHello,you", 12, "Hello"}, // a prompt that reads as a number in use
        {"12,\nHello", 12, ""},
        {"\"012\" \n", 12, kNone},
        {"012\n12", 12, "12"},
        {"11,\"unterminated\n12,Hello\n", 12, kNone},
        {"about 12\n0,zero\n-1,minus", 0, kNone},
    };
    for (const auto& [bytes, number, prompt] : cases) {
        EXPECT_EQ(FindPrompt(bytes, number).value_or(kNone), prompt) << bytes << number;
    }
}

} // namespace
} // namespace lumrake
