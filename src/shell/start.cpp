#include "shell/start.h"

#include "meter/firmware.h"

namespace counter {

Status Start(Session& session) {
    const Status status = ReadSettings(session.Settled);
    session.LinkData.CrcTableFixed = HasPublishedCrc(session.Stored.FirmwareVersion);
    session.Image = SetupImage{};
    return status;
}

}  // namespace counter
