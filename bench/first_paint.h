#pragma once

#include <QCoreApplication>
#include <QEvent>
#include <QTimer>
#include <QWidget>

#include <chrono>
#include <cstdint>
#include <cstdio>
#include <fstream>
#include <functional>
#include <string>
#include <utility>

namespace lumrake::bench {

/// Calls `done` once when the first window has been painted and the event that painted it is over.
class FirstPaint : public QObject {
  public:
    explicit FirstPaint(std::function<void()> done) : done_(std::move(done)) {
        QCoreApplication::instance()->installEventFilter(this);
    }

    bool eventFilter(QObject* object, QEvent* event) override {
        if (event->type() == QEvent::Paint && object->isWidgetType() &&
            static_cast<QWidget*>(object)->isWindow()) {
            QCoreApplication::instance()->removeEventFilter(this);
            QTimer::singleShot(0, [done = done_] { done(); });
        }
        return false;
    }

  private:
    std::function<void()> done_;
};

/// Prints the nanoseconds of the steady clock, which is the same one in all processes, and 0.
inline void ReportMoment() {
    const auto now = std::chrono::steady_clock::now().time_since_epoch();
    std::printf("%lld 0\n", static_cast<long long>(std::chrono::nanoseconds(now).count()));
    std::fflush(stdout);
}

/// Prints the bytes of this process in memory: all of them, and with every page that several processes share
/// counted by its share.
inline void ReportMemory() {
    std::ifstream rollup("/proc/self/smaps_rollup");
    long long rss = 0, pss = 0;
    for (std::string word; rollup >> word;) {
        if (word == "Rss:") {
            rollup >> rss;
        } else if (word == "Pss:") {
            rollup >> pss;
        }
    }
    std::printf("%lld %lld\n", rss * 1024, pss * 1024);
    std::fflush(stdout);
}

} // namespace lumrake::bench
