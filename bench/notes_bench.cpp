/// A megabyte pasted into a box that takes 500 characters: what does not fit must not cost.
#include "bench.h"

#include "controls/limited_text.h"

#include <QClipboard>
#include <QGuiApplication>

namespace lumrake::bench {
namespace {

void Paste(benchmark::State& state) {
    LimitedText notes(nullptr);
    notes.SetLimit(500, [](const QString&) { return true; });
    QGuiApplication::clipboard()->setText(QString(1 << 20, QLatin1Char('x')));
    for (auto _ : state) {
        notes.clear();
        notes.paste();
    }
    if (notes.Text().size() != 500) {
        state.SkipWithError("the box isn't full");
    }
    QGuiApplication::clipboard()->clear();
}

const bool kRegistered = [] {
    Add("Notes/paste", Paste);
    return true;
}();

} // namespace
} // namespace lumrake::bench
