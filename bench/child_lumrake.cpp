/// The program itself, watched from inside:
///
///   child_lumrake start DIR           comes up as with REHEARS and tells when its window is painted
///   child_lumrake memory DIR FILE     then opens FILE, shows the largest view at 16:1 and tells its memory
///   child_lumrake idle DIR FILE       the same, but tells how often it woke up in 10 seconds without a caret
///
/// DIR takes the place of the program's directory, and of the user's state folder, so that nothing of a user counts.
#include "first_paint.h"

#include "shell/shell.h"
#include "shell/window/file_commands.h"
#include "shell/window/frmMain.h"
#include "shell/window/startup.h"
#include "snapshot/frmSnapshot.h"

#include <QApplication>
#include <QTimer>
#include <QWidget>

#include <cstdio>
#include <cstdlib>
#include <functional>
#include <memory>
#include <sys/resource.h>

namespace {

using namespace lumrake;

std::function<void()> onFirstPaint;
std::unique_ptr<bench::FirstPaint> firstPaint;

void Watch() {
    firstPaint = std::make_unique<bench::FirstPaint>(onFirstPaint);
}

long WakeUps() {
    rusage used{};
    getrusage(RUSAGE_THREAD, &used);
    return used.ru_nvcsw;
}

void CountWakeUps() {
    if (QWidget* focus = QApplication::focusWidget()) {
        focus->clearFocus(); // a caret blinks
    }
    QTimer::singleShot(200, [] {
        QTimer::singleShot(10'000, [before = WakeUps()] {
            std::printf("%ld 0\n", WakeUps() - before - 1); // this one
            std::fflush(stdout);
            std::_Exit(EXIT_SUCCESS);
        });
    });
}

void ShowFile(const QString& file, const std::function<void()>& report) {
    Settings.iDefaultLines = 512;
    Settings.iDefaultColumns = 16;
    OpenSnapshotFile(file);
    if (iSnapshotCount != 1) {
        std::_Exit(EXIT_FAILURE);
    }
    for (QWidget* child : MainWindow()->findChildren<QWidget*>()) {
        if (auto* snapshot = dynamic_cast<frmSnapshot*>(child)) {
            snapshot->SetZoom(5);
        }
    }
    QTimer::singleShot(200, report);
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
    } else if (mode == "memory" && argc == 4) {
        onFirstPaint = [file = QString::fromLocal8Bit(argv[3])] {
            ShowFile(file, [] {
                bench::ReportMemory();
                std::_Exit(EXIT_SUCCESS);
            });
        };
    } else if (mode == "idle" && argc == 4) {
        onFirstPaint = [file = QString::fromLocal8Bit(argv[3])] { ShowFile(file, CountWakeUps); };
    } else {
        return EXIT_FAILURE;
    }
    SetProgramDirectory(QString::fromLocal8Bit(argv[2]));
    qputenv("XDG_STATE_HOME", argv[2]);
    char name[] = "lumrake", word[] = "REHEARS";
    char* arguments[] = {name, word, nullptr};
    return RunProgram(2, arguments);
}
