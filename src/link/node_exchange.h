// One exchange through the Ethernet node: the frame and its reply go over the node's connection, each in one
// piece, and the serial port is not touched.
#pragma once

#include "link/link.h"

namespace counter {

// Sends CommandText. Needs Link::Node.
void SendThroughNode(Link& link);

// Takes in the reply within 3 seconds (9 at 300 baud, 5 at 600). Nothing in time is LinkError 20, over Modbus
// the reply of another transaction 27. A connection that breaks meanwhile leaves LinkError at 0 and ReplyText
// empty: the user has been told by a message box, and the caller fails on the length. What had arrived before
// the break still counts.
void ReceiveThroughNode(Link& link);

// Whether the node has taken in all that was sent to it, which it says on its own within moments. Waits as
// long as for a reply: a cable that was pulled keeps the connection up and everything back. No proof that the
// meter has it. Leaves LinkError alone.
bool NodeTookAll(Link& link);

}  // namespace counter
