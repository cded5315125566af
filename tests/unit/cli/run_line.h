// A command line run as main() runs it, with the end of the process caught, and what commands run on.
#pragma once

#include <functional>
#include <memory>
#include <sstream>
#include <string>
#include <vector>

#include "cli/cli.h"
#include "support/fixed_catalog.h"
#include "support/memory_files.h"
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

inline int RunLine(const CliWorld& world, const Words& words) {
    std::vector<const char*> argv = {"counterctl"};
    for (const std::string& word : words) argv.push_back(word.c_str());
    try {
        return RunCli(world, static_cast<int>(argv.size()), argv.data());
    } catch (const ProcessEnded& ended) {
        return ended.Status;
    }
}

// A machine whose clock and line outlive the command.
struct BorrowedMachine : Machine {
    BorrowedMachine(counter::Pump& clock, SerialPort& line) : Clock(clock), Line(line) {}
    counter::Pump& Pump() override { return Clock; }
    SerialPort& Port() override { return Line; }
    const PortCatalog& Catalog() override { return Known; }
    counter::Pump& Clock;
    SerialPort& Line;
    FixedCatalog Known;
};

// counterctl as a user finds it, in a program folder of its own.
template <class Storage>
struct CliBenchOf {
    Storage Store;
    std::string Home = "home";
    std::function<std::unique_ptr<Machine>()> Make;  // empty: the commands need none
    bool Terminal = false;                           // at both ends
    std::streamsize OutRoom = 1'000'000'000;         // characters until standard output takes no more
    RecordingCommands Recording;
    std::string Out, Err;

    int Run(const Words& words, const std::string& input = "") {
        std::istringstream in(input);
        std::ostringstream err;
        LeakyOutput written;
        written.Room = OutRoom;
        std::ostream out(&written);
        const auto machine = [this](const std::string&) { return Make(); };
        const auto home = [this] { return Home; };
        const auto exit = [](int status) { throw ProcessEnded{status}; };
        CliWorld world{out, err, Terminal, Store, home, machine, in, exit, Terminal};
        world.Recording = Recording;
        world.Sheets.Pdf = [](const std::string&, const std::string& html) { return "PDF of " + html; };
        const int status = RunLine(world, words);
        Out = written.str();
        Err = err.str();
        return status;
    }
    std::string LastErrLine() const {
        const std::string text = Err.substr(0, Err.find_last_not_of('\n') + 1);
        return text.substr(text.find_last_of('\n') + 1);
    }
};

using CliBench = CliBenchOf<MemoryFiles>;

}  // namespace counter::test
