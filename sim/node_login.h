// The login datagram of an Ethernet node, as the node reads it.
//
//     bytes  1..6   the node's address         13     4, login
//            7..12  header token               14     variant of the check, 1 to 8
//           15..16  check                      17..18 TCP port to call, 19..20 zero
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace sim {

// 5A 93 D1 C0 7E 42, which is in every frame of the node.
std::string NodeToken();

// The check over a frame, a multiple of 4 bytes and 16 at least, in variant 0..8: 0..65535. Bytes 15 and 16
// count as zero.
int NodeCheck(std::string_view frame, int variant);

// The port to call; nothing where the datagram is no login, is for another node or has a wrong check.
// `address` is 6 bytes.
std::optional<int> ParseNodeLogin(std::string_view datagram, std::string_view address);

}  // namespace sim
