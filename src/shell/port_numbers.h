// Port numbers: port number N (1 to 99) is the symbolic link ports/comN in the program folder.
#pragma once

#include <string>

#include "platform/program_folder.h"
#include "platform/serial_port.h"
#include "platform/status.h"

namespace counter {

inline constexpr int kMostPorts = 99;

std::string PortLink(const ProgramFolder& folder, int number);

// Two names of one device.
bool SameDevice(const FileReader& files, const std::string& a, const std::string& b);

// Makes the number mean the device. A device that has a name by id is linked by that name, so that the number
// keeps its adaptor. A device that is the number's own link, or leads through it, is refused: the system
// could never come to its end.
Status PointPort(const ProgramFolder& folder, const PortCatalog& catalog, int number,
                 const std::string& device);

}  // namespace counter
