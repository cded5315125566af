// LinkTrial: does a meter answer with these settings? It reads the meter once and writes nothing, neither to
// the meter nor to disk.
#pragma once

#include <functional>
#include <optional>
#include <string>

#include "platform/pump.h"
#include "platform/serial_port.h"
#include "platform/sockets.h"
#include "settings/settings.h"

namespace counter {

struct TrialWorld {
    counter::Pump& Pump;
    SerialPort& Port;
    std::string Folder;                            // named in messages; nothing is read from it
    std::optional<counter::Sockets> Sockets = {};  // without them no node can be tried
    std::function<bool()> CancelWanted = {};       // stops a trial at its next wait; may be empty
};

struct LinkTrial {
    bool Answered = false;
    std::string Words;  // what answered, or what to look at
    int LinkError = 0;
    bool PortOpened = true;
    bool Cancelled = false;
    int FirmwareVersion = 0, MeterType = 0;  // of the meter that answered
};

LinkTrial TryLink(const TrialWorld& world, const SettingsLines& lines);

}  // namespace counter
