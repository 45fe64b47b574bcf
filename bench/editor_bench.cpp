/// What block commands and exports cost on the largest view: 4096 x 512 picture pixels, at 16:1 65536 x 8192
/// screen pixels. Items are picture pixels (screen pixels for the bitmap); the rules stand beside a copy of
/// the block's data, the commands include progress bar and redraw, the exports include bringing the file to
/// the disk.
#include "platform/files.h"
#include "platform/save_picture.h"
#include "shell/shell.h"
#include "snapshot/block.h"
#include "snapshot/frmClip.h"
#include "snapshot/frmSnapshot.h"
#include "snapshot/raw_export.h"

#include <QFile>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>

#include <cstring>
#include <numeric>
#include <vector>

namespace lumrake {

/// Lays the net over the whole view and hangs the block on its top left corner.
struct SnapshotProbe {
    frmSnapshot& form;

    void NetOverAll() const {
        static_cast<NetRect&>(form.shpNet) = {0, 0, form.view.ScreenWidth(), form.view.ScreenHeight()};
        form.shpNet.Visible = true;
    }
    void DropAtOrigin() const {
        form.imgClip->move(0, 0);
        form.imgClip->MouseDown({1, 0, 0, 0});
    }
};

namespace {

constexpr std::int32_t kWidth = 4096, kLines = 512;
constexpr std::int64_t kPixels = std::int64_t{kWidth} * kLines;
constexpr PixelBlock kWhole{0, 0, kWidth, kLines};

/// The largest view: in Graphics mode 256 KiB, with masks the double.
ViewNumbers LargestView(std::int64_t iMode) {
    ViewNumbers view;
    view.iLines = kLines;
    view.iColumns = 16;
    view.iMode = static_cast<std::int16_t>(iMode);
    view.lFileLength = kPixels / 8 * (view.iMode == kGraphics ? 1 : 2);
    return view;
}

std::vector<std::uint8_t> SomeBytes(std::int32_t count) {
    std::vector<std::uint8_t> bytes(static_cast<std::size_t>(count));
    std::iota(bytes.begin(), bytes.end(), std::uint8_t{0});
    return bytes;
}

// ---- rules; the argument is the mode ----

void BlockCopyOfText(benchmark::State& state) { // the baseline
    const std::string from(kPixels, '1');
    std::string to(kPixels, '0');
    for (auto _ : state) {
        std::memcpy(to.data(), from.data(), to.size());
        benchmark::DoNotOptimize(to.data());
        benchmark::ClobberMemory();
    }
    state.SetItemsProcessed(state.iterations() * kPixels);
}
BENCHMARK(BlockCopyOfText)->UseRealTime();

void BlockLift(benchmark::State& state) {
    const ViewNumbers view = LargestView(state.range(0));
    const auto memory = SomeBytes(view.lFileLength);
    for (auto _ : state) {
        benchmark::DoNotOptimize(LiftBlock(memory, view, kWhole));
    }
    state.SetItemsProcessed(state.iterations() * kPixels);
}
BENCHMARK(BlockLift)->Arg(kGraphics)->Arg(kByteMasks)->UseRealTime();

void BlockClear(benchmark::State& state) {
    const ViewNumbers view = LargestView(state.range(0));
    auto memory = SomeBytes(view.lFileLength);
    for (auto _ : state) {
        ClearBlock(memory, view, kWhole);
        benchmark::ClobberMemory();
    }
    state.SetItemsProcessed(state.iterations() * kPixels);
}
BENCHMARK(BlockClear)->Arg(kGraphics)->Arg(kByteMasks)->UseRealTime();

void BlockDrop(benchmark::State& state) {
    const ViewNumbers view = LargestView(state.range(0));
    auto memory = SomeBytes(view.lFileLength);
    const std::string sData = LiftBlock(memory, view, kWhole);
    for (auto _ : state) {
        DropBlock(memory, view, kWhole, sData);
        benchmark::ClobberMemory();
    }
    state.SetItemsProcessed(state.iterations() * kPixels);
}
BENCHMARK(BlockDrop)->Arg(kGraphics)->Arg(kByteMasks)->UseRealTime();

void RawRows(benchmark::State& state) {
    const ViewNumbers view = LargestView(state.range(0));
    const auto memory = SomeBytes(view.lFileLength);
    for (auto _ : state) {
        const RawExport rows(memory, view);
        benchmark::DoNotOptimize(rows.Row(0).data());
    }
    state.SetItemsProcessed(state.iterations() * kPixels);
}
BENCHMARK(RawRows)->Arg(kGraphics)->Arg(kByteMasks)->UseRealTime();

// ---- commands of a window; the argument is the zoom index ----

/// A shown window with the largest view.
struct Window {
    explicit Window(benchmark::State& state) {
        SetDefaultSettings(Settings, "2.00", {});
        Settings.bPromptSave = 0;
        Settings.iDefaultLines = kLines;
        Settings.iDefaultColumns = 16;
        const QString sFile = directory.filePath(QStringLiteral("view.sna"));
        if (WriteWholeFile(sFile, SomeBytes(kPixels / 8)) ||
            !form.Launch(sFile, QStringLiteral("view.sna"))) {
            state.SkipWithError("the window does not open");
        }
        form.SetZoom(static_cast<std::int16_t>(state.range(0)));
        probe.NetOverAll();
    }

    QTemporaryDir directory;
    frmSnapshot form;
    SnapshotProbe probe{form};
};

void CommandCut(benchmark::State& state) {
    Window window(state);
    for (auto _ : state) {
        window.form.Copy(true);
    }
    state.SetItemsProcessed(state.iterations() * kPixels);
}
BENCHMARK(CommandCut)->Arg(1)->Arg(5)->UseRealTime()->Unit(benchmark::kMillisecond);

void CommandDelete(benchmark::State& state) {
    Window window(state);
    for (auto _ : state) {
        window.form.Delete();
    }
    state.SetItemsProcessed(state.iterations() * kPixels);
}
BENCHMARK(CommandDelete)->Arg(1)->Arg(5)->UseRealTime()->Unit(benchmark::kMillisecond);

void CommandPasteAndDrop(benchmark::State& state) {
    Window window(state);
    window.form.Copy(false);
    for (auto _ : state) {
        window.form.Paste();
        window.probe.DropAtOrigin();
    }
    state.SetItemsProcessed(state.iterations() * kPixels);
}
BENCHMARK(CommandPasteAndDrop)->Arg(1)->Arg(5)->UseRealTime()->Unit(benchmark::kMillisecond);

// ---- files ----

void BitmapFile(benchmark::State& state) {
    const QTemporaryDir directory;
    const auto factor = static_cast<int>(state.range(0));
    lmk::BitPicture picture;
    picture.Resize(kWidth, kLines);
    for (auto _ : state) {
        if (SavePicture(directory.filePath(QStringLiteral("view.bmp")), picture, factor)) {
            state.SkipWithError("the bitmap could not be written");
        }
    }
    state.SetItemsProcessed(state.iterations() * kPixels * factor * factor);
}
BENCHMARK(BitmapFile)->Arg(1)->Arg(16)->UseRealTime()->Unit(benchmark::kMillisecond);

/// The same bytes in one piece: what the disk alone takes.
void FileOfTheSameSize(benchmark::State& state) {
    const QTemporaryDir directory;
    const auto factor = static_cast<std::size_t>(state.range(0));
    const std::vector<std::uint8_t> bytes(static_cast<std::size_t>(kPixels) / 8 * factor * factor);
    for (auto _ : state) {
        if (WriteWholeFile(directory.filePath(QStringLiteral("view.bin")), bytes)) {
            state.SkipWithError("the file could not be written");
        }
    }
}
BENCHMARK(FileOfTheSameSize)->Arg(1)->Arg(16)->UseRealTime()->Unit(benchmark::kMillisecond);

} // namespace
} // namespace lumrake
