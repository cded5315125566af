// InterruptWatch: turns the signals that end a program into events of the event loop.
//
// They are INT (Ctrl-C), TERM (kill, a system that shuts down), HUP (the terminal was closed, the line of a
// login broke) and QUIT (Ctrl and backslash). All mean the same: the program is to end, in good order.
#pragma once

#include <signal.h>

#include <array>
#include <functional>
#include <memory>

class QSocketNotifier;

namespace counter {

inline constexpr std::array<int, 4> kEndingSignals = {SIGINT, SIGTERM, SIGHUP, SIGQUIT};

// One at a time. While it lives, PIPE is ignored: a reader that left is a failed write, not a dead program.
// HUP stays ignored where the program was started so, by nohup.
class InterruptWatch {
  public:
    // `tell` is called from the event loop, which it wakes, whatever runs the loop: the pump, or a dialog.
    explicit InterruptWatch(std::function<void()> tell);
    // Gives the signals back to whoever had them.
    ~InterruptWatch();
    // Whether a signal has come, told yet or not.
    bool Came() const;
    InterruptWatch(const InterruptWatch&) = delete;
    InterruptWatch& operator=(const InterruptWatch&) = delete;

  private:
    int ends_[2] = {-1, -1};  // of a pipe: [0] is watched, [1] is written by the handler
    std::unique_ptr<QSocketNotifier> notifier_;
    std::array<struct sigaction, kEndingSignals.size()> former_ = {};
    struct sigaction formerPipe_ = {};
    bool came_ = false;
};

}  // namespace counter
