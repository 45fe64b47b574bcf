#pragma once

#include <array>
#include <cstddef>

namespace lumrake {

/// The controls of one name, by their index: of any whole type, for handlers are given an int. Null where the array has
/// a gap.
template <class Control, std::size_t N> struct ControlArray : std::array<Control*, N> {
    template <class Index> Control*& operator[](Index index) {
        return std::array<Control*, N>::operator[](static_cast<std::size_t>(index));
    }
    template <class Index> Control* operator[](Index index) const {
        return std::array<Control*, N>::operator[](static_cast<std::size_t>(index));
    }
};

} // namespace lumrake
