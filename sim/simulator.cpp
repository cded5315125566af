#include "sim/simulator.h"

#include <poll.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>

#include "sim/run_loop.h"
#include "sim/sim_files.h"

namespace sim {

std::string LoadImageFile(SimulatorOptions& options) {
    return options.ImageFile.empty() ? "" : ReadImageFile(options.ImageFile, options.Meter.Image);
}

Simulator::~Simulator() {
    if (!options_.Link.empty()) RemoveLink(options_.Link, line_.Path());
}

int Simulator::Run() {
    // Before the signals are taken away from this program and from what it starts.
    if (options_.Face) {
        if (const auto failure = face_.Open(); !failure.empty()) return Fail(failure);
        if (!face_.Shown()) return kNoDisplay;
        meter_.OnFaceChanged([this] { face_.Show(meter_.Face(NowMs())); });
    }
    const int signals = SignalHandle();
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
    const timespec rest = RestUntil(meter_.NextDueMs());
    if (ppoll(handles, std::size(handles), &rest, nullptr) < 0) return errno == EINTR;
    if (handles[1].revents && !HandleSignal(TakeSignal(signals, !options_.ImageFile.empty()))) return false;
    if (handles[2].revents) {
        line_.AfterClose();
        meter_.FarEndClosed();
    }
    Exchange();
    return true;
}

bool Simulator::HandleSignal(Asked asked) {
    std::string failure;
    if (asked == Asked::Save) failure = Save();
    if (asked == Asked::Reload) {
        failure = LoadImageFile(options_);
        if (failure.empty()) meter_.LoadImage(StartImage(options_.Meter));
    }
    if (!failure.empty()) Fail(failure);
    return asked != Asked::End;
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
