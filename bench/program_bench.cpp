/// Whole programs: how long Lumrake takes to its first painted window, and how much memory it takes, beside a
/// program with an empty main window. The children tell both themselves; the time counts from before their
/// start.
#include "bench.h"

#include <QCoreApplication>

#include <array>
#include <chrono>
#include <cstdio>
#include <optional>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

extern char** environ;

namespace lumrake::bench {
namespace {

/// Starts a program of this directory and waits for its end. The two numbers that it says, or nothing when it
/// fails.
std::optional<std::array<std::int64_t, 2>> Answer(const std::string& program,
                                                  std::vector<std::string> arguments) {
    // On a screen of bench/run's own if there is one: this program has read its platform already.
    qputenv("QT_QPA_PLATFORM", qEnvironmentVariableIsSet("DISPLAY") ? "xcb" : "offscreen");
    const std::string path = QCoreApplication::applicationDirPath().toStdString() + "/" + program;
    arguments.insert(arguments.begin(), path);
    std::vector<char*> argv;
    for (std::string& argument : arguments) {
        argv.push_back(argument.data());
    }
    argv.push_back(nullptr);

    std::array<int, 2> ends{};
    if (pipe(ends.data()) != 0) {
        return std::nullopt;
    }
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_adddup2(&actions, ends[1], STDOUT_FILENO);
    posix_spawn_file_actions_addclose(&actions, ends[0]);
    posix_spawn_file_actions_addclose(&actions, ends[1]);
    pid_t child = 0;
    const bool started = posix_spawn(&child, path.c_str(), &actions, nullptr, argv.data(), environ) == 0;
    posix_spawn_file_actions_destroy(&actions);
    close(ends[1]);

    std::optional<std::array<std::int64_t, 2>> answer;
    std::FILE* said = fdopen(ends[0], "r");
    long long first = 0, second = 0;
    if (started && std::fscanf(said, "%lld %lld", &first, &second) == 2) {
        answer = {first, second};
    }
    std::fclose(said);
    if (started) {
        waitpid(child, nullptr, 0);
    }
    return answer;
}

void Start(benchmark::State& state, const std::string& program) {
    const std::string directory = FilePath(Place::Memory, QStringLiteral(".")).toStdString();
    for (auto _ : state) {
        const auto before = std::chrono::steady_clock::now().time_since_epoch();
        const auto painted = Answer(program, {"start", directory});
        if (!painted) {
            state.SkipWithError("the program doesn't come up");
        }
        const std::chrono::nanoseconds taken = std::chrono::nanoseconds(painted ? (*painted)[0] : 0) - before;
        state.SetIterationTime(std::chrono::duration<double>(taken).count());
    }
}

/// One line scrolled in a full window at a scale of the screen, or the copy of its bytes (`kind` 0 or 1).
void Scroll(benchmark::State& state, const std::string& scale, std::size_t kind) {
    const std::string directory = FilePath(Place::Memory, QStringLiteral(".")).toStdString();
    const std::string file = FileOf(Place::Memory, 16 << 20).toStdString();
    qputenv("QT_SCALE_FACTOR", scale.c_str());
    for (auto _ : state) {
        const auto taken = Answer("child_lumrake", {"scroll", directory, file});
        if (!taken) {
            state.SkipWithError("the program doesn't scroll the file");
        }
        state.SetIterationTime(taken ? static_cast<double>((*taken)[kind]) * 1e-9 : 0);
    }
    qunsetenv("QT_SCALE_FACTOR");
}

/// How often it wakes up beside an unchanged document.
void Idle(benchmark::State& state) {
    const std::string directory = FilePath(Place::Memory, QStringLiteral(".")).toStdString();
    for (auto _ : state) {
        const auto wakeUps =
            Answer("child_lumrake", {"idle", directory, FileOf(Place::Disk, 48 * 1024).toStdString()});
        if (!wakeUps) {
            state.SkipWithError("the program doesn't show the file");
        }
        state.counters["bytes"] = wakeUps ? static_cast<double>((*wakeUps)[0]) : -1;
    }
}

/// With a file of `length` bytes; 0 for none. `kind`: 0 the resident set, 1 the proportional one.
void Memory(benchmark::State& state, const std::string& program, std::int64_t length, std::size_t kind) {
    const std::string directory = FilePath(Place::Memory, QStringLiteral(".")).toStdString();
    const std::string file = length == 0 ? "" : FileOf(Place::Disk, length).toStdString();
    for (auto _ : state) {
        const auto bytes = Answer(program, {"memory", directory, file});
        if (!bytes) {
            state.SkipWithError("the program doesn't show the file");
        }
        state.counters["bytes"] = bytes ? static_cast<double>((*bytes)[kind]) : 0;
    }
}

const bool kRegistered = [] {
    using benchmark::State;
    for (const auto& [name, program] :
         {std::pair{"Start/lumrake", "child_lumrake"}, {"Start/empty", "child_empty"}}) {
        const std::string child = program;
        benchmark::RegisterBenchmark(name, [child](State& state) { Start(state, child); })
            ->UseManualTime()
            ->Iterations(3);
    }
    for (const std::string scale : {"1", "1.5", "2"}) {
        for (const auto& [name, kind] : {std::pair{"x", std::size_t{0}}, {"x_memcpy", std::size_t{1}}}) {
            benchmark::RegisterBenchmark(("Scroll/" + scale + name).c_str(),
                                         [=, kind = kind](State& state) { Scroll(state, scale, kind); })
                ->UseManualTime()
                ->Iterations(1);
        }
    }
    const auto addMemory = [](const std::string& name, const std::string& program, std::int64_t length) {
        for (const auto& [group, kind] : {std::pair{"Memory/", std::size_t{0}}, {"Share/", std::size_t{1}}}) {
            Add(group + name, [=, kind = kind](State& state) { Memory(state, program, length, kind); })
                ->Iterations(1)
                ->Repetitions(3);
        }
    };
    Add("Idle/document", Idle)->Iterations(1)->Repetitions(1);
    addMemory("empty", "child_empty", 0);
    addMemory("48KiB", "child_lumrake", 48 * 1024);
    addMemory("1GiB", "child_lumrake", std::int64_t{1} << 30);
    return true;
}();

} // namespace
} // namespace lumrake::bench
