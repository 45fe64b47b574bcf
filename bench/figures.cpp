#include "figures.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <ctime>
#include <fstream>
#include <limits>
#include <string_view>
#include <sys/utsname.h>
#include <thread>

namespace lumrake::bench {

namespace {

using enum Goal;

constexpr const char* kNoBaseline = "";

// clang-format off
const std::vector<Figure> kFigures = {
    {"`zxShowMem`, largest view, Graphics, against memcpy of the picture",      "Largest/Graphics",        "Largest/memcpy",      RatioAtMost, 1.7},
    {"`zxShowMem`, largest view, Line masks, against the same",                 "Largest/LineMasks",       "Largest/memcpy",      RatioAtMost, 2.5},
    {"`zxShowMem`, largest view, Byte masks, against the same",                 "Largest/ByteMasks",       "Largest/memcpy",      RatioAtMost, 2.7},
    {"`zxShowMem`, 256 x 192, slowest of the five modes",                       "Small/*",                 kNoBaseline,           TimeAtMost,  0.4e-6},
    {"16 columns of 8 x 512, half past the end, slowest of the modes",          "Narrow/*",                kNoBaseline,           TimeAtMost,  1e-6},
    {"Draw event of 800 x 600, largest view at 2:1, against memcpy",            "Draw/2",                  "Draw/memcpy",         RatioAtMost, 1.35},
    {"The same at 4:1",                                                         "Draw/4",                  "Draw/memcpy",         RatioAtMost, 1.35},
    {"The same at 8:1",                                                         "Draw/8",                  "Draw/memcpy",         RatioAtMost, 1.35},
    {"The same at 16:1",                                                        "Draw/16",                 "Draw/memcpy",         RatioAtMost, 1.35},
    {"Draw event at 16:1 against 2:1",                                          "Draw/16",                 "Draw/2",              RatioAtMost, 1.2},
    {"Draw event at 2:1 against the toolkit scaling a one-bit picture",         "Draw/2",                  "Draw/toolkit_2",      FasterAtLeast, 5},
    {"The same at 4:1",                                                         "Draw/4",                  "Draw/toolkit_4",      FasterAtLeast, 5},
    {"The same at 8:1",                                                         "Draw/8",                  "Draw/toolkit_8",      FasterAtLeast, 5},
    {"The same at 16:1",                                                        "Draw/16",                 "Draw/toolkit_16",     FasterAtLeast, 5},
    {"One pixel of a stroke, drawn and painted, against an empty painter",      "Stroke/pixel",            "Stroke/empty",        RatioAtMost, 3},
    {"What its document notes so that it can be kept, against the same pixel",  "Stroke/touch",            "Stroke/pixel",        RatioAtMost, 0.05},
    {"Bytes written to keep one pixel of 1 GiB",                                "Kept/1GiB",               kNoBaseline,           CountAtMost, 16384},
    {"Wake-ups in 10 s beside an unchanged document",                           "Idle/document",           kNoBaseline,           CountAtMost, 0},
    {"`ReadPixel`, slowest mode",                                               "Pixels/Read*",            kNoBaseline,           RateAtLeast, 50e6},
    {"`WritePixel` without repaint, slowest mode",                              "Pixels/Write*",           kNoBaseline,           RateAtLeast, 50e6},
    {"Copy of the largest view",                                                "Block/copy",              kNoBaseline,           TimeAtMost,  0.2},
    {"Delete of the largest view",                                              "Block/delete",            kNoBaseline,           TimeAtMost,  0.2},
    {"Drop of the largest view",                                                "Block/drop",              kNoBaseline,           TimeAtMost,  0.2},
    {"A window of 3840 x 2160 device pixels scrolled by a line, at 1x, against memcpy", "Scroll/1x", "Scroll/1x_memcpy",  RatioAtMost, 2},
    {"The same at 1.5x",                                                        "Scroll/1.5x",             "Scroll/1.5x_memcpy",  RatioAtMost, 2},
    {"The same at 2x",                                                          "Scroll/2x",               "Scroll/2x_memcpy",    RatioAtMost, 2},
    {"1000 views of 256 x 192 at 4:1 as bitmaps, against ffmpeg",               "Bitmaps/ours",            "Bitmaps/ffmpeg",      FasterAtLeast, 3},
    {"Largest view at 16:1 as a bitmap, against a plain save",                 "Bitmap/ours",             "Bitmap/plain",        RatioAtMost, 3},
    {"Raw export of the largest view, rows and file, against a plain save",     "Raw/ours",                "Raw/plain",           RatioAtMost, 4},
    {"The whole command, with 512 steps of its progress bar",                   "Raw/command",             "Raw/plain",           Told, 0},
    {"Opening 16 MiB, against a warm read() into new memory",                   "Open16M/ours",            "Open16M/plain",       RatioAtMost, 1.2},
    {"The same, against a warm read() into memory in use already",              "Open16M/ours",            "Open16M/again",       Told, 0},
    {"Opening 1 GiB, against a warm read() into memory in use already",         "Open1G/ours",             "Open1G/again",        RatioAtMost, 2},
    {"Saving 16 MiB, against temporary file, fsync and rename",                 "Save/ours",               "Save/plain",          RatioAtMost, 1.4},
    {"Start to the first painted window, against an empty main window",         "Start/lumrake",           "Start/empty",         RatioAtMost, 1.5},
    {"A frame of a playing animation, against painting its exposure",           "Animation/frame",         "Animation/paint",     RatioAtMost, 1.1},
    {"A frame of 40 animations of 256 x 192 at 4:1, seen, in the 20 ms of their pause", "Animations/frame", kNoBaseline,      TimeAtMost,  20e-3},
    {"A megabyte pasted into the notes",                                        "Notes/paste",             kNoBaseline,           TimeAtMost,  50e-3},
    {"Memory above an empty program's, shared pages counted by share: 48 KiB, largest view at 16:1", "Share/48KiB",             "Share/empty",         BytesMoreAtMost, 8},
    {"The same with a file of 1 GiB",                                           "Share/1GiB",              "Share/empty",         BytesMoreAtMost, 1024 + 8},
};
// clang-format on

constexpr double kNone = std::numeric_limits<double>::quiet_NaN();

std::string Text(const char* format, double value) {
    char text[64];
    std::snprintf(text, sizeof text, format, value);
    return text;
}

std::string TimeText(double seconds) {
    if (std::isnan(seconds)) {
        return "-";
    }
    return seconds < 1e-6   ? Text("%.3g ns", seconds * 1e9)
           : seconds < 1e-3 ? Text("%.3g us", seconds * 1e6)
           : seconds < 1    ? Text("%.3g ms", seconds * 1e3)
                            : Text("%.3g s", seconds);
}

std::string MebibyteText(double bytes) {
    return Text("%.1f MiB", bytes / 1048576);
}

double MedianOf(std::vector<double> values) {
    if (values.empty()) {
        return kNone;
    }
    const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
    std::nth_element(values.begin(), middle, values.end());
    return *middle;
}

/// The rest of the first line of a file that begins with `key`, behind the ":".
std::string LineOf(const char* file, std::string_view key) {
    std::ifstream lines(file);
    for (std::string line; std::getline(lines, line);) {
        const std::size_t colon = line.find(": ");
        if (line.starts_with(key) && colon != std::string::npos) {
            return line.substr(colon + 2);
        }
    }
    return "unknown";
}

} // namespace

const std::vector<Figure>& Figures() {
    return kFigures;
}

void Measurements::ReportRuns(const std::vector<Run>& runs) {
    for (const Run& run : runs) {
        if (run.error_occurred) {
            std::fprintf(stderr, "%s: %s\n", run.benchmark_name().c_str(), run.error_message.c_str());
        }
        if (run.error_occurred || run.run_type != Run::RT_Iteration) {
            continue;
        }
        Samples& samples = samples_[run.run_name.function_name];
        samples.seconds.push_back(run.real_accumulated_time / static_cast<double>(run.iterations));
        if (const auto rate = run.counters.find("items_per_second"); rate != run.counters.end()) {
            samples.itemsPerSecond.push_back(rate->second);
        }
        if (const auto bytes = run.counters.find("bytes"); bytes != run.counters.end()) {
            samples.bytes.push_back(bytes->second);
        }
    }
}

double Measurements::Median(const char* name, std::vector<double> Samples::*values) const {
    std::string_view wanted = name;
    const bool several = wanted.ends_with('*');
    if (several) {
        wanted.remove_suffix(1);
    }
    const bool smallestIsWorst = values == &Samples::itemsPerSecond;
    double worst = kNone;
    for (const auto& [key, samples] : samples_) {
        if (several ? key.starts_with(wanted) : key == wanted) {
            const double median = MedianOf(samples.*values);
            if (std::isnan(worst) || (smallestIsWorst ? median < worst : median > worst)) {
                worst = median;
            }
        }
    }
    return worst;
}

Measurements::Result Measurements::ResultOf(const Figure& figure) const {
    const double seconds = Median(figure.measured, &Samples::seconds);
    const double baseline = Median(figure.baseline, &Samples::seconds);
    Result result{TimeText(seconds), TimeText(baseline), "", "", kNone};
    switch (figure.goal) {
    case Told: result.value = Text("%.2f", seconds / baseline); break;
    case RatioAtMost:
        result.value = Text("%.2f", seconds / baseline);
        result.goal = Text("%.3g at most", figure.limit);
        result.share = seconds / baseline / figure.limit;
        break;
    case FasterAtLeast:
        result.value = Text("%.1f times faster", baseline / seconds);
        result.goal = Text("%.3g at least", figure.limit);
        result.share = figure.limit / (baseline / seconds);
        break;
    case TimeAtMost:
        result.goal = TimeText(figure.limit) + " at most";
        result.share = seconds / figure.limit;
        break;
    case RateAtLeast: {
        const double rate = Median(figure.measured, &Samples::itemsPerSecond);
        result.measured = Text("%.0f million/s", rate / 1e6);
        result.goal = Text("%.0f million/s at least", figure.limit / 1e6);
        result.share = figure.limit / rate;
        break;
    }
    case CountAtMost: {
        const double count = Median(figure.measured, &Samples::bytes);
        result.measured = Text("%.0f", count);
        result.goal = Text("%.0f at most", figure.limit);
        result.share = figure.limit == 0 ? (count == 0 ? 0 : 2) : count / figure.limit;
        break;
    }
    case BytesMoreAtMost: {
        const double bytes = Median(figure.measured, &Samples::bytes);
        const double bytesBefore = Median(figure.baseline, &Samples::bytes);
        const double more = (bytes - bytesBefore) / 1048576;
        result.measured = MebibyteText(bytes);
        result.baseline = MebibyteText(bytesBefore);
        result.value = Text("+ %.1f MiB", more);
        result.goal = Text("+ %.0f MiB at most", figure.limit);
        result.share = more / figure.limit;
        break;
    }
    }
    return result;
}

std::string Measurements::Table() const {
    std::string table = "| Figure | Measured | Baseline | Ratio | Goal | Reached |\n"
                        "|---|---|---|---|---|---|\n";
    for (const Figure& figure : Figures()) {
        const Result result = ResultOf(figure);
        const char* verdict = figure.goal == Told ? "" : result.share <= 1 ? "yes" : "**no**";
        table += std::string("| ") + figure.title + " | " + result.measured + " | " + result.baseline +
                 " | " + result.value + " | " + result.goal + " | " + verdict + " |\n";
    }
    return table;
}

std::string Measurements::Shares() const {
    std::string lines;
    for (const Figure& figure : Figures()) {
        if (figure.goal != Told) {
            lines += figure.title + Text("\t%.4f\n", ResultOf(figure).share);
        }
    }
    return lines;
}

std::string Measurements::Missed() const {
    std::string lines;
    for (const Figure& figure : Figures()) {
        if (figure.goal != Told && !(ResultOf(figure).share <= 1)) { // no number reaches nothing
            lines += std::string(figure.title) + "\n";
        }
    }
    return lines;
}

bool Measurements::IsComplete() const {
    return std::all_of(Figures().begin(), Figures().end(), [this](const Figure& figure) {
        const bool needsBaseline = *figure.baseline != '\0';
        return !std::isnan(Median(figure.measured, &Samples::seconds)) &&
               !(needsBaseline && std::isnan(Median(figure.baseline, &Samples::seconds)));
    });
}

std::string MachineDescription() {
    utsname system{};
    uname(&system);
    const std::time_t now = std::time(nullptr);
    char day[32];
    std::strftime(day, sizeof day, "%Y-%m-%d", std::gmtime(&now));
    return "- Processor: " + LineOf("/proc/cpuinfo", "model name") + ", " +
           std::to_string(std::thread::hardware_concurrency()) +
           " cores\n- Memory: " + LineOf("/proc/meminfo", "MemTotal") + "\n- System: " + system.sysname +
           " " + system.release + "\n- Compiler: GCC " __VERSION__ ", -O3\n- Day: " + day + "\n";
}

} // namespace lumrake::bench
