// One exchange with the meter: a frame out, a reply in. Nothing is ever sent twice.
//
//   300 ms pause (1300 ms through the node)   lets the meter come back from its last command
//   frame out
//   up to 3000 ms for the first character
//   200 ms                                    the whole first part of a reply is let in
//   until 10 characters' time + 50 ms pass without a character
//
// Through the node the reply comes in one piece instead, see node_exchange.h.
#pragma once

#include <functional>
#include <string_view>

#include "link/link.h"

namespace counter {

// Sends CommandText (Custom ASCII) or ModbusPayload (Modbus) as they are on entry, framed: what another press
// sends during the waits has its own. Stale input is thrown away. A send has no failure report. What is no
// longer wanted when its turn has come is not sent, and false returned.
bool SendCommand(Link& link, const std::function<bool()>& withdrawn = {});

// Takes in the reply: sets LinkError and, where the reply allows, RawReply and ReplyText. Without a reply the
// texts stay what they were. Ends after half a minute also where the meter sends on and on.
void ReceiveReply(Link& link);

// A Custom ASCII command for this meter's address, sent.
bool SendAscii(Link& link, std::string_view body, const std::function<bool()>& withdrawn = {});
// The same, and its reply.
void AskAscii(Link& link, std::string_view body);
// A Modbus request as hexadecimal digits without address, and its reply.
void AskModbus(Link& link, std::string_view payload);

// How much longer ReplyText of a Modbus reply is than the plain reply: the check field of serial lines.
int ModbusExtraDigits(const LinkState& link);

}  // namespace counter
