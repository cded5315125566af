// QtPortCatalog: the machine's serial ports, and the port numbers that mean them.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "platform/serial_port.h"

namespace counter {

// The serial ports that the system knows, in its order, without their names by id.
std::vector<PortDescription> SystemPorts();

// Looks again at every call: adaptors come and go.
class QtPortCatalog : public PortCatalog {
  public:
    using Lister = std::function<std::vector<PortDescription>()>;

    // Port number N is ports/comN in `programFolder`. Tests give a by-id folder and a list of their own.
    explicit QtPortCatalog(std::string programFolder, std::string byIdFolder = "/dev/serial/by-id",
                           Lister list = SystemPorts);

    std::vector<PortDescription> Ports() const override;
    // As the link says it, so that a name by id and a line on the network stay what they are; a relative
    // target counts from ports/. A device that is under ports/comN itself is that device. A number below 1 is
    // a missing link.
    std::string DeviceOf(int number) const override;

  private:
    std::string programFolder_;
    std::string byIdFolder_;
    Lister list_;
};

}  // namespace counter
