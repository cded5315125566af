// GuiPump: the virtual clock with the real event loop in it. Events of the widgets run at once; only when
// none is left does the clock jump to the next thing due.
#pragma once

#include <QCoreApplication>

#include "support/virtual_pump.h"

namespace counter::test {

class GuiPump : public VirtualPump {
  public:
    // Runs the events of the widgets, and whatever they cause at the present time.
    static void Settle() {
        for (int turn = 0; turn < 3; ++turn) {
            QCoreApplication::sendPostedEvents();
            QCoreApplication::processEvents(QEventLoop::AllEvents);
        }
    }
    // Time of day goes on with the clock, from just after five o'clock.
    WallTime LocalTime() const override {
        WallTime now = VirtualPump::LocalTime();
        const auto ms = static_cast<long long>(NowMs());
        now.Millisecond = static_cast<int>(ms % 1000);
        now.Second = static_cast<int>(ms / 1000 % 60);
        now.Minute = static_cast<int>(ms / 60000 % 60);
        now.Hour += static_cast<int>(ms / 3600000 % 18);
        return now;
    }

  protected:
    void RunEvents(double deadlineMs) override {
        Settle();
        VirtualPump::RunEvents(deadlineMs);
        Settle();
    }
};

// Status of the process that `action` ends; -1 where it goes on.
inline int ExitOf(const std::function<void()>& action) {
    try {
        action();
    } catch (const ProcessEnded& ended) {
        return ended.Status;
    }
    return -1;
}

}  // namespace counter::test
