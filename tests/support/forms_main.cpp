#include "controls/screen.h"

#include <QApplication>

#include <gtest/gtest.h>

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    lumrake::PinLook();
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
