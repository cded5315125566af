// FixedCatalog: the ports of a machine, as a test has them.
#pragma once

#include "platform/serial_port.h"

namespace counter::test {

struct FixedCatalog : PortCatalog {
    std::vector<PortDescription> Known = {{"/dev/ttyS0", "16550A", ""},
                                          {"/dev/ttyUSB0", "Converter", "/dev/serial/by-id/usb-1"}};
    std::vector<PortDescription> Ports() const override { return Known; }
    std::string DeviceOf(int) const override { return Known.front().Device; }
};

}  // namespace counter::test
