// A command line run as main() runs it, with the end of the process caught, and what commands run on.
#pragma once

#include <functional>
#include <memory>
#include <sstream>
#include <string>
#include <vector>

#include "cli/cli.h"
#include "support/virtual_pump.h"

namespace counter::test {

using Words = std::vector<std::string>;

// The line of a meter in Custom ASCII with address 1, at 9600 baud.
inline constexpr const char* kAsciiSettings = "3501000100100831010000\r\n2711000000000000F6CB00000000\r\n";

// Output that its reader leaves after some characters.
struct LeakyOutput : std::stringbuf {
    std::streamsize Room = 1'000'000'000;
    std::streamsize xsputn(const char* text, std::streamsize size) override {
        return (Room -= size) < 0 ? 0 : std::stringbuf::xsputn(text, size);
    }
};

// A machine without ports, whose clock and line outlive the command.
struct BorrowedMachine : Machine, PortCatalog {
    BorrowedMachine(counter::Pump& clock, SerialPort& line) : Clock(clock), Line(line) {}
    counter::Pump& Pump() override { return Clock; }
    SerialPort& Port() override { return Line; }
    const PortCatalog& Catalog() override { return *this; }
    std::vector<PortDescription> Ports() const override { return {}; }
    std::string DeviceOf(int) const override { return "port"; }
    counter::Pump& Clock;
    SerialPort& Line;
};

inline int RunLine(const CliWorld& world, const std::vector<std::string>& words) {
    std::vector<const char*> argv = {"counterctl"};
    for (const std::string& word : words) argv.push_back(word.c_str());
    try {
        return RunCli(world, static_cast<int>(argv.size()), argv.data());
    } catch (const ProcessEnded& ended) {
        return ended.Status;
    }
}

struct LineEnd {
    int Status = 0;
    std::string Out, Err;
};

// Run away from a terminal, in the program folder "home", on whatever machine is made.
inline LineEnd RunOn(Files& store, const std::function<std::unique_ptr<Machine>()>& machine,
                     const Words& words, const std::string& input = "") {
    std::istringstream in(input);
    std::ostringstream out, err;
    const auto make = [&](const std::string&) { return machine(); };
    const auto home = [] { return std::string("home"); };
    const auto exit = [](int status) { throw ProcessEnded{status}; };
    const int status = RunLine({out, err, false, store, home, make, in, exit}, words);
    return {status, out.str(), err.str()};
}

}  // namespace counter::test
