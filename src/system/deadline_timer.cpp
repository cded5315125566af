#include "system/deadline_timer.h"

#include <sys/timerfd.h>
#include <unistd.h>

#include <QSocketNotifier>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <limits>

namespace counter {

namespace {

// Another event loop under a wait, such as a progress dialog's, may swallow the ring that the wait sleeps
// for. So the timer rings again at this distance until the wait has seen to it.
constexpr long kRingAgainNs = 10'000'000;

// More than 30 years: infinity, and what would not fit the system's count of nanoseconds.
constexpr double kFarAwayMs = 1e12;

constexpr double kNsPerMs = 1e6;
constexpr std::int64_t kNsPerSecond = 1'000'000'000;

itimerspec TimeFor(double deadlineMs) {
    itimerspec time = {};  // all zero: never
    if (deadlineMs > kFarAwayMs) return time;
    // Rounded up, so that a wait that is woken finds its deadline reached. Zero would mean never.
    const auto ns = static_cast<std::int64_t>(std::ceil(std::fmax(deadlineMs * kNsPerMs, 1)));
    time.it_value = {static_cast<time_t>(ns / kNsPerSecond), static_cast<long>(ns % kNsPerSecond)};
    time.it_interval.tv_nsec = kRingAgainNs;
    return time;
}

}  // namespace

DeadlineTimer::DeadlineTimer()
    : descriptor_(timerfd_create(CLOCK_MONOTONIC, TFD_NONBLOCK | TFD_CLOEXEC)),
      deadlineMs_(std::numeric_limits<double>::infinity()) {
    if (descriptor_ < 0) {
        // Without a clock no wait would ever end.
        std::perror("timer");
        std::abort();
    }
    notifier_ = std::make_unique<QSocketNotifier>(descriptor_, QSocketNotifier::Read);
    QObject::connect(notifier_.get(), &QSocketNotifier::activated, notifier_.get(), [this] {
        std::uint64_t rings = 0;
        [[maybe_unused]] const ssize_t size = read(descriptor_, &rings, sizeof rings);
    });
}

DeadlineTimer::~DeadlineTimer() {
    notifier_.reset();
    close(descriptor_);
}

void DeadlineTimer::Set(double deadlineMs) {
    if (deadlineMs == deadlineMs_) return;  // set already, and it rings again
    deadlineMs_ = deadlineMs;
    const itimerspec time = TimeFor(deadlineMs);
    timerfd_settime(descriptor_, TFD_TIMER_ABSTIME, &time, nullptr);
}

}  // namespace counter
