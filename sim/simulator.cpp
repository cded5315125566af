#include "sim/simulator.h"

#include <poll.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <filesystem>
#include <optional>

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
        bus_.At(0).OnFaceChanged([this] { face_.Show(bus_.At(0).Face(NowMs())); });
    }
    const int signals = SignalHandle();
    if (const auto failure = Connect(); !failure.empty()) return Fail(failure);
    while (Step(signals)) {
        if (!bus_.LineGone()) continue;
        line_.Drain();
        bus_.LineBack();
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
    const timespec rest = RestUntil(bus_.NextDueMs());
    if (ppoll(handles, std::size(handles), &rest, nullptr) < 0) return errno == EINTR;
    if (handles[1].revents && !HandleSignal(TakeSignal(signals, HasImages()))) return false;
    if (handles[2].revents) {
        line_.AfterClose();
        bus_.FarEndClosed();
    }
    Exchange();
    return true;
}

bool Simulator::HandleSignal(Asked asked) {
    std::string failure;
    if (asked == Asked::Save) failure = Save();
    if (asked == Asked::Reload) failure = Reload();
    if (!failure.empty()) Fail(failure);
    return asked != Asked::End;
}

bool Simulator::HasImages() const {
    return std::any_of(meters_.begin(), meters_.end(),
                       [](const BusMeter& meter) { return !meter.ImageFile.empty(); });
}

// The others are read though one can't be; the last failure is told.
std::string Simulator::Reload() {
    std::string failure;
    for (std::size_t i = 0; i < meters_.size(); ++i) {
        BusMeter& meter = meters_[i];
        if (meter.ImageFile.empty()) continue;
        const auto wrong = ReadImageFile(meter.ImageFile, meter.Options.Image);
        if (wrong.empty())
            bus_.At(i).LoadImage(StartImage(meter.Options));
        else
            failure = wrong;
    }
    return failure;
}

void Simulator::Exchange() {
    const std::string bytes = line_.Read();
    const int baud = line_.Baud();
    const auto speed = options_.AnyBaud ? std::nullopt : std::optional(baud);
    const bool heard = bus_.Receive(bytes, speed, NowMs());
    if (!heard && !bytes.empty())
        Tell(std::to_string(bytes.size()) + " bytes at " + std::to_string(baud) +
             " baud, the meter listens at " + std::to_string(bus_.At(0).ActiveLine().Baud));
    line_.Write(bus_.TakeDue(NowMs()));
    for (const auto& command : bus_.TakeCommands()) Tell(command);
}

void Simulator::Tell(const std::string& text) const {
    if (options_.Verbose) std::fprintf(stderr, "%10.1f %s\n", NowMs(), text.c_str());
}

std::string Simulator::Save() const {
    if (options_.SaveFile.empty()) return "";
    if (options_.BusFile.empty()) return WriteImageFile(options_.SaveFile, bus_.At(0).ImageText());
    std::error_code ignored;  // what can't be made can't be written into
    std::filesystem::create_directories(options_.SaveFile, ignored);
    std::string failure;
    for (std::size_t i = 0; i < meters_.size(); ++i) {
        const std::string path = options_.SaveFile + "/" + meters_[i].Name + ".CT2";
        if (auto wrong = WriteImageFile(path, bus_.At(i).ImageText()); !wrong.empty()) failure = wrong;
    }
    return failure;
}

}  // namespace sim
