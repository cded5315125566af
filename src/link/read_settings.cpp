#include "link/read_settings.h"

#include <charconv>

#include "link/port_setup.h"
#include "meter/meter_words.h"

namespace counter {

namespace {

// Eleven bit times in milliseconds.
float CharacterTime(int baudIndex) {
    const std::string_view text = BaudTable[static_cast<std::size_t>(baudIndex)];
    int baud = 1;
    std::from_chars(text.data(), text.data() + text.size(), baud);
    return 11000.0F / static_cast<float>(baud);
}

void TakeLinkState(const Settings& settings, LinkState& state) {
    state.ModbusLink = settings.ModbusLink;
    state.SerialProtocol = settings.SerialProtocol;
    state.ParityIndex = settings.ParityIndex;
    state.EthernetMode = settings.EthernetMode;
    state.BaudIndex = settings.BaudIndex;
    state.LongWakeUp = settings.LongWakeUp == 1;
    state.MeterAddressChar = settings.MeterAddressChar;
    state.ModbusAddressHex = settings.ModbusAddressHex;
}

void TakeIdentity(const Settings& settings, MeterIdentity& identity) {
    identity.MeterType = settings.MeterType;
    identity.FirmwareVersion = settings.FirmwareVersion;
    if (!HasPanel(settings.MeterType)) identity.NoPanelModel = true;
}

void RefuseOtherPrograms(const Settings& settings, Dialogs& dialogs, Pump& pump) {
    if (settings.ProgramKind != ProgramKind::OtherProgram) return;
    dialogs.Show(
        {"Program Error", "Wrong Tolvane program for this meter.  Please terminate program.", BoxIcon::None});
    pump.EndProcess(kWrongProgramExit);
}

}  // namespace

Status ReadSettings(const BringUp& bringUp) {
    Settings& settings = bringUp.Settings;
    Link& link = bringUp.Link;
    const std::string path = bringUp.Folder.At(kSettingsFile);
    std::string text;
    if (Status status = bringUp.Folder.Store.Read(path, text); !status.Ok()) return status;
    ParseSettings(SplitSettings(text), settings);
    RefuseOtherPrograms(settings, bringUp.Dialogs, link.Pump);
    TakeLinkState(settings, link.State);
    TakeIdentity(settings, bringUp.Identity);
    if (settings.EthernetMode) return {};
    if (const std::string reason = IllegalLine(settings); !reason.empty())
        return {StatusKind::Illegal, path, reason};
    if (settings.CommsEnabled != Comms::NoLink) {
        if (Status status = OpenPort(link, settings); !status.Ok()) return status;
    } else {
        bringUp.Identity.SetupFromMeter = false;
    }
    link.State.CharTimeMs = CharacterTime(settings.BaudIndex);
    return {};
}

}  // namespace counter
