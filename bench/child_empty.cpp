/// An empty main window, the measure for start and memory: child_empty start | memory
#include "first_paint.h"

#include <QApplication>
#include <QMainWindow>

#include <cstdlib>
#include <string_view>

int main(int argc, char** argv) {
    using namespace lumrake;
    const bool memory = argc > 1 && std::string_view(argv[1]) == "memory";
    QApplication application(argc, argv);
    QMainWindow window;
    const bench::FirstPaint firstPaint([memory] {
        if (!memory) {
            bench::ReportMoment();
            std::_Exit(EXIT_SUCCESS);
        }
        QTimer::singleShot(200, [] {
            bench::ReportMemory();
            std::_Exit(EXIT_SUCCESS);
        });
    });
    window.show();
    return QApplication::exec();
}
