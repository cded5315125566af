// QtPump: the pump over the event loop, with or without a display.
#pragma once

#include <memory>

#include "platform/pump.h"
#include "system/deadline_timer.h"

namespace counter {

class InterruptWatch;

// Needs an application object that lives longer. A wait sleeps in the event loop, so whatever the loop
// carries (ports, sockets, timers, widgets) wakes it.
class QtPump : public Pump {
  public:
    QtPump();
    ~QtPump() override;

    double NowMs() const override;
    WallTime LocalTime() const override;
    void Rest(double ms) override;
    // Flushes standard output and the other open streams; nothing is unwound.
    [[noreturn]] void EndProcess(int status) override;

    // From now on an interrupt (the signals INT, TERM, HUP and QUIT) wakes the wait under way and becomes a
    // call of OnInterrupt, and a closed output pipe is a failed write. Ends with the pump.
    void InstallInterruptHandler();
    // What it has installed; null before.
    const InterruptWatch* Interrupts() const { return interrupts_.get(); }

  protected:
    void RunEvents(double deadlineMs) override;

  private:
    DeadlineTimer timer_;
    int depth_ = 0;  // turns under way, one in another
    std::unique_ptr<InterruptWatch> interrupts_;
};

}  // namespace counter
