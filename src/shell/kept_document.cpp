#include "shell/kept_document.h"

#include "shell/shell.h"

#include <utility>
#include <vector>

namespace lumrake {

namespace {

constexpr int kQuiet =
    900; ///< milliseconds: twice this, a coarse timer's lateness and a write are two seconds

std::vector<KeptDocument*> documents;

void TellOnce(const Outcome& outcome) {
    static bool told = false;
    if (outcome.IsNotDone() && !std::exchange(told, true)) {
        Shell().SetStatusText(QLatin1String("Unsaved changes would be lost in a crash: ") +
                              outcome.Reason().simplified()); // a line
    }
}

} // namespace

KeptDocument::KeptDocument(ChangedBlocks& blocks, std::function<State()> state)
    : blocks_(blocks), state_(std::move(state)) {
    timer_.setSingleShot(true);
    timer_.setInterval(kQuiet);
    QObject::connect(&timer_, &QTimer::timeout, [this] { Tick(); });
    blocks_.onNew = [this] { Begin(); };
    documents.push_back(this);
}

KeptDocument::~KeptDocument() {
    std::erase(documents, this);
}

void KeptDocument::Begin() {
    waited_ = false;
    blocks_.TakeWritten();
    timer_.start();
}

void KeptDocument::Tick() {
    const bool held = hold_.use_count() > 1;
    if (held || (!waited_ && blocks_.TakeWritten())) {
        waited_ = true;
        timer_.start();
    } else {
        for (KeptDocument* document : documents) { // what the others keep may have been cleared away
            if (document->hold_.use_count() == 1) {
                document->KeepNow();
            }
        }
    }
}

void KeptDocument::KeepNow() {
    timer_.stop();
    const State state = state_();
    TellOnce(store_.Keep(state.header, blocks_, state.bytes));
}

void KeptDocument::Forget() {
    timer_.stop();
    store_.Forget();
}

void KeepAllDocuments() {
    for (KeptDocument* document : documents) {
        document->KeepNow();
    }
}

} // namespace lumrake
