// counter-sim: a simulated meter on a pseudo terminal, or at an Ethernet node. The first line on standard
// output is the device to open, or the node's IP address and its own address.
//
// Exit status 1 is wrong usage, 2 a file, pseudo terminal or UDP port that failed, 3 --face without a
// display.
#include <CLI/CLI.hpp>
#include <cstdio>
#include <functional>
#include <map>
#include <string>
#include <vector>

#include "sim/hex.h"
#include "sim/node_simulator.h"
#include "sim/simulator.h"

namespace {

using sim::SimulatorOptions;

// An option that may be given several times; `take` returns an empty text or what is wrong.
void AddRepeated(CLI::App& app, const std::string& name, const std::string& help,
                 const std::function<std::string(const std::string&)>& take) {
    const auto takeAll = [=](const std::vector<std::string>& texts) {
        for (const auto& text : texts)
            if (const auto wrong = take(text); !wrong.empty()) throw CLI::ValidationError(name, wrong);
    };
    app.add_option_function<std::vector<std::string>>(name, takeAll, help)->allow_extra_args(false);
}

void AddMeter(CLI::App& app, sim::MeterOptions& meter) {
    const auto byte = CLI::Range(0, 255);
    app.add_option("--version", meter.Version, "firmware version")->check(byte);
    app.add_option("--type", meter.Type, "meter type")->check(byte);
    app.add_option("--board", meter.InputBoard, "input board: 0 none, 1 dual, 2 V-F, 3 quadrature")
        ->check(CLI::Range(0, 3));
    app.add_option("--comm", meter.CommBoard, "comm board: 0 none, 1 RS232, 2 RS485")
        ->check(CLI::Range(0, 3));
    app.add_option("--relay", meter.RelayBoard, "relay board code: 1 four relays, 2 or 3 two")
        ->check(CLI::Range(0, 3));
    app.add_option("--analog", meter.AnalogBoard, "analog option 0..4")->check(CLI::Range(0, 4));
    app.add_option("--extended", meter.Extended, "Extended option: 0 or 1");
    AddRepeated(app, "--live", "ADDRESS=BYTE: a byte that a G command reads, both hexadecimal",
                [&](const std::string& text) { return sim::ParseLiveByte(text, meter.LiveBytes); });
    AddRepeated(app, "--set", "POSITION=DIGITS: digits of the image at start",
                [&](const std::string& text) { return sim::ParsePatch(text, meter.Patches.emplace_back()); });
}

void AddLine(CLI::App& app, sim::MeterOptions& meter) {
    using sim::LineProtocol;
    const std::map<std::string, LineProtocol> protocols = {{"ascii", LineProtocol::CustomAscii},
                                                           {"rtu", LineProtocol::ModbusRtu},
                                                           {"modbus-ascii", LineProtocol::ModbusAscii}};
    const std::map<std::string, sim::CrcKind> tables = {{"published", sim::CrcKind::Published},
                                                        {"c2", sim::CrcKind::C2}};
    const std::map<std::string, int> parities = {{"none", 0}, {"odd", 1}, {"even", 2}};
    const auto oneOf = [](const auto& names) { return CLI::CheckedTransformer(names).description(""); };
    app.add_option("--protocol", meter.Protocol, "ascii, rtu or modbus-ascii")->transform(oneOf(protocols));
    app.add_option_function<int>(
           "--baud", [&](int rate) { meter.BaudIndex = sim::BaudIndexOf(rate); }, "speed of the line")
        ->check(CLI::IsMember({300, 600, 1200, 2400, 4800, 9600, 19200}));
    app.add_option("--parity", meter.Parity, "none, odd or even")->transform(oneOf(parities));
    app.add_option("--address", meter.Address, "Custom ASCII address")->check(CLI::Range(0, 31));
    app.add_option("--modbus-address", meter.ModbusAddress, "Modbus address")->check(CLI::Range(0, 255));
    app.add_option("--crc", meter.Crc, "table of the Modbus RTU check: published or c2")
        ->transform(oneOf(tables));
    app.add_option("--turnaround", meter.TurnaroundMs, "ms from the end of a command to the reply")
        ->check(CLI::Range(0, 60000));
    app.add_flag("--strict-baud", meter.StrictBaud, "bytes leave one by one at the speed of the line");
    AddRepeated(app, "--fault", "COMMAND[#N]:KIND, such as XR35:noreply",
                [&](const std::string& text) { return sim::ParseFault(text, meter.Faults.emplace_back()); });
}

void AddSignal(CLI::App& app, sim::MeterOptions& meter) {
    using sim::SignalKind;
    const std::map<std::string, SignalKind> kinds = {{"constant", SignalKind::Constant},
                                                     {"ramp", SignalKind::Ramp},
                                                     {"sine", SignalKind::Sine},
                                                     {"noise", SignalKind::Noise},
                                                     {"steps", SignalKind::Steps}};
    sim::SignalOptions& signal = meter.Signal;
    app.add_option("--signal", signal.Kind, "what Item 1 follows: constant, ramp, sine, noise or steps")
        ->transform(CLI::CheckedTransformer(kinds).description(""));
    app.add_option("--value", signal.Value, "the signal's value, digits of the display without the point")
        ->check(CLI::Range(-999999.0, 999999.0));
    app.add_option("--amplitude", signal.Amplitude, "how far it moves, in the same digits")
        ->check(CLI::Range(0.0, 999999.0));
    app.add_option("--period", signal.PeriodS, "seconds until it repeats")->check(CLI::PositiveNumber);
    app.add_option("--seed", signal.Seed, "another number, another noise; the same, the same");
    AddRepeated(app, "--rate", "readings a second, 20 unless told, or max: as fast as the line takes them",
                [&](const std::string& text) { return sim::ParseRate(text, meter.RateHz); });
    app.add_option("--frequency", meter.FrequencyHz,
                   "Hz at input A: a Mode that shows its rate scales it and follows no signal")
        ->check(CLI::NonNegativeNumber);
    app.add_option("--timebase-ppm", meter.TimebasePpm,
                   "how much too high the time base reads, without it what the calibration makes good")
        ->check(CLI::Range(-32767.0, 32767.0));
}

void AddNode(CLI::App& app, SimulatorOptions& options) {
    auto* node =
        app.add_flag("--node", options.Node, "behind an Ethernet node: UDP port 63179, TCP call back");
    app.add_option("--node-ip", options.NodeIp, "where the node is, 127.0.0.1 unless told")
        ->check(CLI::ValidIPV4)
        ->needs(node);
    const auto sixBytes = [](const std::string& text) {
        const bool good = text.size() == 12 && sim::BytesOfHex(text);
        return good ? std::string() : "12 upper-case hexadecimal digits";
    };
    app.add_option("--node-address", options.NodeAddress, "12 hexadecimal digits, 0080A3010203 unless told")
        ->check(CLI::Validator(sixBytes, ""))
        ->needs(node);
}

void AddProgram(CLI::App& app, SimulatorOptions& options) {
    auto* image = app.add_option("--image", options.ImageFile, "image at start and at SIGHUP: 260 digits");
    app.add_flag("--default")
        ->description("begin with the default setup, which is what happens without --image")
        ->excludes(image);
    app.add_option("--save", options.SaveFile, "write the image here at SIGUSR1 and at the end");
    app.add_option("--link", options.Link, "make this a symbolic link to the device");
    app.add_flag("--any-baud", options.AnyBaud, "understand bytes at any speed");
    app.add_flag("--face", options.Face, "show the meter's face in a window");
    app.add_flag("--verbose", options.Verbose, "tell every command on standard error");
}

}  // namespace

int main(int argc, char** argv) {
    SimulatorOptions options;
    CLI::App app{
        "A simulated meter on a pseudo terminal, whose path is printed first, or behind an Ethernet node."};
    AddProgram(app, options);
    AddNode(app, options);
    AddMeter(app, options.Meter);
    AddLine(app, options.Meter);
    AddSignal(app, options.Meter);
    app.footer("Kinds of faults:\n" + sim::FaultHelp());
    try {
        app.parse(argc, argv);
    } catch (const CLI::ParseError& error) {
        return app.exit(error) == 0 ? 0 : 1;
    }
    if (const auto failure = sim::LoadImageFile(options); !failure.empty()) {
        std::fprintf(stderr, "counter-sim: %s\n", failure.c_str());
        return 2;
    }
    if (const auto why = sim::WhyNotAnalog(options.Meter); !why.empty()) {
        std::fprintf(stderr, "counter-sim: --analog: %s\n", why.c_str());
        return 1;
    }
    return options.Node ? sim::NodeSimulator(options).Run() : sim::Simulator(options).Run();
}
