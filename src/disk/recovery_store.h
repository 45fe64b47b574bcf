#pragma once

#include "base/recovery_record.h"
#include "disk/outcome.h"

#include <QString>

#include <cstdint>
#include <span>

namespace lumrake {

/// The file of this run that holds what one document differs in from its own. It is opened, written, brought to the
/// disk and closed each time.
class RecoveryStore {
  public:
    /// Brings the blocks that are new to the disk: behind those that are kept, or all into a new file once the old one
    /// is larger than twice what changed. `all` are the document's bytes. The blocks count as kept in any case; after
    /// a failure the next call writes them all.
    Outcome Keep(const RecoveryHeader& header, ChangedBlocks& blocks, std::span<const std::uint8_t> all);
    /// Takes over a file whose blocks the document was given. It stays as it is until the first Keep, which writes a
    /// new one in its place.
    void Adopt(const QString& file) { file_ = file; }
    /// The document has no changes any more: the file goes.
    void Forget();

  private:
    RecoveryWriter writer_;
    QString file_;          ///< empty while nothing is kept
    std::size_t bytes_ = 0; ///< written into it; 0 when it is to be written from its beginning
};

/// A document's file beside what was kept of the document.
struct FileBesideRecovery {
    bool missing = false;
    bool changed = false;       ///< it is not the one that was read, or cannot be read
    bool shorter = false;       ///< than the kept bytes reach
    std::int64_t differing = 0; ///< bytes that differ from the kept ones
};
/// Reads no more of the file than the blocks that were kept.
FileBesideRecovery LookBeside(const Recovery& recovery);

} // namespace lumrake
