/// What it costs that changes are kept on the disk until they are saved.
#include "bench.h"

#include "base/memory_block.h"
#include "disk/recovery_run.h"
#include "disk/recovery_store.h"

#include <QFileInfo>

namespace lumrake::bench {
namespace {

/// What is told of a byte that is written, its block being new already.
void Touch(benchmark::State& state) {
    constexpr std::size_t kBytes = 1 << 20;
    const std::vector<std::uint8_t> all = Noise(kBytes);
    ChangedBlocks blocks;
    blocks.Open(kBytes);
    std::size_t at = 0;
    for (auto _ : state) {
        at = (at + 257) % kBytes;
        blocks.Touch(all, at);
        benchmark::DoNotOptimize(blocks);
    }
}

/// One pixel of a gigabyte kept, from nothing.
void KeepOnePixel(benchmark::State& state) {
    constexpr std::size_t kBytes = std::size_t{1} << 30;
    const MemoryBlock all(kBytes);
    qputenv("XDG_STATE_HOME", QFileInfo(FilePath(Place::Disk, QStringLiteral("x"))).path().toLocal8Bit());
    for (auto _ : state) {
        ChangedBlocks blocks;
        blocks.Open(kBytes);
        blocks.Touch(all.Bytes(), kBytes / 2);
        RecoveryStore store;
        if (store.Keep({RecoveryHeader::kSnapshot, "/a", kBytes}, blocks, all.Bytes()).IsNotDone()) {
            state.SkipWithError("it is not kept");
        }
        qint64 bytes = 0;
        for (const QString& file : FilesOfRun(kKeptChanges)) {
            bytes += QFileInfo(file).size();
        }
        state.counters["bytes"] = static_cast<double>(bytes);
        store.Forget();
    }
    EndRecoveryRun();
}

const bool kRegistered = [] {
    Add("Stroke/touch", Touch);
    Add("Kept/1GiB", KeepOnePixel)->Iterations(3);
    return true;
}();

} // namespace
} // namespace lumrake::bench
