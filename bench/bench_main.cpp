#include "platform/screen.h"

#include <QApplication>

#include <benchmark/benchmark.h>

/// Benchmarks of forms paint into the offscreen platform's memory; nothing of them appears on a screen.
int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    lumrake::PinLook();
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv)) {
        return 1;
    }
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
