// The line to the meter in words, as a user knows it.
#pragma once

#include <string>

#include "settings/settings.h"

namespace counter {

// "port 3, Custom ASCII at 9600 baud", or through a node "node 192.168.1.5, Modbus RTU".
std::string LineInWords(const Settings& settings);
// "Counter", "DPM".
std::string MeterKindInWords(int meterType);
// The meter's address in the protocol of the line: 0..31, over Modbus 1..999.
int AddressOnLine(const Settings& settings);
// Which meter that is: "address 5 on port 1", or through a node "address 5 at the node 192.168.1.5".
std::string MeterOnLine(const Settings& settings);
// "address 5, port 3, Custom ASCII at 9600 baud"
std::string LinkInWords(const Settings& settings);

}  // namespace counter
