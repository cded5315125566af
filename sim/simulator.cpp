#include "sim/simulator.h"

#include <poll.h>
#include <sys/signalfd.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <cmath>
#include <csignal>
#include <cstdio>
#include <optional>

#include "sim/sim_files.h"

namespace sim {

namespace {

double NowMs() {
    static const auto start = std::chrono::steady_clock::now();
    return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - start).count();
}

timespec RestUntil(double atMs) {
    const double restMs = std::max(0.0, atMs - NowMs());
    timespec rest{};
    rest.tv_sec = static_cast<time_t>(restMs / 1000);
    rest.tv_nsec = static_cast<long>(std::fmod(restMs, 1000) * 1e6);
    return rest;
}

// The signals come as input, so that they interrupt nothing.
int SignalHandle() {
    sigset_t mask;
    sigemptyset(&mask);
    for (int number : {SIGHUP, SIGUSR1, SIGTERM, SIGINT}) sigaddset(&mask, number);
    sigprocmask(SIG_BLOCK, &mask, nullptr);
    return signalfd(-1, &mask, SFD_NONBLOCK | SFD_CLOEXEC);
}

int Fail(const std::string& text) {
    std::fprintf(stderr, "counter-sim: %s\n", text.c_str());
    return 2;
}

}  // namespace

std::string LoadImageFile(SimulatorOptions& options) {
    return options.ImageFile.empty() ? "" : ReadImageFile(options.ImageFile, options.Meter.Image);
}

Simulator::~Simulator() {
    if (!options_.Link.empty()) RemoveLink(options_.Link, line_.Path());
}

int Simulator::Run() {
    const int signals = SignalHandle();
    std::signal(SIGPIPE, SIG_IGN);
    if (const auto failure = Connect(); !failure.empty()) return Fail(failure);
    while (Step(signals)) {
        if (!meter_.LineGone()) continue;
        line_.Drain();
        meter_.LineBack();
        if (const auto failure = Connect(); !failure.empty()) return Fail(failure);
    }
    close(signals);
    const auto failure = Save();
    return failure.empty() ? 0 : Fail(failure);
}

std::string Simulator::Connect() {
    if (const auto reason = line_.Open(); !reason.empty()) return "pseudo terminal: " + reason;
    if (!options_.Link.empty()) {
        if (auto failure = PointLink(options_.Link, line_.Path()); !failure.empty()) return failure;
    }
    std::printf("%s\n", line_.Path().c_str());
    std::fflush(stdout);
    return "";
}

// Sleeps until a byte, a signal or the meter's next moment; false when the program is to end.
bool Simulator::Step(int signals) {
    pollfd handles[] = {
        {line_.DataHandle(), POLLIN, 0}, {signals, POLLIN, 0}, {line_.CloseHandle(), POLLIN, 0}};
    const auto next = meter_.NextDueMs();
    const timespec rest = RestUntil(next.value_or(0));
    if (ppoll(handles, std::size(handles), next ? &rest : nullptr, nullptr) < 0) return errno == EINTR;
    if (handles[1].revents && !HandleSignal(signals)) return false;
    if (handles[2].revents) line_.AfterClose();
    Exchange();
    return true;
}

bool Simulator::HandleSignal(int signals) {
    signalfd_siginfo info{};
    if (read(signals, &info, sizeof info) != sizeof info) return true;
    if (info.ssi_signo == SIGTERM || info.ssi_signo == SIGINT) return false;
    std::string failure;
    if (info.ssi_signo == SIGUSR1) failure = Save();
    if (info.ssi_signo == SIGHUP) {
        failure = LoadImageFile(options_);
        if (failure.empty()) meter_.LoadImage(StartImage(options_.Meter));
    }
    if (!failure.empty()) Fail(failure);
    return true;
}

void Simulator::Exchange() {
    const std::string bytes = line_.Read();
    const int baud = line_.Baud(), meterBaud = meter_.ActiveLine().Baud;
    if (options_.AnyBaud || baud == meterBaud)
        meter_.Receive(bytes, NowMs());
    else if (!bytes.empty())
        Tell(std::to_string(bytes.size()) + " bytes at " + std::to_string(baud) +
             " baud, the meter listens at " + std::to_string(meterBaud));
    line_.Write(meter_.TakeDue(NowMs()));
    for (const auto& command : meter_.Commands()) Tell(command);
    meter_.ClearCommands();
}

void Simulator::Tell(const std::string& text) const {
    if (options_.Verbose) std::fprintf(stderr, "%10.1f %s\n", NowMs(), text.c_str());
}

std::string Simulator::Save() const {
    return options_.SaveFile.empty() ? "" : WriteImageFile(options_.SaveFile, meter_.ImageText());
}

}  // namespace sim
