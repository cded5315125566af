#include "support/virtual_pump.h"

#include <algorithm>

namespace counter::test {

void VirtualPump::After(double ms, std::function<void()> event) {
    events_.emplace(nowMs_ + ms, std::move(event));
}

double VirtualPump::NextDue() const {
    double next = events_.empty() ? kForever : events_.begin()->first;
    for (const Source& source : sources_) next = std::min(next, source.NextDueMs());
    return next;
}

void VirtualPump::RunDue() {
    while (!events_.empty() && events_.begin()->first <= nowMs_) {
        const std::function<void()> event = std::move(events_.begin()->second);
        events_.erase(events_.begin());
        event();
    }
    for (const Source& source : sources_) {
        if (source.NextDueMs() <= nowMs_) source.Run(nowMs_);
    }
}

void VirtualPump::RunEvents(double deadlineMs) {
    const double next = std::min(NextDue(), deadlineMs);
    if (next == kForever) throw EndlessWait("endless wait: " + Reasons());
    nowMs_ = std::max(nowMs_, next);
    RunDue();
}

}  // namespace counter::test
