#pragma once

#include <string>
#include <string_view>

namespace lumrake {

/// The bytes that stand for a text in a record, at most `width` of them: those of the longest head of the text
/// that fits. Reading them gives that head again, whatever its characters are. The first way that does is taken:
///
///   Windows-1252, one byte a character   "caf\u00E9" is 63 61 66 E9; U+0081, U+008D, U+008F, U+0090 and U+009D
///                                        take the five codes that the code page leaves empty
///   UTF-8                                for a text with a character that the code page lacks
///   EF BB BF and UTF-8                   where the other two would be read as another text: "\u00C4\u20AC",
///                                        C4 80 in Windows-1252, is U+0100 in UTF-8
///
/// `text` is UTF-8; bytes of it that are not valid UTF-8 become "?".
std::string EncodeRecordText(std::string_view text, std::size_t width);
/// Whether all of the text fits.
bool FitsRecord(std::string_view text, std::size_t width);

/// The text (UTF-8) that a record's bytes stand for: UTF-8 when they are valid UTF-8 and hold a character that
/// Windows-1252 lacks, U+FEFF at their start being no part of the text; Windows-1252 in every other case. Never
/// fails.
std::string DecodeRecordText(std::string_view bytes);

/// `text` without the blanks (0x20 alone, no other white space) at both ends.
std::string_view TrimBlanks(std::string_view text);

} // namespace lumrake
