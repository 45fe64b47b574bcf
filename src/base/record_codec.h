#pragma once

#include "base/fixed_string.h"

#include <array>
#include <cstdint>
#include <cstring>
#include <span>
#include <tuple>

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
    void Visit(std::uint8_t& field) { field = Take(1)[0]; }
    void Visit(std::int16_t& field) { field = static_cast<std::int16_t>(Number(2)); }
    void Visit(std::int32_t& field) { field = static_cast<std::int32_t>(Number(4)); }
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
    std::uint32_t Number(std::size_t count) {
        std::uint32_t value = 0;
        std::size_t shift = 0;
        for (const std::uint8_t byte : Take(count)) {
            value |= std::uint32_t{byte} << shift;
            shift += 8;
        }
        return value;
    }

    std::span<const std::uint8_t> rest_;
};

class RecordWriter {
  public:
    explicit RecordWriter(std::span<std::uint8_t> bytes) : rest_(bytes) {}

    template <class... Fields> void operator()(const Fields&... fields) { (Visit(fields), ...); }

  private:
    void Visit(std::uint8_t field) { Take(1)[0] = field; }
    void Visit(std::int16_t field) { Number(static_cast<std::uint16_t>(field), 2); }
    void Visit(std::int32_t field) { Number(static_cast<std::uint32_t>(field), 4); }
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
    void Number(std::uint32_t value, std::size_t count) {
        for (std::uint8_t& byte : Take(count)) {
            byte = static_cast<std::uint8_t>(value);
            value >>= 8;
        }
    }

    std::span<std::uint8_t> rest_;
};

} // namespace lumrake
