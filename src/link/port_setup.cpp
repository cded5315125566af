#include "link/port_setup.h"

#include "link/waits.h"
#include "meter/meter_words.h"

namespace counter {

std::string PortSettingsText(const LinkState& link) {
    std::string text(BaudTable[static_cast<std::size_t>(link.BaudIndex)]);
    if (!link.ModbusLink) return text + ",n,8,1";
    constexpr std::string_view kParities = "noe";
    text += ",";
    text += kParities.substr(static_cast<std::size_t>(link.ParityIndex), 1);
    text += link.SerialProtocol == Protocol::ModbusAscii ? ",7" : ",8";
    text += "," + std::to_string(link.ParityIndex == Parity::None ? 2 : 1);
    return text;
}

Status OpenPort(Link& link, const Settings& settings) {
    link.State.EchoMode = settings.CommsEnabled == Comms::EchoingLink;
    if (link.Port.PortOpen()) link.Port.Close();
    link.Port.SetCommPort(settings.CommPortNumber);
    if (Status status = link.Port.SetSettings(PortSettingsText(link.State)); !status.Ok()) return status;
    if (Status status = link.Port.Open(); !status.Ok()) return status;
    link.Port.SetDtrEnable(true);
    return {};
}

void ClosePort(Link& link) {
    link.Port.SetHandshaking(0);
    WaitForOutput(link);
    LinkDelay(link, 200);
    if (link.Port.PortOpen()) link.Port.Close();
}

}  // namespace counter
