#include "shell/start.h"

#include "meter/firmware.h"

namespace counter {

Status Start(Session& session) {
    if (Status status = ReadSettings(session.Settled); !status.Ok()) return status;
    session.LinkData.CrcTableFixed = HasPublishedCrc(session.Stored.FirmwareVersion);
    session.Image = SetupImage{};
    return {};
}

}  // namespace counter
