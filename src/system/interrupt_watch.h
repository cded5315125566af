// InterruptWatch: turns the signals INT and TERM into events of the event loop.
#pragma once

#include <signal.h>

#include <functional>
#include <memory>

class QSocketNotifier;

namespace counter {

// One at a time. While it lives, PIPE is ignored: a reader that left is a failed write, not a dead program.
class InterruptWatch {
  public:
    // `tell` is called from the event loop, which it wakes.
    explicit InterruptWatch(std::function<void()> tell);
    // Gives the signals back to whoever had them.
    ~InterruptWatch();
    InterruptWatch(const InterruptWatch&) = delete;
    InterruptWatch& operator=(const InterruptWatch&) = delete;

  private:
    int ends_[2] = {-1, -1};  // of a pipe: [0] is watched, [1] is written by the handler
    std::unique_ptr<QSocketNotifier> notifier_;
    struct sigaction formerInt_ = {}, formerTerm_ = {}, formerPipe_ = {};
};

}  // namespace counter
