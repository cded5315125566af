// Frames between the tool and an Ethernet node; the meter sees none of them.
//
//   login       20 bytes, datagram   node id, 04, variant, check (2), TCP port (2), 00 00
//   keep-alive  16 bytes, TCP        node id, 01 01 05 FF
//   command     19 bytes, TCP        node id, 57 04 10 00 00 00 FF (on) or 57 04 00 00 00 00 FF (off)
//   status      19 bytes, TCP, from the node: header token (6), 6 bytes, 05 04, 5 bytes
//
// The node id is the node's address (6 bytes) and the header token (6 bytes).
#pragma once

#include <string>
#include <string_view>

namespace counter {

// The datagrams go from this port to this port, whatever the settings say of the node's.
inline constexpr int kNodeUdpPort = 63179;

// 12 bytes; the address as 12 hexadecimal digits.
std::string NodeId(std::string_view nodeAddress);

// Asks the node to call `tcpPort` of whoever sends it. `variant` 1..8 of the check.
std::string NodeLoginFrame(std::string_view nodeAddress, int variant, int tcpPort);

std::string NodeKeepAlive(std::string_view nodeAddress);

// Around a Put over Modbus at 4800 baud and above. What it does in the node is the node's affair.
std::string NodeCommand(std::string_view nodeAddress, bool on);

// A meter's reply that looks the same is one too: required.
bool IsStatusFrame(std::string_view received);
// What arrived together with them, before or after; empty where there was nothing else. The answer to a
// keep-alive may come in one piece with the meter's reply.
std::string_view WithoutStatusFrames(std::string_view received);

}  // namespace counter
