#pragma once

#include "disk/recovery_store.h"

#include <QTimer>

#include <functional>
#include <memory>
#include <span>

namespace lumrake {

/// Keeps what a document differs in from its file on the disk, so that it outlives the program: after a second without
/// a change, or two of drawing. While nothing changes no timer runs. Where it cannot be kept the status bar says so
/// once in a run, and the document goes on as if it were.
class KeptDocument {
  public:
    /// What there is to keep, as it is just now.
    struct State {
        RecoveryHeader header;
        std::span<const std::uint8_t> bytes;
    };
    /// Both belong to the document, which outlives this.
    KeptDocument(ChangedBlocks& blocks, std::function<State()> state);
    ~KeptDocument();
    KeptDocument(const KeptDocument&) = delete;
    KeptDocument& operator=(const KeptDocument&) = delete;

    /// Brings what is not kept yet to the disk at once.
    void KeepNow();
    /// Nothing is kept by itself while what this gives lives; it may outlive the document.
    [[nodiscard]] std::shared_ptr<const void> Hold() const { return hold_; }
    /// The document was saved, or its changes were given up: nothing of it stays kept.
    void Forget();
    /// The document was given the changes that this file keeps.
    void Adopt(const QString& file) { store_.Adopt(file); }

  private:
    void Begin();
    void Tick();

    ChangedBlocks& blocks_;
    std::function<State()> state_;
    RecoveryStore store_;
    QTimer timer_;
    bool waited_ = false; ///< the first second is over
    std::shared_ptr<const void> hold_ = std::make_shared<int>();
};

/// Brings what any document has not kept yet to the disk, for a program that is told to end.
void KeepAllDocuments();

} // namespace lumrake
