/// What a look-up in the help file costs. It is read and searched at every move of the mouse over a control,
/// so the worst case counts: the last of 500 entries.
#include "bench.h"

#include "assistant/rules/help_file.h"

#include <cstdio>
#include <cstring>
#include <string>
#include <vector>

namespace {

std::string HelpFileOf(int entries) {
    std::string file = "Prompts\n\n";
    for (int number = 1; number <= entries; ++number) {
        char key[16];
        std::snprintf(key, sizeof key, "%03d", number);
        file += key;
        file += " Control,Click here to do what it says; and once more to do it again. "
                "There is nothing that could go wrong; is there?\n";
    }
    return file;
}

void FindPrompt(benchmark::State& state) {
    const int entries = static_cast<int>(state.range(0));
    const std::string file = HelpFileOf(entries);
    for (auto _ : state) {
        benchmark::DoNotOptimize(lumrake::FindPrompt(file, entries));
    }
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(file.size()));
}
BENCHMARK(FindPrompt)->Name("Help/FindPrompt")->Arg(100)->Arg(500);

/// The same bytes copied, to have something to compare with.
void CopyFile(benchmark::State& state) {
    const std::string file = HelpFileOf(static_cast<int>(state.range(0)));
    std::vector<char> copy(file.size());
    for (auto _ : state) {
        std::memcpy(copy.data(), file.data(), file.size());
        benchmark::ClobberMemory();
    }
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(file.size()));
}
BENCHMARK(CopyFile)->Name("Help/Copy")->Arg(100)->Arg(500);

} // namespace
