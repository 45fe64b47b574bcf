#pragma once

#include <QString>

#include <system_error>
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
    /// Of a call to the system: false failed for the reason that it gave last.
    static Outcome OfSystem(bool done) { return done ? Done() : Failed(qt_error_string()); }
    static Outcome OfSystem(const std::error_code& failure) {
        return failure ? Failed(QString::fromLocal8Bit(failure.message().c_str())) : Done();
    }

    bool IsDone() const { return done_; }
    /// Failed or called off.
    bool IsNotDone() const { return !done_; }
    const QString& Reason() const { return reason_; }
    /// What `next` comes to once this is done, else this.
    template <class Next> Outcome Then(const Next& next) const { return done_ ? next() : *this; }
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
