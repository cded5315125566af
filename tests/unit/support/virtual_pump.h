// VirtualPump: a pump whose clock jumps to whatever is due next.
#pragma once

#include <functional>
#include <map>
#include <stdexcept>
#include <string>

#include "platform/pump.h"

namespace counter::test {

// A program that ended: only the harness catches it.
struct ProcessEnded {
    int Status;
};

// A wait with no deadline while nothing is due: it would last for ever.
struct EndlessWait : std::runtime_error {
    using std::runtime_error::runtime_error;
};

class VirtualPump : public Pump {
  public:
    double NowMs() const override { return nowMs_; }
    WallTime LocalTime() const override { return {2026, 3, 4, 5, 6, 7, 89, -210}; }
    [[noreturn]] void EndProcess(int status) override { throw ProcessEnded{status}; }

    // "After 300 ms": runs `event` when the clock reaches that time.
    void After(double ms, std::function<void()> event);
    // Lets the clock go on by `ms`, with all that is due in between.
    void Pass(double ms) {
        WaitUntil(
            NowMs() + ms, [] { return false; }, "the test lets time pass");
    }
    // Milliseconds that `action` takes on this clock.
    double Took(const std::function<void()>& action) {
        const double startMs = NowMs();
        action();
        return NowMs() - startMs;
    }
    // Somebody who is asked for the time of his next event, infinity for none, and told to run it.
    struct Source {
        std::function<double()> NextDueMs;
        std::function<void(double nowMs)> Run;
    };
    void AddSource(Source source) { sources_.push_back(std::move(source)); }

  protected:
    void RunEvents(double deadlineMs) override;

  private:
    double NextDue() const;
    void RunDue();

    double nowMs_ = 1000;
    std::multimap<double, std::function<void()>> events_;
    std::vector<Source> sources_;
};

}  // namespace counter::test
