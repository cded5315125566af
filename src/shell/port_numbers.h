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

// The device's name by id where it has one, otherwise the device.
std::string LastingDevice(const FileReader& files, const PortCatalog& catalog, const std::string& device);

// The device that a word of a command line means: "ttyUSB0" is one of /dev, the name of an adaptor one by id,
// a path stays one wherever the program is called, and so does tcp://HOST:PORT.
std::string DevicePath(const FileReader& files, const std::string& word);

// Makes the number mean the device, or the line on the network that is called tcp://HOST:PORT. A device that
// has a name by id is linked by that name, so that the number keeps its adaptor. A device that is the
// number's own link, or leads through it, is refused: the system could never come to its end.
Status PointPort(const ProgramFolder& folder, const PortCatalog& catalog, int number,
                 const std::string& device);

}  // namespace counter
