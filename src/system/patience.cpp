#include "system/patience.h"

#include <poll.h>

#include <algorithm>
#include <cerrno>
#include <chrono>

#include "system/interrupt_watch.h"

namespace counter {

namespace {

constexpr int kTurnMs = 100;  // how soon an open of a named pipe is tried again
constexpr int kTellAfterMs = 2000;
constexpr int kGraceMs = 1000;  // for a reader that is only slow

using Clock = std::chrono::steady_clock;

int MsSince(Clock::time_point start) {
    return static_cast<int>(
        std::chrono::duration_cast<std::chrono::milliseconds>(Clock::now() - start).count());
}

bool Ready(int descriptor, short events, int timeoutMs) {
    pollfd one = {descriptor, events, 0};
    return poll(&one, 1, timeoutMs) > 0;
}

}  // namespace

int Patience::Await(int descriptor, short events, const std::string& what) const {
    if (Ready(descriptor, events, 0)) return 0;
    return Until([=] { return Ready(descriptor, events, kTurnMs); }, what);
}

// A turn is short, so that a signal that comes just before it is seen after it.
int Patience::Until(const std::function<bool()>& done, const std::string& what) const {
    const auto start = Clock::now();
    auto asked = Clock::time_point::max();  // to end
    bool told = !tell_;
    while (!done()) {
        const auto now = Clock::now();
        if (watch_ != nullptr && watch_->Came()) asked = std::min(asked, now);
        if (now >= asked && MsSince(asked) >= kGraceMs) return EINTR;
        if (told || MsSince(start) < kTellAfterMs) continue;
        tell_("waiting for " + what);
        told = true;
    }
    return 0;
}

}  // namespace counter
