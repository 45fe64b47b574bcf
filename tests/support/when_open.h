#pragma once

#include "support/forms_support.h"

#include <QApplication>
#include <QTimer>

#include <typeinfo>
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
                WaitForActive(*dialog);
                act(*dialog);
            } else if (++polls_ > 2000 && QApplication::activeModalWidget() != nullptr) {
                ADD_FAILURE() << typeid(Dialog).name() << (done_ ? " was used" : " did not open")
                              << " and there stayed open" << OpenWindows();
                QApplication::activeModalWidget()->close();
            }
        });
        poll_.start(5);
    }
    ~WhenOpen() { EXPECT_TRUE(done_) << typeid(Dialog).name() << " did not open"; }

  private:
    QTimer poll_;
    int polls_ = 0;
    bool done_ = false;
};

} // namespace lumrake::testing
