#pragma once

#include <benchmark/benchmark.h>

#include <map>
#include <string>
#include <vector>

namespace lumrake::bench {

/// What a figure wants of its two benchmarks, and in which unit its limit is.
enum class Goal {
    RatioAtMost,     ///< measured time / baseline time
    FasterAtLeast,   ///< baseline time / measured time
    TimeAtMost,      ///< of the measured one, in seconds; no baseline
    RateAtLeast,     ///< items per second of the measured one; no baseline
    CountAtMost,     ///< counter "bytes", whatever it counts; no baseline
    BytesMoreAtMost, ///< counter "bytes", measured - baseline, in MiB
    Told             ///< a ratio without a goal, to judge others by
};

/// One line of the table. `measured` is a benchmark's name; with "*" at its end the worst of all that begin
/// so. Group (what stands before the first "/") is common to both: the benchmarks of a group run in turns.
struct Figure {
    const char* title;
    const char* measured;
    const char* baseline;
    Goal goal;
    double limit;
};

const std::vector<Figure>& Figures();

/// Takes every repetition of every benchmark and prints what fails.
class Measurements : public benchmark::BenchmarkReporter {
  public:
    bool ReportContext(const Context&) override { return true; }
    void ReportRuns(const std::vector<Run>& runs) override;

    /// The figures as a Markdown table.
    std::string Table() const;
    /// For a chart: a line for each figure that has a goal, its title and how much of its limit it takes (1 reaches it
    /// just so, less is better), with a tab between them.
    std::string Shares() const;
    /// The titles of those that miss their goal, a line each.
    std::string Missed() const;
    /// False when a benchmark of the table failed or is missing.
    bool IsComplete() const;

  private:
    struct Samples {
        std::vector<double> seconds, itemsPerSecond, bytes;
    };
    /// The median of `values` of the benchmark, or of the worst of those that `name` stands for; not a number
    /// when there is none.
    double Median(const char* name, std::vector<double> Samples::*values) const;
    /// What the table says of a figure, and how much of its limit it takes; not a number without a goal.
    struct Result {
        std::string measured, baseline, value, goal;
        double share;
    };
    Result ResultOf(const Figure& figure) const;

    std::map<std::string, Samples> samples_;
};

/// Processor, system, compiler and day as Markdown lines.
std::string MachineDescription();

} // namespace lumrake::bench
