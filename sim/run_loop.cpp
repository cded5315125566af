#include "sim/run_loop.h"

#include <sys/signalfd.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <cmath>
#include <csignal>
#include <cstdio>

namespace sim {

namespace {

constexpr double kLongestRestMs = 1000;

}  // namespace

double NowMs() {
    static const auto start = std::chrono::steady_clock::now();
    return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - start).count();
}

timespec RestUntil(std::optional<double> dueMs) {
    const double nowMs = NowMs();
    const double restMs = std::clamp(dueMs.value_or(nowMs + kLongestRestMs) - nowMs, 0.0, kLongestRestMs);
    timespec rest{};
    rest.tv_sec = static_cast<time_t>(restMs / 1000);
    rest.tv_nsec = static_cast<long>(std::fmod(restMs, 1000) * 1e6);
    return rest;
}

int SignalHandle() {
    sigset_t mask;
    sigemptyset(&mask);
    for (int number : {SIGHUP, SIGUSR1, SIGTERM, SIGINT, SIGQUIT}) sigaddset(&mask, number);
    sigprocmask(SIG_BLOCK, &mask, nullptr);
    std::signal(SIGPIPE, SIG_IGN);
    return signalfd(-1, &mask, SFD_NONBLOCK | SFD_CLOEXEC);
}

// The kernel's own hang-up is that of a terminal: nobody can ask for another image by it.
Asked TakeSignal(int handle, bool hasImage) {
    signalfd_siginfo info{};
    if (read(handle, &info, sizeof info) != sizeof info) return Asked::Nothing;
    if (info.ssi_signo == SIGUSR1) return Asked::Save;
    const bool reload = info.ssi_signo == SIGHUP && hasImage && info.ssi_code != SI_KERNEL;
    return reload ? Asked::Reload : Asked::End;
}

int Fail(const std::string& text) {
    std::fprintf(stderr, "counter-sim: %s\n", text.c_str());
    return 2;
}

}  // namespace sim
