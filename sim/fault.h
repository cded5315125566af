// Faults: what goes wrong on the line, command by command, on purpose.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace sim {

// What each does, and what its numbers are, says the table in fault.cpp.
enum class FaultKind {
    NoReply,
    Cut,
    Extra,
    Garbage,
    BadCheck,
    Exception,
    Late,
    Pause,
    Paced,
    Echo,
    BadEcho,
    Gone,
    Byte,
    Alias,
    WrongId,
    Pieces,
    Close,
    Status,
    Twice,
};

struct Fault {
    std::string Command;  // beginning of the commands that it strikes, or "*" for every one
    int Time = 0;         // strikes only the Time-th such command; 0 each
    FaultKind Kind = FaultKind::NoReply;
    int Value = 0;
    int Value2 = 0;

    bool operator==(const Fault&) const = default;
};

// All that strikes one command.
struct Strike {
    bool NoReply = false, Extra = false, Garbage = false, BadCheck = false;
    bool Paced = false, Echo = false, BadEcho = false;
    std::optional<int> Cut, Exception, Gone, ByteValue;
    int ByteAt = 0;
    bool WrongId = false, Status = false, Twice = false;
    std::optional<int> Close, PiecesMs;
    int PiecesAt = 0;
    double LateMs = 0;
    int PauseAt = 0;
    double PauseMs = 0;
};

// "XR35:noreply", "*:paced", "030011#2:exception=2", "G130:pause=1,500". Returns an empty text, or what is
// wrong and what is legal; `out` is then unchanged.
std::string ParseFault(std::string_view text, Fault& out);

// A line for each kind, "cut=N  the reply ends after N bytes", in columns.
std::string FaultHelp();

class FaultList {
  public:
    FaultList() = default;
    explicit FaultList(std::vector<Fault> faults);

    // What strikes this command; counts it. Commands are compared by their beginning: Custom ASCII without
    // the head ("XR35Z"), Modbus as hexadecimal digits from the function on ("0300110014").
    Strike Next(std::string_view command);
    // Whether this command, which is for another meter at `address`, is taken as the meter's own; counts it.
    bool Takes(int address, std::string_view command);

  private:
    struct Counted {
        Fault What;
        int Seen = 0;
    };
    // Whether it strikes; counts a command that it is for.
    static bool Struck(Counted& fault, std::string_view command);

    std::vector<Counted> faults_;
};

}  // namespace sim
