#pragma once

#include <string>
#include <string_view>

namespace lumrake {

/// The bytes that stand for a text in a record, at most `width` of them.
///
/// Windows-1252, one byte a character, as long as every character has a place there; U+0081, U+008D, U+008F,
/// U+0090 and U+009D take the five codes that the code page leaves empty. A text with any other character is
/// written whole in UTF-8. A text that is too long is cut between characters.
/// `text` is UTF-8; bytes of it that are not valid UTF-8 become "?".
std::string EncodeRecordText(std::string_view text, std::size_t width);

/// The text (UTF-8) that a record's bytes stand for: UTF-8 when they are valid UTF-8 and hold a character
/// that Windows-1252 lacks, Windows-1252 in every other case. Never fails.
std::string DecodeRecordText(std::string_view bytes);

/// `text` without the blanks (0x20 alone, no other white space) at both ends.
std::string_view TrimBlanks(std::string_view text);

} // namespace lumrake
