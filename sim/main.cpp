// counter-sim: a simulated meter on a pseudo terminal, many on one, or one at an Ethernet node. The first
// line on standard output is the device to open, or the node's IP address and its own address.
//
// Exit status 1 is wrong usage, 2 a file, pseudo terminal or UDP port that failed, 4 --face without a
// display.
#include <CLI/CLI.hpp>
#include <cstdio>
#include <string>
#include <vector>

#include "sim/bus_file.h"
#include "sim/hex.h"
#include "sim/meter_cli.h"
#include "sim/node_simulator.h"
#include "sim/simulator.h"

namespace {

using sim::SimulatorOptions;

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
    app.add_option(
        "--save", options.SaveFile,
        "write the image here at SIGUSR1 and at the end; with --bus the folder of NAME.CT2 of each");
    app.add_option("--link", options.Link, "make this a symbolic link to the device");
    app.add_flag("--any-baud", options.AnyBaud, "understand bytes at any speed");
    auto* face = app.add_flag("--face", options.Face, "show the meter's face in a window");
    app.add_flag("--verbose", options.Verbose, "tell every command on standard error");
    app.add_option("--bus", options.BusFile,
                   "many meters on one line: a CSV table, columns named as options, and name")
        ->excludes(face)
        ->excludes("--node");
}

// The meters on the line; empty where some fault of theirs was told.
std::vector<sim::BusMeter> MetersOf(const SimulatorOptions& options) {
    const sim::BusMeter told{"", options.Meter, options.ImageFile};
    if (options.BusFile.empty()) return {told};
    std::vector<sim::BusMeter> meters;
    const auto wrong = sim::ReadBusFile(options.BusFile, told, meters);
    for (const std::string& line : wrong) std::fprintf(stderr, "counter-sim: %s\n", line.c_str());
    return wrong.empty() ? meters : std::vector<sim::BusMeter>{};
}

}  // namespace

int main(int argc, char** argv) {
    SimulatorOptions options;
    CLI::App app{
        "A simulated meter on a pseudo terminal, whose path is printed first, or behind an Ethernet node."};
    AddNode(app, options);
    AddProgram(app, options);
    sim::AddMeterOptions(app, options.Meter);
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
    if (options.Node) return sim::NodeSimulator(options).Run();
    const auto meters = MetersOf(options);
    return meters.empty() ? 2 : sim::Simulator(options, meters).Run();
}
