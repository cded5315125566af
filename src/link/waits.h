// Waits of the link, each a line over the pump's one wait.
#pragma once

#include "link/link.h"

namespace counter {

// Waits `ms` milliseconds, 1000 more in Ethernet mode, while events run.
void LinkDelay(Link& link, double ms);
// How long that is.
double LinkDelayMs(const Link& link, double ms);
// Whether a wait is so long that a user takes it for a program that hangs, unless he is shown otherwise.
constexpr bool ExceedsABlink(double ms) {
    return ms > 300;
}

// Waits `seconds`, while events run; 0 takes 0.55 less 0.1 for each step of BaudIndex.
void Delay(Link& link, float seconds);

// Waits up to one second for input and leaves it where it is. A port error sets PortFault.
void WaitForInput(Link& link);

// Waits until all that was sent has gone out, or the line has.
void WaitForOutput(Link& link);

// False, with LinkError 27, where the serial line has gone away meanwhile. A write that nothing answers has
// no other proof that it went anywhere.
bool SerialLineHolds(Link& link);

// The same, and for the connection to the node as well, which must have taken in what was sent: see
// NodeTookAll.
bool LineHolds(Link& link);

}  // namespace counter
