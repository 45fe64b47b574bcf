#pragma once

#include <benchmark/benchmark.h>

#include <QString>

#include <cstdint>
#include <string>
#include <utility>
#include <vector>

namespace lumrake::bench {

/// Registers a benchmark "Group/case". Real time counts: the toolkit hides worker threads from CPU time.
template <typename Function>
benchmark::internal::Benchmark* Add(const std::string& name, Function function,
                                    benchmark::TimeUnit unit = benchmark::kMicrosecond) {
    return benchmark::RegisterBenchmark(name.c_str(), std::move(function))->UseRealTime()->Unit(unit);
}

/// `count` bytes that look random and are the same in every run.
std::vector<std::uint8_t> Noise(std::size_t count);

/// Where the files of a figure lie. In memory (a RAM disk, where there is one) a figure shows what the
/// program does; on the disk most of the time is the disk's.
enum class Place { Memory, Disk };

/// Path of a file of that name in an empty directory of this run, which goes at the end of the run.
QString FilePath(Place place, const QString& name);

/// Such a file with `length` bytes, made at the first call.
QString FileOf(Place place, std::int64_t length);

/// What the baselines of files are measured with: the bare system calls. False on failure.
bool PlainRead(const QString& path, std::uint8_t* to, std::size_t count);
/// Writes beside the file, brings it to the disk (fsync) and renames it there: nothing of the file is ever half
/// written.
bool PlainSave(const QString& path, const std::vector<std::uint8_t>& bytes);

/// The largest view, 4096 x 512 pixels, as the default of new windows; no question is ever asked.
void UseLargestView();

} // namespace lumrake::bench
