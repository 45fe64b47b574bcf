#pragma once

#include "base/memory_block.h"
#include "disk/outcome.h"

#include <QString>

#include <cstdint>
#include <memory>
#include <span>

namespace lumrake {

/// The file of one document, as this program read or wrote it last. Documents that have read the same state of a file
/// share what is known of it, so that a save of one is no change by others to the rest.
class KnownFile {
  public:
    /// ReadWholeFile, of a file that is known from then on.
    Outcome Read(const QString& path, MemoryBlock& target, std::int64_t limit = INT64_MAX);
    /// WriteWholeFile, whatever stands there. Done, it makes that file the known one.
    Outcome Write(const QString& path, std::span<const std::uint8_t> bytes);
    /// Fails when another program changed or replaced the file at `path` since it was read or written here. Where its
    /// identity leaves doubt its bytes decide, as far as they were few enough to be summed up. A file that is gone,
    /// what is no regular file, and one that was never read or written here, is no failure.
    Outcome FindUnchanged(const QString& path) const;

    /// From now on the file counts as changed by another program, until it is written here.
    void Distrust();

  private:
    struct Stamp;
    static Outcome Look(const QString& path, Stamp& stamp);
    static std::shared_ptr<Stamp> Shared(const Stamp& stamp);

    std::shared_ptr<Stamp> stamp_;
};

} // namespace lumrake
