// Bringing the serial port up and down.
#pragma once

#include <string>

#include "link/link.h"
#include "platform/status.h"
#include "settings/settings.h"

namespace counter {

// "baud,parity,databits,stopbits". Custom ASCII: n, 8, 1. Modbus RTU has 8 data bits and Modbus ASCII 7, both
// 2 stop bits without parity and 1 with. All indexes must be legal.
std::string PortSettingsText(const LinkState& link);

// Opens the port of `settings` at the link's line settings. A failure leaves it closed.
Status OpenPort(Link& link, const Settings& settings);

// Lets what was sent go out, waits 200 ms and closes.
void ClosePort(Link& link);

}  // namespace counter
