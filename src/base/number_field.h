#pragma once

#include "base/numbers.h"

#include <cstdint>
#include <string_view>
#include <variant>

namespace lumrake {

/// A box for a whole number: which numbers pass, and what the user is told about the others.
struct NumberTest {
    const char* missing; ///< nothing but blanks
    double least, most;
    const char* outside;            ///< below `least`, or above `most` as well when there is no `tooLarge`
    const char* tooLarge = nullptr; ///< above `most`
    std::int32_t divisor = 0;       ///< 0: any number will do
    const char* notDivisible = "";
    /// The limits measure the whole number next to what was typed, a half to the even neighbour.
    bool rounded = false;
};

/// What the user is told about a text, or the empty text when it passes. Blanks at both ends do not count; a text that
/// does not begin with a number counts as 0.
std::string_view FaultOf(std::string_view text, const NumberTest& test);

/// The place in a record of a number that has a box.
template <class Record> using NumberPlace = std::variant<std::int16_t Record::*, std::int32_t Record::*>;

template <class Record> std::int32_t NumberAt(const Record& record, const NumberPlace<Record>& place) {
    return std::visit([&](auto member) { return std::int32_t{record.*member}; }, place);
}

/// Puts the number that a text begins with there, held at the ends of the field.
template <class Record>
void SetNumberAt(Record& record, const NumberPlace<Record>& place, std::string_view text) {
    std::visit(
        [&](auto member) {
            record.*member = WholeNumberFromText<std::remove_reference_t<decltype(record.*member)>>(text);
        },
        place);
}

} // namespace lumrake
