// Link: what one exchange with the meter works on.
#pragma once

#include "link/link_state.h"
#include "link/node_client.h"
#include "platform/pump.h"
#include "platform/serial_port.h"

namespace counter {

struct Link {
    LinkState& State;
    counter::Pump& Pump;
    SerialPort& Port;
    NodeClient* Node = nullptr;  // in Ethernet mode takes the port's place; not null then
};

}  // namespace counter
