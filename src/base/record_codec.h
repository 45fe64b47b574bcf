#pragma once

#include "base/fixed_string.h"
#include "base/little_endian.h"

#include <array>
#include <concepts>
#include <cstdint>
#include <cstring>
#include <span>
#include <tuple>
#include <type_traits>

namespace lumrake {

/// Walk over the fields of a record in file order: little-endian integers and fixed strings with nothing
/// between them. A record type offers one `VisitFields(record, visitor)`; these two visitors turn it into
/// reading and writing, so that both directions come from one list.
class RecordReader {
  public:
    /// `bytes` must be as long as the record.
    explicit RecordReader(std::span<const std::uint8_t> bytes) : rest_(bytes) {}

    template <class... Fields> void operator()(Fields&... fields) { (Visit(fields), ...); }

  private:
    void Visit(std::integral auto& field) {
        field = static_cast<std::remove_reference_t<decltype(field)>>(NumberOf(Take(sizeof field)));
    }
    template <std::size_t Width> void Visit(FixedString<Width>& field) {
        std::memcpy(field.Bytes().data(), Take(Width).data(), Width);
    }
    template <class Field, std::size_t Count> void Visit(std::array<Field, Count>& fields) {
        std::apply(*this, fields);
    }
    std::span<const std::uint8_t> Take(std::size_t count) {
        const auto taken = rest_.first(count);
        rest_ = rest_.subspan(count);
        return taken;
    }

    std::span<const std::uint8_t> rest_;
};

class RecordWriter {
  public:
    explicit RecordWriter(std::span<std::uint8_t> bytes) : rest_(bytes) {}

    template <class... Fields> void operator()(const Fields&... fields) { (Visit(fields), ...); }

  private:
    void Visit(std::integral auto field) { PutNumber(static_cast<std::uint64_t>(field), Take(sizeof field)); }
    template <std::size_t Width> void Visit(const FixedString<Width>& field) {
        std::memcpy(Take(Width).data(), field.Bytes().data(), Width);
    }
    template <class Field, std::size_t Count> void Visit(const std::array<Field, Count>& fields) {
        std::apply(*this, fields);
    }
    std::span<std::uint8_t> Take(std::size_t count) {
        const auto taken = rest_.first(count);
        rest_ = rest_.subspan(count);
        return taken;
    }

    std::span<std::uint8_t> rest_;
};

} // namespace lumrake
