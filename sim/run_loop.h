// What the loops of counter-sim share: clock, sleep, signals.
#pragma once

#include <time.h>

#include <optional>
#include <string>

namespace sim {

// Since the program's first call.
double NowMs();

// How long to sleep for what is due at `dueMs`: a second at most, since the meter goes on measuring while
// nobody asks, and must not have much to make up for.
timespec RestUntil(std::optional<double> dueMs);

// SIGHUP, SIGUSR1, SIGTERM and SIGINT come as input at this handle, so that they interrupt nothing.
int SignalHandle();
// The signal that has come; 0 for none.
int TakeSignal(int handle);

// Tells on standard error; returns exit status 2.
int Fail(const std::string& text);

}  // namespace sim
