// Whether a Modbus reply is the answer to the request that was sent.
//
//   request            its reply begins with
//   03, 04  read       address, function, the number of bytes that were asked for
//   16      write      address, function, first register, count
//   others             the whole request, which they repeat
//
// A reply to a read does not say which registers it is of: one that comes late, of as many, can't be told
// from the right one on a serial line. Through the node the number of the transaction tells.
#pragma once

#include <cstddef>

#include "link/link_state.h"

namespace counter {

// True where ReplyText is `digits` long, check field included, and begins as the reply to the request that
// was sent last does. An exception, the reply of another meter and that to another request are not; neither
// is what has more behind its end (Modbus ASCII).
bool ReplyAnswers(const LinkState& link, std::size_t digits);

}  // namespace counter
