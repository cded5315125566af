// What counterctl needs of the world: streams, files and, for the commands that talk, a machine with ports.
#pragma once

#include <cstdlib>
#include <functional>
#include <iostream>
#include <memory>
#include <string>

#include "platform/child_processes.h"
#include "platform/files.h"
#include "platform/pump.h"
#include "platform/serial_port.h"
#include "platform/sockets.h"
#include "platform/status.h"

namespace counter {

// Where a file is named: standard input or standard output instead.
inline constexpr const char* kStandardStream = "-";

// Made only when a command needs it: showing a file must not cost the bring-up of an event loop.
class Machine {
  public:
    virtual ~Machine() = default;
    virtual counter::Pump& Pump() = 0;
    virtual SerialPort& Port() = 0;
    // A port that means this device, or line on the network, under every number; the same at each call.
    virtual SerialPort& PortOn(const std::string&) { return Port(); }
    virtual const PortCatalog& Catalog() = 0;
    virtual counter::Sockets Sockets() { return none_.Both(); }
    virtual ChildProcesses& Children() { return noChildren_; }

  private:
    NoSockets none_;
    NoChildProcesses noChildren_;
};

struct CommandCall;

// The commands on stores of readings. They are not part of this room, since SQLite and a broker's client cost
// a program its start: whoever makes the world says what runs them.
struct RecordingCommands {
    std::function<int(const CommandCall&)> Record, Readings;
};

// What makes the PDF of a sheet: letters and paper cost a program its start, too. One of both is there.
struct SheetMaking {
    std::function<std::string(const std::string& title, const std::string& html)> Pdf;
    std::function<int(const CommandCall&)> Become;  // the program that has it takes the call over
};

struct CliWorld {
    std::ostream& Out;
    std::ostream& Err;
    bool ErrIsTerminal;
    Files& Store;
    std::function<std::string()> DefaultFolder;
    std::function<std::unique_ptr<Machine>(const std::string& programFolder)> MakeMachine;
    std::istream& In = std::cin;
    // Ends the process with what was written so far and does not return; the one of tests unwinds.
    std::function<void(int status)> Exit = std::_Exit;
    bool InIsTerminal = false;
    // Colours and bold print on either stream.
    bool OutColors = false;
    bool ErrColors = false;
    // Why Out takes no more; may be empty, and answer Ok where it is not known.
    std::function<Status()> WhyOutFailed = {};
    RecordingCommands Recording = {};
    SheetMaking Sheets = {};
    // "user@host", for reports; may be empty.
    std::function<std::string()> User = {};

    // The same world with other files.
    CliWorld With(Files& files) const {
        return {Out,          Err,       ErrIsTerminal, files,        DefaultFolder, MakeMachine, In,  Exit,
                InIsTerminal, OutColors, ErrColors,     WhyOutFailed, Recording,     Sheets,      User};
    }
    // The same world without people who look on: what is said on either stream comes into `said`.
    CliWorld Quiet(std::ostream& said) const {
        return {said,  said,  false, Store, DefaultFolder, MakeMachine, In,  Exit,
                false, false, false, {},    Recording,     Sheets,      User};
    }
};

// Exit statuses of counterctl.
inline constexpr int kDone = 0;
inline constexpr int kUsage = 1;       // nothing was done
inline constexpr int kFileOrPort = 2;  // a file, folder or port could not be opened, read or written
inline constexpr int kLinkFailed = 3;
inline constexpr int kDifferent = 4;
inline constexpr int kInterrupted = 130;

}  // namespace counter
