// Faults: what goes wrong on the line, command by command, on purpose.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace sim {

enum class FaultKind {
    NoReply,    // the command is carried out, nothing answers
    Cut,        // the reply ends after Value bytes
    Extra,      // one byte more at the end of the data, the check field fits it
    Garbage,    // as many bytes as the reply has, none of them right
    BadCheck,   // wrong CRC or LRC; Custom ASCII has none and stays good
    Exception,  // Modbus: exception Value instead of the action; nothing in Custom ASCII
    Late,       // the reply starts Value ms later
    Pause,      // Value2 ms of silence after Value bytes of the reply
    Paced,      // byte by byte at the speed of the line instead of all at once
    Echo,       // the line gives back what was sent, as half duplex adapters do
    BadEcho,    // the same with one character wrong
    Gone,       // the line goes away after Value bytes of the reply

    // In an Ethernet node.
    WrongId,  // the reply carries another transaction
    Pieces,   // the reply goes out after Value bytes and Value2 ms later
    Close,    // the node ends the connection after Value bytes of the reply
    Status,   // a status frame in front of the reply
    Twice,    // a login is answered by two calls
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
    std::optional<int> Cut, Exception, Gone;
    bool WrongId = false, Status = false, Twice = false;
    std::optional<int> Close, PiecesMs;
    int PiecesAt = 0;
    double LateMs = 0;
    int PauseAt = 0;
    double PauseMs = 0;
};

class FaultList {
  public:
    FaultList() = default;
    explicit FaultList(std::vector<Fault> faults);

    // What strikes this command; counts it. Commands are compared by their beginning: Custom ASCII without
    // the head ("XR35Z"), Modbus as hexadecimal digits from the function on ("0300110014").
    Strike Next(std::string_view command);

  private:
    struct Counted {
        Fault What;
        int Seen = 0;
    };
    std::vector<Counted> faults_;
};

}  // namespace sim
