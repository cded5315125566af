// Probe: who is at an address? One question that reads and changes nothing.
//
//   Custom ASCII    G130, a byte of the working memory; two digits come back
//   Modbus          function 04, registers 3 and 4, the reading of Item 1; four bytes come back
#pragma once

#include <string>
#include <string_view>

#include "link/link.h"

namespace counter {

struct ProbedAddress {
    int SerialProtocol = 0;  // Protocol
    int Address = 1;         // 0..31 in Custom ASCII, 1..255 over Modbus
    bool OldCheck = false;   // Modbus RTU as meters below version 81 have it

    bool operator==(const ProbedAddress&) const = default;
};

enum class ProbeReply {
    None,
    Meter,
    Senseless,  // something came that no meter of that address says: two at once, another device
    LineGone,
};

// As it goes over the wire.
std::string ProbeFrame(const ProbedAddress& probed);
// What has come back for that frame. An echo of it in front does not count.
ProbeReply JudgeProbe(const ProbedAddress& probed, std::string_view received);

// Sends the question at once and takes the reply in; none has begun `firstCharacterMs` after the question, or
// its echo, is over. The rest of a reply has the time that every reply has.
ProbeReply Probe(Link& link, const ProbedAddress& probed, double firstCharacterMs);

}  // namespace counter
