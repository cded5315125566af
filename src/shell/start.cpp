#include "shell/start.h"

#include "link/read_settings.h"
#include "meter/firmware.h"

namespace counter {

Status ReadSettings(Session& session) {
    return ReadSettings(session.Folder, session.Boxes, session.Stored, session.Identity, session.Line);
}

Status Start(Session& session) {
    if (Status status = ReadSettings(session); !status.Ok()) return status;
    session.LinkData.CrcTableFixed = HasPublishedCrc(session.Stored.FirmwareVersion);
    session.Image = SetupImage{};
    return {};
}

}  // namespace counter
