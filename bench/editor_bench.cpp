/// What block commands cost on the largest view, 4096 x 512 pixels at 16:1, with progress bar and redraw.
#include "probes.h"

#include "shell/shell.h"
#include "snapshot/rules/document.h"

namespace lumrake::bench {
namespace {

Editor& EditorWithNet(benchmark::State& state) {
    Editor& editor = EditorOf(state, 5);
    editor.probe.NetOverAll();
    return editor;
}

void Copy(benchmark::State& state) {
    Editor& editor = EditorWithNet(state);
    for (auto _ : state) {
        editor.form.Copy(false);
    }
}

void Delete(benchmark::State& state) {
    Editor& editor = EditorWithNet(state);
    for (auto _ : state) {
        editor.form.Delete();
    }
}

void PasteAndDrop(benchmark::State& state) {
    Editor& editor = EditorWithNet(state);
    editor.form.Copy(false);
    for (auto _ : state) {
        editor.form.Paste();
        editor.probe.DropAtOrigin();
    }
}

// ---- beside the table: the rules alone ----

constexpr PixelBlock kWhole{0, 0, 4096, 512};

/// The largest view: in Graphics mode 256 KiB, with masks the double.
ViewNumbers LargestView(Mode mode) {
    ViewNumbers view;
    view.iLines = 512;
    view.iColumns = 16;
    view.iMode = mode;
    view.lFileLength = (mode == kGraphics ? 1 : 2) * 256 * 1024;
    return view;
}

void Lift(benchmark::State& state, Mode mode) {
    const ViewNumbers view = LargestView(mode);
    const auto memory = Noise(static_cast<std::size_t>(view.lFileLength));
    for (auto _ : state) {
        benchmark::DoNotOptimize(LiftBlock(memory, view, kWhole));
    }
}

void Drop(benchmark::State& state, Mode mode) {
    const ViewNumbers view = LargestView(mode);
    const auto memory = Noise(static_cast<std::size_t>(view.lFileLength));
    const std::string sData = LiftBlock(memory, view, kWhole);
    SnapshotDocument document;
    document.Open(MemoryBlock(memory.size()));
    document.view = view;
    for (auto _ : state) {
        document.DropBlock(kWhole, sData);
        benchmark::ClobberMemory();
    }
}

const bool kRegistered = [] {
    Add("Block/copy", Copy);
    Add("Block/delete", Delete);
    Add("Block/drop", PasteAndDrop);
    Add("BlockRule/lift", [](benchmark::State& state) { Lift(state, kGraphics); });
    Add("BlockRule/lift_masks", [](benchmark::State& state) { Lift(state, kByteMasks); });
    Add("BlockRule/drop", [](benchmark::State& state) { Drop(state, kGraphics); });
    Add("BlockRule/drop_masks", [](benchmark::State& state) { Drop(state, kByteMasks); });
    return true;
}();

} // namespace
} // namespace lumrake::bench
