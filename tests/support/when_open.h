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
                // Only then does the focus move; a window counts as active for the toolkit when its parent is.
                EXPECT_TRUE(QTest::qWaitFor([dialog] { return QApplication::activeWindow() == dialog; }));
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
