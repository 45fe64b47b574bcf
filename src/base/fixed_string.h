#pragma once

#include "base/text_codec.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <string>
#include <string_view>

namespace lumrake {

/// A text field of a record: exactly `Width` bytes, left-justified, padded with blanks. It keeps the bytes
/// that were read until somebody assigns a text, so that a record which nobody changed is written back as it
/// was.
template <std::size_t Width> class FixedString {
  public:
    FixedString() { bytes_.fill(' '); }
    FixedString(std::string_view text) { Set(text); } // NOLINT: meant to convert

    /// Whether the field takes the whole text.
    static bool Fits(std::string_view text) { return FitsRecord(text, Width); }

    /// Encodes `text` (UTF-8) as EncodeRecordText does; what does not fit is cut. A text that the field
    /// already stands for leaves its bytes alone.
    void Set(std::string_view text) {
        if (text == Text() || (!text.empty() && text == Trimmed())) {
            return;
        }
        const std::string encoded = EncodeRecordText(text, Width);
        bytes_.fill(' ');
        std::copy(encoded.begin(), encoded.end(), bytes_.begin());
    }

    /// The whole field as UTF-8, padding included.
    std::string Text() const { return DecodeRecordText(View()); }
    /// The field as UTF-8 without the blanks at both ends.
    std::string Trimmed() const { return std::string(TrimBlanks(Text())); }

    std::array<char, Width>& Bytes() { return bytes_; }
    const std::array<char, Width>& Bytes() const { return bytes_; }
    bool operator==(const FixedString&) const = default;

  private:
    std::string_view View() const { return {bytes_.data(), Width}; }

    std::array<char, Width> bytes_{};
};

} // namespace lumrake
