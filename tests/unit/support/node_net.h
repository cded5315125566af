// NodeNet: the tool's sockets with the simulated node at the other end of the network, on the virtual clock.
#pragma once

#include <string>
#include <utility>
#include <vector>

#include "session/session.h"
#include "shell/start.h"
#include "sim/node.h"
#include "support/bench_meter.h"
#include "support/memory_files.h"
#include "support/meter_kinds.h"
#include "support/meter_line.h"
#include "support/virtual_pump.h"

namespace counter::test {

inline constexpr const char* kNodeAddress = "0080A3010203";

class NodeNet {
  public:
    NodeNet(VirtualPump& pump, const sim::MeterOptions& options) : pump_(pump), node_(kNodeAddress, options) {
        pump_.AddSource({[this] { return node_.NextDueMs().value_or(Pump::kForever); },
                         [this](double nowMs) { Run(nowMs); }});
    }

    Sockets Both() { return {udp_, tcp_}; }
    sim::Node& TheNode() { return node_; }

    // What the tool has sent over the connection, and the datagrams as "IP:PORT" with their bytes.
    std::vector<std::string> Sent;
    std::vector<std::pair<std::string, std::string>> Datagrams;
    int Refused = 0;              // calls that found nobody listening
    Status NextBind, NextListen;  // how the next taking of a port ends

    // Bytes that reach the tool though the node's meter did not send them.
    void Arrive(std::string_view bytes) { tcp_.Tell(bytes); }
    void Break(SocketState state = SocketState::Closing) {
        tcp_.Now = state;
        node_.Disconnected();
    }
    // Somebody who is no node calls the tool's port.
    void StrangerCalls() {
        tcp_.Now = SocketState::Connected;
        CallerIp = "192.168.0.66";
    }
    // The connection stays up, and nothing that is sent arrives.
    void PullCable() { pulled_ = true; }
    std::string CallerIp = "192.168.0.5";

  private:
    struct Udp : UdpSocket {
        explicit Udp(NodeNet& net) : Net(net) {}
        Status Bind(int localPort) override {
            Port = localPort;
            return std::exchange(Net.NextBind, {});
        }
        void Send(const std::string& host, int port, std::string_view bytes) override {
            Net.Datagrams.emplace_back(host + ":" + std::to_string(port), bytes);
            Net.node_.Datagram(bytes, "192.168.0.1", Net.pump_.NowMs());
        }
        void Close() override { Port = 0; }
        NodeNet& Net;
        int Port = 0;
    };
    struct Tcp : TcpSocket {
        explicit Tcp(NodeNet& net) : Net(net) {}
        Status Listen(int localPort) override {
            Port = localPort;
            Waiting = 0;
            Status status = std::exchange(Net.NextListen, {});
            Now = status.Ok() ? SocketState::Listening : SocketState::Closed;
            return status;
        }
        SocketState State() const override { return Now; }
        void Send(std::string_view bytes) override {
            if (Now != SocketState::Connected) return;
            Net.Sent.emplace_back(bytes);
            if (Net.pulled_)
                Waiting += bytes.size();
            else
                Net.node_.Receive(bytes, Net.pump_.NowMs());
        }
        // The node hears of it.
        void Close() override {
            if (std::exchange(Now, SocketState::Closed) == SocketState::Connected) Net.node_.Disconnected();
        }
        std::size_t Unacknowledged() const override { return Waiting; }
        std::string Caller() const override { return Now == SocketState::Connected ? Net.CallerIp : ""; }
        void Tell(std::string_view bytes) { TellArrived(bytes); }
        NodeNet& Net;
        int Port = 0;
        std::size_t Waiting = 0;
        SocketState Now = SocketState::Closed;
    };

    void Run(double nowMs) {
        for (const sim::NodeSegment& segment : node_.TakeDue(nowMs)) {
            if (!segment.Bytes.empty()) tcp_.Tell(segment.Bytes);
            if (segment.Close) Break();
        }
        for (const sim::NodeCall& call : node_.TakeCalls(nowMs)) TakeCall(call);
    }
    void TakeCall(const sim::NodeCall& call) {
        if (tcp_.Now != SocketState::Listening || call.Port != tcp_.Port) {
            ++Refused;
            return;
        }
        tcp_.Now = SocketState::Connected;
        node_.Connected();
    }

    VirtualPump& pump_;
    bool pulled_ = false;
    sim::Node node_;
    Udp udp_{*this};
    Tcp tcp_{*this};
};

// A session whose meter is reached through the node. The serial line is there and must not be touched.
template <class PumpType>
struct NodeBenchOf {
    // Settings as KEY=VALUE, faults as counter-sim takes them.
    explicit NodeBenchOf(std::vector<std::string> settings = {}, const std::vector<std::string>& faults = {},
                         const sim::MeterOptions& options = {})
        : Net(Pump, WithFaults(options, faults)) {
        settings.insert(settings.begin(),
                        {"NodeAddress=0080A3010203", "NodeIp=192.168.0.5", "TcpPort=10001"});
        Store.Contents["home/Settings.SSS"] = SettingsOf(settings);
    }
    // True once the node has called back.
    bool LogIn() {
        Start(Program);
        return LogIntoNode(Program).Ok() && Program.Node.Connected();
    }
    LinkState& State() { return Program.LinkState; }
    sim::Meter& Meter() { return Net.TheNode().Behind(); }

    PumpType Pump;
    MemoryFiles Store;
    RecordedDialogs Boxes;
    MeterLine Line{Pump, {}};
    NodeNet Net;
    Session Program{Pump, Line, Boxes, {Store, "home"}, Net.Both()};
};

using NodeBench = NodeBenchOf<VirtualPump>;

}  // namespace counter::test
