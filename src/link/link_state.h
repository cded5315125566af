// The state of the one link to the meter.
#pragma once

#include <string>
#include <vector>

#include "link/link_error.h"

namespace counter {

class AwaitedReply;

struct LinkState {
    // One exchange.
    std::string
        CommandText;  // Custom ASCII: the command going in, the frame as sent coming out; Modbus: the frame
    std::string ModbusPayload;  // Modbus: the request as hexadecimal digits, without address going in and
                                // with it coming out; new for every send
    std::string ReplyText;      // the reply with its framing removed and blanks trimmed
    std::string RawReply;       // the reply before trimming
    bool ReplyHadEnd = false;   // Custom ASCII: a CR or LF was after it
    bool ReplyHadMore = false;  // more than a line end came behind its end; not in RTU
    bool ReplyWasOdd = false;   // Custom ASCII: a last digit without its pair was dropped
    int LinkError = 0;          // 0 good, see link_error.h
    ErrorSource FailedIn = ErrorSource::Unknown;  // of a LinkError below 20
    bool PortFault = false;                       // WaitForInput met a port error
    AwaitedReply* Awaited = nullptr;              // serial: the innermost one that is being taken in

    // Through the node.
    std::string NodeReply;      // what arrived last; empty: nothing yet
    int TransactionId = 0;      // of the last Modbus request, 1..65535
    bool NodeFirstRun = false;  // the login of this run is still to come

    // Write frames of the last Put that have gone out, by command ("WR1A") or by function and first register.
    std::vector<std::string> FramesWritten;

    // How the meter is reached; from the settings.
    bool ModbusLink = false;    // Modbus of either kind; else Custom ASCII
    int SerialProtocol = 0;     // Protocol
    int ParityIndex = 0;        // Parity
    bool EthernetMode = false;  // through the node
    bool EchoMode = false;      // the line echoes every character sent
    int BaudIndex = 0;          // index into BaudTable
    bool LongWakeUp = false;    // the long wake-up string
    float CharTimeMs = 0;       // eleven bit times; 0 in Ethernet mode
    char MeterAddressChar = '0';
    std::string ModbusAddressHex = "01";

    // Whether the meter's Modbus check is the published one. Decided once, at program start.
    bool CrcTableFixed = false;

    void Fail(int number, ErrorSource source) {
        LinkError = number;
        FailedIn = source;
    }
    std::string ErrorMeaning() const { return LinkErrorMeaning(LinkError, FailedIn); }
};

}  // namespace counter
