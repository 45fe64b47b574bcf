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

/// Starts a program of this directory and waits for its end. What it says behind `word`, or nothing when it
/// fails.
std::optional<std::int64_t> Answer(const std::string& program, std::vector<std::string> arguments,
                                   const char* word) {
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

    std::optional<std::int64_t> answer;
    std::FILE* said = fdopen(ends[0], "r");
    long long number = 0;
    char kind[16] = "";
    if (started && std::fscanf(said, "%15s %lld", kind, &number) == 2 && std::string(kind) == word) {
        answer = number;
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
        const auto painted = Answer(program, {"start", directory}, "moment");
        if (!painted) {
            state.SkipWithError("the program doesn't come up");
        }
        const std::chrono::nanoseconds taken = std::chrono::nanoseconds(painted.value_or(0)) - before;
        state.SetIterationTime(std::chrono::duration<double>(taken).count());
    }
}

/// With a file of `length` bytes; 0 for none.
void Memory(benchmark::State& state, const std::string& program, std::int64_t length) {
    const std::string directory = FilePath(Place::Memory, QStringLiteral(".")).toStdString();
    const std::string file = length == 0 ? "" : FileOf(Place::Disk, length).toStdString();
    for (auto _ : state) {
        const auto bytes = Answer(program, {"memory", directory, file}, "bytes");
        if (!bytes) {
            state.SkipWithError("the program doesn't show the file");
        }
        state.counters["bytes"] = static_cast<double>(bytes.value_or(0));
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
    const auto addMemory = [](const char* name, const std::string& program, std::int64_t length) {
        Add(name, [=](State& state) { Memory(state, program, length); })->Iterations(1)->Repetitions(3);
    };
    addMemory("Memory/empty", "child_empty", 0);
    addMemory("Memory/48KiB", "child_lumrake", 48 * 1024);
    addMemory("Memory/1GiB", "child_lumrake", std::int64_t{1} << 30);
    return true;
}();

} // namespace
} // namespace lumrake::bench
