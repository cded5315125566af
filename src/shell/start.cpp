#include "shell/start.h"

#include <random>

#include "meter/firmware.h"

namespace counter {

namespace {

// 1..8, another at each start of the program.
int FreshVariant() {
    std::random_device seed;
    return std::uniform_int_distribution(1, 8)(seed);
}

}  // namespace

Status Start(Session& session) {
    Status status = ReadSettings(session.BringUp);
    session.LinkState.NodeFirstRun = session.LinkState.EthernetMode;
    session.LinkState.CrcTableFixed = HasPublishedCrc(session.Settings.FirmwareVersion);
    session.Image = SetupImage{};
    return status;
}

Status LogIntoNode(Session& session) {
    const Settings& stored = session.Settings;
    Status status = session.Node.Login({stored.NodeAddress, stored.NodeIp, stored.TcpPort}, FreshVariant());
    if (session.Node.Connected()) {
        session.LinkState.NodeFirstRun = false;
        session.LinkState.EthernetMode = true;
    }
    return status;
}

}  // namespace counter
