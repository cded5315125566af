// get: the commands that move a setup between the meter and a file.
#include "cli/cli.h"
#include "cli/link_session.h"
#include "shell/get_action.h"
#include "shell/setup_files.h"

namespace counter {

int GetCommand(const CommandCall& call) {
    LinkSession link(call);
    if (const int status = link.Begin(); status != kDone) return status;
    Session& session = link.Program();
    GetSetup(session);
    if (session.LinkData.LinkError == 0) {
        const Status saved = SaveSetupFile(call.World.Store, call.Words[0], session.Image);
        if (!saved.Ok()) return RefuseStatus(call, saved);
    }
    return link.End(
        {{"FirmwareVersion", session.Identity.FirmwareVersion}, {"MeterType", session.Identity.MeterType}});
}

}  // namespace counter
