#pragma once

#include <QString>

#include <utility>

namespace lumrake {

/// How something went that can fail: it is done, or it failed for a reason that the user is to be told, or it was
/// called off and there is nothing to tell.
class [[nodiscard]] Outcome {
  public:
    static Outcome Done() { return Outcome(true, {}); }
    /// `reason` is a text in the system's words, not empty.
    static Outcome Failed(QString reason) { return Outcome(false, std::move(reason)); }
    static Outcome CalledOff() { return Outcome(false, {}); }

    bool IsDone() const { return done_; }
    /// Failed or called off.
    bool IsNotDone() const { return !done_; }
    const QString& Reason() const { return reason_; }
    /// The same, but that the reason says first what was being done.
    Outcome During(const QString& doing) const {
        return reason_.isEmpty() ? *this : Failed(doing + QLatin1String("\n\n") + reason_);
    }

  private:
    Outcome(bool done, QString reason) : done_(done), reason_(std::move(reason)) {}

    bool done_;
    QString reason_;
};

} // namespace lumrake
