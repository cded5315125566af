#include "shell/start.h"

#include "link/port_setup.h"
#include "meter/firmware.h"
#include "meter/meter_words.h"

namespace counter {

namespace {

// 1..8: chance is in the millisecond at which somebody starts the program.
int FreshVariant(const Pump& pump) {
    return 1 + pump.LocalTime().Millisecond % 8;
}

}  // namespace

Status Start(Session& session) {
    Status status = ReadSettings(session.BringUp);
    session.LinkState.NodeFirstRun = session.LinkState.EthernetMode;
    session.LinkState.CrcTableFixed = HasPublishedCrc(session.Settings.FirmwareVersion);
    session.Image = SetupImage{};
    return status;
}

FollowedSettings FollowSettings(Session& session) {
    std::string text;
    if (!session.Folder.Store.Read(session.Folder.At(kSettingsFile), text).Ok()) return {};
    if (SplitSettings(text) == session.Settings.FileLines) return {};
    return {true, ReadSettings(session.BringUp)};
}

bool ReopenLine(Session& session) {
    const Settings& settings = session.Settings;
    session.LineTrouble = {};
    const bool serial = settings.CommsEnabled != Comms::NoLink && !session.LinkState.EthernetMode;
    if (!serial || !session.Port.Faulted()) return true;
    const std::string illegal = IllegalLine(settings);
    session.LineTrouble = illegal.empty()
                              ? OpenPort(session.Link, settings)
                              : Status{StatusKind::Illegal, session.Folder.At(kSettingsFile), illegal};
    return session.LineTrouble.Ok();
}

Status LogIntoNode(Session& session) {
    const Settings& stored = session.Settings;
    Status status =
        session.Node.Login({stored.NodeAddress, stored.NodeIp, stored.TcpPort}, FreshVariant(session.Pump));
    if (session.Node.Connected()) {
        session.LinkState.NodeFirstRun = false;
        session.LinkState.EthernetMode = true;
    }
    return status;
}

}  // namespace counter
