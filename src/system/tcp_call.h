// A call to a server on the network.
#pragma once

#include <string>

#include "platform/status.h"
#include "platform/tcp_line.h"

namespace counter {

// Connects to one of the host's addresses of either family, trying each, in 5 seconds at most. `descriptor`
// is then a connection that does not block; `first` what the server has said by itself. Runs no events.
Status CallServer(const std::string& name, const TcpLine& line, int& descriptor, std::string& first);

}  // namespace counter
