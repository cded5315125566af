// counter-sim: a simulated meter on a pseudo terminal. The first line on standard output is the device to
// open.
//
// Exit status 1 is wrong usage, 2 a file or pseudo terminal that failed.
#include <CLI/CLI.hpp>
#include <cstdio>
#include <functional>
#include <map>
#include <string>
#include <vector>

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
    app.add_option("--analog", meter.AnalogBoard, "analog option 0..4")->check(CLI::Range(0, 99));
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
    AddRepeated(app, "--fault", "COMMAND[#N]:KIND, such as XR35:noreply",
                [&](const std::string& text) { return sim::ParseFault(text, meter.Faults.emplace_back()); });
}

void AddProgram(CLI::App& app, SimulatorOptions& options) {
    auto* image = app.add_option("--image", options.ImageFile, "image at start and at SIGHUP: 260 digits");
    app.add_flag("--default")
        ->description("begin with the default setup, which is what happens without --image")
        ->excludes(image);
    app.add_option("--save", options.SaveFile, "write the image here at SIGUSR1 and at the end");
    app.add_option("--link", options.Link, "make this a symbolic link to the device");
    app.add_flag("--any-baud", options.AnyBaud, "understand bytes at any speed");
    app.add_flag("--verbose", options.Verbose, "tell every command on standard error");
}

}  // namespace

int main(int argc, char** argv) {
    SimulatorOptions options;
    CLI::App app{"A simulated meter on a pseudo terminal, whose path is printed first."};
    AddProgram(app, options);
    AddMeter(app, options.Meter);
    AddLine(app, options.Meter);
    try {
        app.parse(argc, argv);
    } catch (const CLI::ParseError& error) {
        return app.exit(error) == 0 ? 0 : 1;
    }
    if (const auto failure = sim::LoadImageFile(options); !failure.empty()) {
        std::fprintf(stderr, "counter-sim: %s\n", failure.c_str());
        return 2;
    }
    return sim::Simulator(options).Run();
}
