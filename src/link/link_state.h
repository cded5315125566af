// The state of the one link to the meter.
#pragma once

#include <string>
#include <vector>

#include "link/link_error.h"

namespace counter {

struct LinkState {
    // One exchange.
    std::string
        CommandText;  // Custom ASCII: the command going in, the frame as sent coming out; Modbus: the frame
    std::string
        ModbusPayload;      // Modbus: the request as hexadecimal digits without address; anew for every send
    std::string ReplyText;  // the reply with its framing removed and blanks trimmed
    std::string RawReply;   // the reply before trimming
    bool ReplyHadEnd = false;                     // Custom ASCII: a CR or LF stood behind it
    int LinkError = 0;                            // 0 good, see link_error.h
    ErrorSource FailedIn = ErrorSource::Unknown;  // of a LinkError below 20
    int PortFault = 0;                            // 1: WaitForInput met a port error

    // Through the node.
    std::string NodeReply;  // what arrived last; empty: nothing yet
    int TransactionId = 0;  // of the last Modbus request, 1..65535
    int NodeFirstRun = 0;   // 1: the login of this run is still to come

    // Write frames of the last Put that have gone out, by command ("WR1A") or by function and first register.
    std::vector<std::string> FramesWritten;

    // How the meter is reached; from the settings.
    int ModbusLink = 0;      // 0 Custom ASCII, 1 Modbus of either kind
    int SerialProtocol = 0;  // 0 Custom ASCII, 1 Modbus RTU, 2 Modbus ASCII
    int ParityIndex = 0;     // 0 none, 1 odd, 2 even
    int EthernetMode = 0;    // 1: through the node
    int EchoMode = 0;        // 1: the line echoes every character sent
    int BaudIndex = 0;       // index into BaudTable
    int LongWakeUp = 0;      // 1: the long wake-up string
    float CharTimeMs = 0;    // eleven bit times; 0 in Ethernet mode
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
