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

// SIGHUP, SIGUSR1, SIGTERM, SIGINT and SIGQUIT come as input at this handle, so that they interrupt nothing.
int SignalHandle();

// What a signal asks for. SIGHUP reloads where there is an image file, but where a terminal has hung up, or
// there is none, it ends the program as SIGTERM, SIGINT and SIGQUIT do.
enum class Asked { Nothing, Save, Reload, End };
Asked TakeSignal(int handle, bool hasImage);

// Exit status of --face where no window can be shown.
inline constexpr int kNoDisplay = 4;

// Tells on standard error; returns exit status 2.
int Fail(const std::string& text);

}  // namespace sim
