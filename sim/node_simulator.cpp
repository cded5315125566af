#include "sim/node_simulator.h"

#include <poll.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>

#include "sim/run_loop.h"
#include "sim/sim_files.h"

namespace sim {

NodeSimulator::NodeSimulator(const SimulatorOptions& options)
    : options_(options), node_(options.NodeAddress, options.Meter) {}

int NodeSimulator::Run() {
    const int signals = SignalHandle();
    if (const std::string reason = sockets_.Open(options_.NodeIp); !reason.empty())
        return Fail("UDP port " + std::to_string(kNodePort) + " at " + options_.NodeIp + ": " + reason);
    std::printf("%s %s\n", options_.NodeIp.c_str(), options_.NodeAddress.c_str());
    std::fflush(stdout);
    while (Step(signals)) {
    }
    close(signals);
    const auto failure = Save();
    return failure.empty() ? 0 : Fail(failure);
}

// Sleeps until something arrives, a signal or the node's next moment; false when the program is to end.
bool NodeSimulator::Step(int signals) {
    const short connection = sockets_.Calling() ? POLLOUT : POLLIN;
    pollfd handles[] = {{signals, POLLIN, 0},
                        {sockets_.DatagramHandle(), POLLIN, 0},
                        {sockets_.ConnectionHandle(), connection, 0}};
    const timespec rest = RestUntil(node_.NextDueMs());
    if (ppoll(handles, std::size(handles), &rest, nullptr) < 0) return errno == EINTR;
    if (handles[0].revents && !HandleSignal(TakeSignal(signals, !options_.ImageFile.empty()))) return false;
    if (handles[2].revents) Listen();
    std::string host;
    while (const auto datagram = sockets_.ReadDatagram(host)) node_.Datagram(*datagram, host, NowMs());
    Exchange();
    TellAll();
    return true;
}

bool NodeSimulator::HandleSignal(Asked asked) {
    std::string failure;
    if (asked == Asked::Save) failure = Save();
    if (asked == Asked::Reload) {
        failure = LoadImageFile(options_);
        if (failure.empty()) node_.Behind().LoadImage(StartImage(options_.Meter));
    }
    if (!failure.empty()) Fail(failure);
    return asked != Asked::End;
}

void NodeSimulator::Listen() {
    if (sockets_.Calling()) {
        if (sockets_.FinishCall()) node_.Connected();
        return;
    }
    const std::string bytes = sockets_.Read();
    node_.Receive(bytes, NowMs());
    if (!sockets_.IsConnected()) node_.Disconnected();
}

void NodeSimulator::Exchange() {
    for (const NodeSegment& segment : node_.TakeDue(NowMs())) {
        sockets_.Write(segment.Bytes);
        if (segment.Close) sockets_.Hangup();
    }
    for (const NodeCall& call : node_.TakeCalls(NowMs())) sockets_.Call(call.Host, call.Port);
}

void NodeSimulator::TellAll() {
    if (options_.Verbose) {
        for (const auto& text : node_.Told())
            std::fprintf(stderr, "%10.1f node: %s\n", NowMs(), text.c_str());
        for (const auto& text : node_.Behind().Commands())
            std::fprintf(stderr, "%10.1f %s\n", NowMs(), text.c_str());
    }
    node_.ClearTold();
    node_.Behind().ClearCommands();
}

std::string NodeSimulator::Save() const {
    return options_.SaveFile.empty() ? "" : WriteImageFile(options_.SaveFile, node_.Behind().ImageText());
}

}  // namespace sim
