// DeadlineTimer: wakes a sleeping event loop at a point of the monotonic clock, finer than a millisecond.
#pragma once

#include <memory>

class QSocketNotifier;

namespace counter {

class DeadlineTimer {
  public:
    DeadlineTimer();
    ~DeadlineTimer();
    DeadlineTimer(const DeadlineTimer&) = delete;
    DeadlineTimer& operator=(const DeadlineTimer&) = delete;

    // Milliseconds of std::chrono::steady_clock; infinity is never. A point that has passed wakes at once.
    void Set(double deadlineMs);
    double Deadline() const { return deadlineMs_; }

  private:
    int descriptor_;
    double deadlineMs_;
    std::unique_ptr<QSocketNotifier> notifier_;
};

}  // namespace counter
