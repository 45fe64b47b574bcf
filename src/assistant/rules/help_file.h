#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace lumrake {

/// The fields of a help file, LMKHELP.DAT, in file order.
///
///     012 Logo,That's our logo; isn't it nice?
///     "013, the button","Click here, please."
///
/// A field ends at a comma or at the end of a line (LF, CR LF or CR); blanks before it are skipped, blanks
/// behind it belong to it. A field that begins with a double quote runs to the next double quote, whatever
/// stands between, or to the end of the file when there is none; blanks and one comma or line end behind the
/// closing quote go with it. An empty line is an empty field.
class HelpFields {
  public:
    /// `bytes` has to outlive the reader.
    explicit HelpFields(std::string_view bytes) : bytes_(bytes) {}

    /// Nothing is left to read. An ending that was read with the last field leaves nothing behind it.
    bool AtEnd() const { return at_ >= bytes_.size(); }
    /// The next field without its quotes; empty at the end of the file.
    std::string_view Next();

  private:
    void SkipBlanks();
    void SkipEnding();

    std::string_view bytes_;
    std::size_t at_ = 0;
};

/// The prompt of a help number: the field behind the first one whose first three characters read as
/// `number`, with commas for its semicolons. Every field is tried, prompts too. Nothing for a number that is
/// not in the file (so always for one below 1), and for a key with which the file ends.
std::optional<std::string> FindPrompt(std::string_view bytes, std::int32_t number);

/// The text with a comma for every semicolon.
std::string SemicolonsToCommas(std::string_view text);

} // namespace lumrake
