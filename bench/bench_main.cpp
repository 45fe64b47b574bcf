/// All benchmarks in one program.
///
///   lumrake_bench FILE CHART      measures the figures and writes them into FILE, between its two marks, and what a
///                                 chart is drawn from into CHART
///   lumrake_bench --check         measures the figures and fails where one misses its goal
///   lumrake_bench --benchmark_... runs what is chosen and reports it in the library's own way
#include "bench.h"
#include "figures.h"

#include "controls/screen.h"

#include <QApplication>

#include <benchmark/benchmark.h>

#include <cstdio>
#include <fstream>
#include <iterator>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace {

using namespace lumrake::bench;

constexpr std::string_view kBegin = "<!-- measured by bench/run: begin -->\n";
constexpr std::string_view kEnd = "<!-- measured by bench/run: end -->\n";

/// Group after group, so that whatever slows the machine down for a while hits a figure and its baseline
/// alike.
void RunFigures(Measurements& measurements) {
    std::set<std::string> done;
    for (const Figure& figure : Figures()) {
        const std::string name = figure.measured;
        const std::string group = name.substr(0, name.find('/') + 1);
        if (done.insert(group).second) {
            std::fprintf(stderr, "%s ...\n", group.c_str());
            benchmark::RunSpecifiedBenchmarks(&measurements, "^" + group);
        }
    }
}

bool Write(const char* path, const std::string& text) {
    std::ofstream out(path);
    return static_cast<bool>(out << text << std::flush);
}

/// Puts `text` between the marks of the file.
bool WriteInto(const char* path, const std::string& text) {
    std::ifstream in(path);
    std::string whole{std::istreambuf_iterator<char>(in), {}};
    const std::size_t begin = whole.find(kBegin), end = whole.find(kEnd);
    if (begin == std::string::npos || end == std::string::npos || end < begin) {
        return false;
    }
    whole.replace(begin + kBegin.size(), end - begin - kBegin.size(), text);
    return Write(path, whole);
}

} // namespace

int main(int argc, char** argv) {
    // Nothing appears on a screen: forms paint into the memory of the offscreen platform.
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    lumrake::PinLook();
    qputenv("XDG_STATE_HOME",
            FilePath(Place::Memory, QStringLiteral("state")).toLocal8Bit()); // not the user's
    const bool check = argc == 2 && std::string_view(argv[1]) == "--check";
    const bool table = argc == 3 && argv[1][0] != '-';
    if (!check && !table) {
        benchmark::Initialize(&argc, argv);
        if (benchmark::ReportUnrecognizedArguments(argc, argv)) {
            return 1;
        }
        benchmark::RunSpecifiedBenchmarks();
        benchmark::Shutdown();
        return 0;
    }

    std::vector<std::string> flags{argv[0], "--benchmark_repetitions=9", "--benchmark_min_time=0.05",
                                   "--benchmark_enable_random_interleaving=true"};
    std::vector<char*> arguments;
    for (std::string& flag : flags) {
        arguments.push_back(flag.data());
    }
    int count = static_cast<int>(arguments.size());
    benchmark::Initialize(&count, arguments.data());
    Measurements measurements;
    RunFigures(measurements);
    benchmark::Shutdown();

    const std::string text = MachineDescription() + "\n" + measurements.Table();
    std::fputs(text.c_str(), stdout);
    if (!measurements.IsComplete()) {
        std::fputs("Not every figure could be measured.\n", stderr);
        return 1;
    }
    if (check) {
        const std::string missed = measurements.Missed();
        std::fprintf(stderr, "%s%s", missed.empty() ? "" : "These miss their goal:\n", missed.c_str());
        return missed.empty() ? 0 : 1;
    }
    if (!WriteInto(argv[1], text) || !Write(argv[2], measurements.Shares())) {
        std::fprintf(stderr, "%s lacks its marks, or it or %s can't be written.\n", argv[1], argv[2]);
        return 1;
    }
    return 0;
}
