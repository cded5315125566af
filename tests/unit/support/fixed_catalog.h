// FixedCatalog: the ports of a machine, as a test has them.
#pragma once

#include "platform/serial_port.h"

namespace counter::test {

struct FixedCatalog : PortCatalog {
    std::vector<PortDescription> Known = {{"/dev/ttyS0", "16550A", ""},
                                          {"/dev/ttyUSB0", "Converter", "/dev/serial/by-id/usb-1"}};
    bool Listed = true;  // the machine tells of them
    std::vector<PortDescription> Ports() const override {
        return Listed ? Known : std::vector<PortDescription>();
    }
    std::string DeviceOf(int) const override { return Known.front().Device; }
};

}  // namespace counter::test
