// One case of the fault campaign: a command line of counterctl against a fresh simulated meter on the virtual
// clock, with faults, and what is left after it.
#pragma once

#include <map>
#include <string>
#include <vector>

#include "cli/run_line.h"
#include "sim/memory.h"
#include "support/bench_meter.h"
#include "support/node_net.h"

namespace counter::test {

using Contents = std::map<std::string, std::string>;

// How the tool reaches the meter. Key: the letter by which tables name it.
struct Road {
    char Key;
    const char* Name;
    int Protocol;  // 0 Custom ASCII, 1 Modbus RTU, 2 Modbus ASCII
    bool Node = false;
    bool Echoes = false;  // an adapter gives back whatever is sent, and the tool knows it
};

struct Frame {
    std::string Name;    // its beginning
    int ReplyBytes = 0;  // of the meter, or of the node in its name; 0 where the tool awaits none
};

// What one command left.
struct CaseResult {
    int Status = 0;
    std::string Out, Err;
    double Ms = 0;
    std::size_t FramesSent = 0;
    Contents Files;
    std::string Memory;      // of the meter: 256 words, four digits each, from the highest down
    bool Streaming = false;  // the meter still transmits some seconds later
    int NextGet = 0;         // status of a get some seconds later, with the line whole again
};

// A command that runs for an hour hangs.
struct Hang {};
inline constexpr double kHangMs = 3600e3;
inline constexpr int kHangStatus = 999;

inline constexpr double kRestMs = 10000;  // longer than any reply is late
inline constexpr const char* kNodeToken = "5A 93 D1";

inline sim::MeterOptions OptionsOf(const Road& road, std::vector<sim::Fault> faults) {
    sim::MeterOptions options;
    options.Protocol = static_cast<sim::LineProtocol>(road.Protocol);
    options.Signal.Kind = sim::SignalKind::Constant;
    options.FrequencyHz = 1000;
    options.TimebasePpm = 30;
    options.Faults = std::move(faults);
    if (road.Echoes) options.Faults.push_back({"*", 0, sim::FaultKind::Echo});
    return options;
}

inline std::string SettingsFor(const Road& road) {
    std::vector<std::string> keys = {"SerialProtocol=" + std::to_string(road.Protocol)};
    if (road.Echoes) keys.push_back("CommsEnabled=2");
    if (road.Node)
        keys.insert(keys.end(),
                    {"NodeAddress=" + std::string(kNodeAddress), "NodeIp=192.168.0.5", "TcpPort=10001"});
    return SettingsOf(keys);
}

struct CaseBench : CliBench {
    struct NetMachine : BorrowedMachine {
        explicit NetMachine(CaseBench& bench) : BorrowedMachine(bench.Clock, bench.Line), Bench(bench) {}
        counter::Sockets Sockets() override { return Bench.Net.Both(); }
        CaseBench& Bench;
    };
    CaseBench(const Road& road, const Contents& files, const sim::MeterOptions& options)
        : On(road), Line(Clock, road.Node ? sim::MeterOptions{} : options), Net(Clock, options) {
        Store.Contents = files;
        Store.Contents["home/Settings.SSS"] = SettingsFor(road);
        Make = [this] { return std::make_unique<NetMachine>(*this); };
    }
    sim::Meter& Meter() { return On.Node ? Net.TheNode().Behind() : Line.Meter(); }

    const Road& On;
    VirtualPump Clock;
    MeterLine Line;
    NodeNet Net;
};

// Without the head; as much as tells frames apart.
inline std::string NameOf(const Road& road, const std::string& command) {
    if (road.Protocol != 0) return command.substr(0, 6);
    return command.starts_with("*1") ? command.substr(2, 4) : command.substr(0, 5);
}

// A file of a setup that differs from the meter's in every frame of a Put; with another address than 1 in the
// address too.
inline std::string OtherSetup(const Road& road, int address) {
    sim::MeterOptions options = OptionsOf(road, {});
    options.Patches = {{57, "3039"}, {97, "0123"}, {251, "4567"}, {145, "0089"}, {165, "02"}, {229, "01"}};
    CaseBench bench(road, {}, options);
    bench.Run({"get", "/other.CT2"});
    sim::MeterOptions moved;
    moved.Image = bench.Store.Contents["/other.CT2"].substr(0, sim::kImageDigits);
    moved.Address = moved.ModbusAddress = address;
    return sim::StartImage(moved) + "\r\n";
}

// Names and replies of all frames that a command sends when nothing goes wrong. A trace has a line for each
// frame, and after it what came: eight characters of time, a blank, ">" or "<", the bytes in hexadecimal
// after a blank each, two blanks, the text.
inline std::vector<Frame> FramesOf(const Road& road, const Words& line, const Contents& files) {
    CaseBench bench(road, files, OptionsOf(road, {}));
    Words traced = {"--trace"};
    traced.insert(traced.end(), line.begin(), line.end());
    bench.Run(traced);
    std::vector<Frame> frames;
    std::istringstream trace(bench.Err);
    for (std::string text; std::getline(trace, text);) {
        if (text.size() < 12 || text.find(kNodeToken) != std::string::npos) continue;
        const int bytes = static_cast<int>(text.find("  ", 10) - 10) / 3;
        if (text[9] == '>') frames.push_back({"", road.Echoes ? -bytes : 0});
        if (text[9] == '<' && !frames.empty()) frames.back().ReplyBytes += bytes;
    }
    const std::vector<std::string>& commands = bench.Meter().Commands();
    frames.resize(commands.size());
    for (std::size_t i = 0; i < frames.size(); ++i) frames[i].Name = NameOf(road, commands[i]);
    return frames;
}

inline CaseResult RunCase(const Road& road, const Words& line, const Contents& files,
                          const std::vector<sim::Fault>& faults) {
    CaseBench bench(road, files, OptionsOf(road, faults));
    CaseResult result;
    bench.Clock.After(kHangMs, [] { throw Hang{}; });
    const double startMs = bench.Clock.NowMs();
    try {
        result.Status = bench.Run(line);
    } catch (const Hang&) {
        result.Status = kHangStatus;
    }
    result.Ms = bench.Clock.NowMs() - startMs;
    result.Out = bench.Out;
    result.Err = bench.Err;
    result.FramesSent = road.Node ? bench.Net.Sent.size() : bench.Line.Sent().size();
    result.Files = bench.Store.Contents;
    bench.Clock.Pass(kRestMs);
    result.Memory = bench.Meter().Words().Block(0xFF, 256);
    result.Streaming = bench.Meter().NextDueMs().has_value();
    bench.Meter().SetFaults(OptionsOf(road, {}).Faults);
    result.NextGet = bench.Run({"get", "/next.CT2"});
    return result;
}

}  // namespace counter::test
