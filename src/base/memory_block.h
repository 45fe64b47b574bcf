#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <span>
#include <utility>

namespace lumrake {

/// A run of bytes with one owner, not initialised when it is made: a file of a gigabyte is read straight into
/// it and never copied. Moves, does not copy.
class MemoryBlock {
  public:
    MemoryBlock() = default;
    /// Empty (size 0) when the memory cannot be had.
    explicit MemoryBlock(std::size_t size) {
        bytes_.reset(static_cast<std::uint8_t*>(std::malloc(size)));
        if (bytes_ != nullptr) {
            size_ = size;
        }
    }
    MemoryBlock(MemoryBlock&& other) noexcept { *this = std::move(other); }
    MemoryBlock& operator=(MemoryBlock&& other) noexcept {
        bytes_ = std::move(other.bytes_);
        size_ = std::exchange(other.size_, 0);
        return *this;
    }

    /// Makes room up to `size`; what comes to reads 0. False when the memory cannot be had, then nothing changes.
    bool GrowTo(std::size_t size) {
        if (size > size_) {
            auto* const grown = static_cast<std::uint8_t*>(std::realloc(bytes_.get(), size));
            if (grown == nullptr) {
                return false;
            }
            static_cast<void>(bytes_.release());
            bytes_.reset(grown);
            std::memset(grown + size_, 0, size - size_);
            size_ = size;
        }
        return true;
    }

    std::uint8_t* data() { return bytes_.get(); }
    const std::uint8_t* data() const { return bytes_.get(); }
    std::size_t size() const { return size_; }
    std::span<std::uint8_t> Bytes() { return {bytes_.get(), size_}; }
    std::span<const std::uint8_t> Bytes() const { return {bytes_.get(), size_}; }

  private:
    struct Free {
        void operator()(std::uint8_t* bytes) const { std::free(bytes); }
    };
    std::unique_ptr<std::uint8_t[], Free> bytes_;
    std::size_t size_ = 0;
};

} // namespace lumrake
