#include "offline/no_machine.h"

#include <cstdlib>

namespace counter {

namespace {

constexpr int kNothingArrives = 3;  // exit status

}  // namespace

void JumpingPump::RunEvents(double deadlineMs) {
    if (OnTurn) OnTurn();
    // Nothing can arrive, so a wait without end would never end.
    if (deadlineMs == kForever) EndProcess(kNothingArrives);
    nowMs_ = deadlineMs;
}

void JumpingPump::EndProcess(int status) {
    if (OnEnd) OnEnd();
    std::_Exit(status);
}

}  // namespace counter
