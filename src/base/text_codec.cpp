#include "base/text_codec.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <iterator>
#include <optional>

namespace lumrake {

namespace {

/// Windows-1252 from 0x80 to 0x9F; the rest of the code page is Latin-1.
constexpr std::array<char32_t, 32> kUpperControls = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

/// U+FEFF in UTF-8. No byte of the code page stands for it, so that bytes which begin with it are UTF-8.
constexpr std::string_view kUtf8Mark = "\xEF\xBB\xBF";

char32_t CharacterOfByte(std::uint8_t byte) {
    return byte >= 0x80 && byte <= 0x9F ? kUpperControls[byte - 0x80U] : char32_t{byte};
}

std::optional<char> ByteOfCharacter(char32_t character) {
    if (character < 0x80 || (character >= 0xA0 && character <= 0xFF)) {
        return static_cast<char>(character);
    }
    const auto place = std::find(kUpperControls.begin(), kUpperControls.end(), character);
    if (place == kUpperControls.end()) {
        return std::nullopt;
    }
    return static_cast<char>(0x80 + (place - kUpperControls.begin()));
}

/// A character in UTF-8, by its number of bytes, from one on: the bits that tell so at the head of the first byte, and
/// the least character that needs so many.
constexpr struct {
    std::uint8_t head, mask;
    char32_t least;
} kUtf8Forms[] = {{0x00, 0x80, 0}, {0xC0, 0xE0, 0x80}, {0xE0, 0xF0, 0x800}, {0xF0, 0xF8, 0x10000}};

void AppendUtf8(std::string& text, char32_t character) {
    int following = 3;
    while (character < kUtf8Forms[following].least) {
        --following;
    }
    text.push_back(static_cast<char>(kUtf8Forms[following].head | character >> 6 * following));
    while (following-- > 0) {
        text.push_back(static_cast<char>(0x80 | (character >> 6 * following & 0x3F)));
    }
}

/// Takes one character off the front of `bytes`; nothing when they do not begin with valid UTF-8 (overlong
/// forms, surrogates and numbers past U+10FFFF count as invalid).
std::optional<char32_t> TakeUtf8(std::string_view& bytes) {
    const auto byteAt = [&bytes](std::size_t place) { return static_cast<std::uint8_t>(bytes[place]); };
    const auto* const form =
        std::ranges::find_if(kUtf8Forms, [&](const auto& one) { return (byteAt(0) & one.mask) == one.head; });
    if (form == std::end(kUtf8Forms)) {
        return std::nullopt;
    }
    const auto length = static_cast<std::size_t>(form - kUtf8Forms) + 1;
    auto character = static_cast<char32_t>(byteAt(0) & ~form->mask);
    std::size_t taken = 1;
    for (; taken < std::min(length, bytes.size()) && (byteAt(taken) & 0xC0) == 0x80; ++taken) {
        character = (character << 6) | (byteAt(taken) & 0x3FU);
    }
    if (taken < length || character < form->least || character > 0x10FFFF ||
        (character >= 0xD800 && character <= 0xDFFF)) {
        return std::nullopt;
    }
    bytes.remove_prefix(length);
    return character;
}

std::u32string CharactersOf(std::string_view text) {
    std::u32string characters;
    while (!text.empty()) {
        const auto character = TakeUtf8(text);
        if (!character) {
            text.remove_prefix(1);
        }
        characters.push_back(character.value_or(U'?'));
    }
    return characters;
}

/// All characters as a record has them: the shortest of the three ways that reads back as they are. The last one
/// always does.
std::string RecordBytes(std::u32string_view characters) {
    std::string single, utf8;
    for (const char32_t character : characters) {
        if (const auto byte = ByteOfCharacter(character)) {
            single.push_back(*byte);
        }
        AppendUtf8(utf8, character);
    }
    if (single.size() == characters.size() && DecodeRecordText(single) == utf8) {
        return single;
    }
    return DecodeRecordText(utf8) == utf8 ? utf8 : std::string(kUtf8Mark) + utf8;
}

} // namespace

std::string EncodeRecordText(std::string_view text, std::size_t width) {
    const std::u32string characters = CharactersOf(text);
    // From the longest head down: a longer one can take fewer bytes, when it has a way of its own.
    std::size_t count = std::min(characters.size(), width);
    std::string bytes = RecordBytes({characters.data(), count});
    while (bytes.size() > width) {
        bytes = RecordBytes({characters.data(), --count});
    }
    return bytes;
}

bool FitsRecord(std::string_view text, std::size_t width) {
    return RecordBytes(CharactersOf(text)).size() <= width;
}

std::string DecodeRecordText(std::string_view bytes) {
    bool lacking = false;
    bool valid = true;
    for (std::string_view rest = bytes; valid && !rest.empty();) {
        const auto character = TakeUtf8(rest);
        valid = character.has_value();
        lacking = lacking || (valid && !ByteOfCharacter(*character));
    }
    if (valid && lacking) {
        return std::string(bytes.substr(bytes.starts_with(kUtf8Mark) ? kUtf8Mark.size() : 0));
    }
    std::string text;
    for (const char byte : bytes) {
        AppendUtf8(text, CharacterOfByte(static_cast<std::uint8_t>(byte)));
    }
    return text;
}

std::string_view TrimBlanks(std::string_view text) {
    const auto first = text.find_first_not_of(' ');
    if (first == std::string_view::npos) {
        return {};
    }
    return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

} // namespace lumrake
