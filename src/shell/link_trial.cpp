#include "shell/link_trial.h"

#include "link/link_error.h"
#include "link/port_setup.h"
#include "link/settings_alone.h"
#include "meter/field_lists.h"
#include "meter/field_value.h"
#include "meter/meter_words.h"
#include "session/session.h"
#include "shell/get_action.h"
#include "shell/line_words.h"
#include "shell/start.h"

namespace counter {

namespace {

// Notes about the setup are of no use here.
class NoBoxes : public Dialogs {
  public:
    void Show(const Message&) override {}
};

// The version is the meter's own; over Modbus a Get leaves the identity of the settings, but the image has
// it.
std::string AnswerInWords(const Session& session) {
    const Settings& stored = session.Settings;
    const bool modbus = session.LinkState.ModbusLink;
    const std::string_view protocol = lists::kProtocol[static_cast<std::size_t>(stored.SerialProtocol)];
    std::string words = "A " + MeterKindInWords(ValueOfField(session.Image, Field::MeterType).Number) +
                        " answered: firmware version " +
                        std::to_string(ValueOfField(session.Image, Field::FirmwareVersion).Number) +
                        ", address " +
                        (modbus ? std::to_string(stored.ModbusAddress) : stored.MeterAddressLabel) + ", ";
    words += std::string(protocol);
    if (session.LinkState.EthernetMode) return words + " through the node at " + stored.NodeIp + ".";
    return words + " at " + std::string(BaudTable[static_cast<std::size_t>(session.LinkState.BaudIndex)]) +
           " baud.";
}

// Empty once the node has called back, otherwise why it has not.
std::string CallNode(Session& session) {
    if (const Status status = LogIntoNode(session); !status.Ok()) return status.Text();
    if (session.Node.Connected()) return {};
    return "The node did not call back within 40 seconds. Check its address and its IP address, that it is "
           "on the network, and that it can reach TCP port " +
           std::to_string(session.Settings.TcpPort) + " of this computer.";
}

std::string WhatToLookAt(int linkError) {
    if (linkError == LinkErrors::kNodeNoReply)
        return " The node is there; check the meter behind it, its protocol, baud rate and address.";
    if (linkError == LinkErrors::kNoReply)
        return " Check cable, port, baud rate, protocol and address, and that the meter is on.";
    if (linkError == LinkErrors::kNoEcho) return " The line does not echo: clear the box of the echo.";
    return " Something answered, but not as this protocol does: check protocol, baud rate and parity.";
}

}  // namespace

LinkTrial TryLink(const TrialWorld& world, const SettingsLines& lines) {
    SettingsAlone store(lines);
    NoBoxes boxes;
    Session session(world.Pump, world.Port, boxes, {store, world.Folder}, world.Sockets);
    LinkTrial trial;
    if (const Status status = Start(session); !status.Ok()) {
        trial.Words = status.Text();
        trial.PortOpened = false;
        return trial;
    }
    if (session.LinkState.EthernetMode) {
        trial.Words = CallNode(session);
        if (!trial.Words.empty()) return trial;
    }
    session.Home.CancelWanted = world.CancelWanted;
    trial.Cancelled = GetSetup(session) == GetEnd::Cancelled;
    ClosePort(session.Link);
    if (trial.Cancelled) {
        trial.Words = "Stopped.";
        return trial;
    }
    trial.LinkError = session.LinkState.LinkError;
    trial.Answered = trial.LinkError == 0;
    trial.FirmwareVersion = ValueOfField(session.Image, Field::FirmwareVersion).Number;
    trial.MeterType = ValueOfField(session.Image, Field::MeterType).Number;
    trial.Words = trial.Answered ? AnswerInWords(session)
                                 : session.LinkState.ErrorMeaning() + " (" + std::to_string(trial.LinkError) +
                                       ")." + WhatToLookAt(trial.LinkError);
    return trial;
}

}  // namespace counter
