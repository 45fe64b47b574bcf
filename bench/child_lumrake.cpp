/// The program itself, watched from inside:
///
///   child_lumrake start DIR           comes up as with REHEARS and tells when its window is painted
///   child_lumrake memory DIR FILE     then opens FILE, shows the largest view at 16:1 and tells its memory
///   child_lumrake scroll DIR FILE     fills 3840 x 2160 device pixels with that view, scrolls it by lines and tells the
///                                     nanoseconds of one, and those of copying as many bytes as it has on the screen
///   child_lumrake idle DIR FILE       does as memory, but tells how often it woke up in 10 seconds without a caret
///
/// DIR takes the place of the program's directory, and of the user's state folder, so that nothing of a user counts.
#include "first_paint.h"

#include "controls/spin_bar.h"
#include "shell/shell.h"
#include "shell/window/file_commands.h"
#include "shell/window/frmMain.h"
#include "shell/window/startup.h"
#include "snapshot/frmSnapshot.h"

#include <QApplication>
#include <QTimer>
#include <QWidget>

#include <algorithm>
#include <array>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <functional>
#include <memory>
#include <string>
#include <sys/resource.h>
#include <vector>

namespace {

using namespace lumrake;

std::function<void()> onFirstPaint;
std::unique_ptr<bench::FirstPaint> firstPaint;

void Watch() {
    firstPaint = std::make_unique<bench::FirstPaint>(onFirstPaint);
}

frmSnapshot& ShowFile(const QString& file) {
    Settings.iDefaultLines = 512;
    Settings.iDefaultColumns = 16;
    OpenSnapshotFile(file);
    if (iSnapshotCount != 1) {
        std::_Exit(EXIT_FAILURE);
    }
    for (QWidget* child : MainWindow()->findChildren<QWidget*>()) {
        if (auto* snapshot = dynamic_cast<frmSnapshot*>(child)) {
            snapshot->SetZoom(5);
            return *snapshot;
        }
    }
    std::_Exit(EXIT_FAILURE);
}

void TellMemory(const QString& file) {
    ShowFile(file);
    QTimer::singleShot(200, [] {
        bench::ReportMemory();
        std::_Exit(EXIT_SUCCESS);
    });
}

long WakeUps() {
    rusage used{};
    getrusage(RUSAGE_THREAD, &used);
    return used.ru_nvcsw;
}

void TellWakeUps(const QString& file) {
    ShowFile(file);
    if (QWidget* focus = QApplication::focusWidget()) {
        focus->clearFocus(); // a caret blinks
    }
    QTimer::singleShot(400, [] {
        QTimer::singleShot(10'000, [before = WakeUps()] {
            std::printf("%ld 0\n", WakeUps() - before - 1); // this one
            std::fflush(stdout);
            std::_Exit(EXIT_SUCCESS);
        });
    });
}

/// Nanoseconds of one `step`, the median of many.
template <class Step> long long Duration(Step step) {
    std::array<long long, 301> times{};
    for (long long& time : times) {
        const auto begin = std::chrono::steady_clock::now();
        step();
        time = std::chrono::nanoseconds(std::chrono::steady_clock::now() - begin).count();
    }
    std::nth_element(times.begin(), times.begin() + times.size() / 2, times.end());
    return times[times.size() / 2];
}

void TellScrolling(const QString& file) {
    frmSnapshot& snapshot = ShowFile(file);
    constexpr QSize kDevicePixels(3840, 2160);
    MainWindow()->resize(kDevicePixels / MainWindow()->devicePixelRatioF());
    snapshot.parentWidget()->showMaximized();
    QCoreApplication::processEvents();
    auto* const address = snapshot.findChild<SpinBar*>(QString(), Qt::FindDirectChildrenOnly);
    const long long scrolled = Duration([address] {
        address->triggerAction(QAbstractSlider::SliderSingleStepAdd);
        QCoreApplication::sendPostedEvents();
    });
    const std::vector<std::uint32_t> from(kDevicePixels.width() * kDevicePixels.height(), 1);
    std::vector<std::uint32_t> to(from.size());
    const long long copied = Duration([&] {
        std::memcpy(to.data(), from.data(), from.size() * sizeof from[0]);
        asm volatile("" : : "r"(to.data()) : "memory"); // the copy counts as used
    });
    std::printf("%lld %lld\n", scrolled, copied);
    std::fflush(stdout);
    std::_Exit(EXIT_SUCCESS);
}

} // namespace

Q_COREAPP_STARTUP_FUNCTION(Watch)

int main(int argc, char** argv) {
    const std::string mode = argc > 2 ? argv[1] : "";
    if (mode == "start") {
        onFirstPaint = [] {
            bench::ReportMoment();
            std::_Exit(EXIT_SUCCESS);
        };
    } else if (argc == 4 && (mode == "memory" || mode == "scroll" || mode == "idle")) {
        onFirstPaint = [file = QString::fromLocal8Bit(argv[3]), tell = mode == "memory" ? TellMemory
                                                                       : mode == "scroll"
                                                                           ? TellScrolling
                                                                           : TellWakeUps] { tell(file); };
    } else {
        return EXIT_FAILURE;
    }
    SetProgramDirectory(QString::fromLocal8Bit(argv[2]));
    qputenv("XDG_STATE_HOME", argv[2]);
    char name[] = "lumrake", word[] = "REHEARS";
    char* arguments[] = {name, word, nullptr};
    return RunProgram(2, arguments);
}
