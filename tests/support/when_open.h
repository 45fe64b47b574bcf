#pragma once

#include <QApplication>
#include <QTest>
#include <QTimer>
#include <QWidget>

#include <gtest/gtest.h>

#include <functional>
#include <utility>

namespace lumrake::testing {

/// Does `act` with the next modal dialog of type `Dialog`, which must close it. One that is still open long
/// after fails the test and is closed.
template <class Dialog> class WhenOpen {
  public:
    explicit WhenOpen(std::function<void(Dialog&)> act) {
        QObject::connect(&poll_, &QTimer::timeout, [this, act = std::move(act)] {
            auto* dialog = dynamic_cast<Dialog*>(QApplication::activeModalWidget());
            if (dialog != nullptr && !done_) {
                done_ = true;
                EXPECT_TRUE(QTest::qWaitForWindowActive(dialog)); // only then does the focus move
                act(*dialog);
            } else if (++polls_ > 2000 && QApplication::activeModalWidget() != nullptr) {
                ADD_FAILURE() << "a dialog stayed open";
                QApplication::activeModalWidget()->close();
            }
        });
        poll_.start(5);
    }
    ~WhenOpen() { EXPECT_TRUE(done_) << "the dialog did not open"; }

  private:
    QTimer poll_;
    int polls_ = 0;
    bool done_ = false;
};

} // namespace lumrake::testing
