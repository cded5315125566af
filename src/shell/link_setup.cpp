#include "shell/link_setup.h"

#include <algorithm>
#include <array>

#include "link/change_settings.h"
#include "meter/field_lists.h"
#include "meter/text.h"
#include "settings/settings_keys.h"
#include "shell/port_numbers.h"

namespace counter {

namespace {

constexpr std::array<std::string_view, 3> kParities = {"None", "Odd", "Even"};
constexpr std::array<std::string_view, 8> kMeters = {"0",
                                                     "1  DPM",
                                                     "2  Weight Meter",
                                                     "3  Counter",
                                                     "5  Transmitter",
                                                     "6  Transmitter",
                                                     "7  Transmitter without front panel",
                                                     "8"};
constexpr std::array<int, 8> kMeterTypes = {0, 1, 2, 3, 5, 6, 7, 8};
constexpr std::array<std::string_view, 32> kAddresses = {
    "0",  "1",  "2",  "3",  "4",  "5",  "6",  "7",  "8",  "9",  "A",  "B",  "C",  "D",  "E",  "F",
    "0.", "1.", "2.", "3.", "4.", "5.", "6.", "7.", "8.", "9.", "A.", "B.", "C.", "D.", "E.", "F."};
constexpr const char* kNoNode = "000000000000";
constexpr std::string_view kTcpPortKey = "TcpPort";
constexpr const char* kNoPorts =
    "This machine has no serial port: plug the adaptor in and look again, or name the device.";

// "Modbus address is a number 1 to 255", for a refusal that names the key of the file.
std::string InCaptions(const std::string& refusal, std::string_view key, const Control& shown) {
    const std::string caption = shown.Caption.substr(0, shown.Caption.find(" ("));
    if (shown.Kind == ControlKind::List) return caption + ": nothing is chosen.";
    return caption + refusal.substr(key.size());
}

}  // namespace

LinkSetup::LinkSetup(const World& world) : world_(world) {
    pbFind.Visible = false;
    Form::Fill(cboProtocol, lists::kProtocol);
    Form::Fill(cboBaud, std::span(BaudTable).first(7));
    Form::Fill(cboParity, kParities);
    Form::Fill(cboAddress, kAddresses);
    Form::Fill(cboMeter, kMeters);
    Wire();
}

LinkSetup::~LinkSetup() = default;

Control& LinkSetup::Add(ControlKind kind, std::string_view name, std::string_view caption) {
    Control control;
    control.Kind = kind;
    control.Name = name;
    control.Caption = caption;
    return Controls.Add(std::move(control));
}

void LinkSetup::Wire() {
    Controls.On(cboPort, [this](Control&) { PickPort(); });
    Controls.On(cmdRefresh, [this](Control&) { ListPorts(); });
    Controls.On(txtDevice, [this](Control&) { ShowPortOfDevice(); });
    Controls.On(cboProtocol, [this](Control&) { ShowProtocol(); });
    Controls.On(chkNode, [this](Control&) { ShowNode(); });
    Controls.On(chkWork, [this](Control&) { ShowNode(); });
    Controls.On(cmdSave, [this](Control&) { Save(); });
    Controls.On(cmdSaveOpen, [this](Control&) { SaveAndOpen(); });
    Controls.On(cmdTest, [this](Control&) { Test(); });
    Controls.On(cmdFind, [this](Control&) { FindOrStop(); });
    Controls.On(cmdClose, [this](Control&) {
        if (Close) Close();
    });
}

void LinkSetup::Load() {
    std::string text;
    const std::string path = world_.Folder.At(kSettingsFile);
    const bool there = world_.Folder.Store.Read(path, text).Ok();
    lines_ = there ? SplitSettings(text) : NewSettingsLines();
    lines_.SettingsLine1 = NormaliseLine1(lines_.SettingsLine1);
    Settings settings;
    ParseSettings(lines_, settings);
    ShowSettings(settings);
    ShowPorts();
    kept_ = EnteredNow();
    const std::string file = there ? path : path + " does not exist yet: Save writes it.";
    ShowResult(ports_.empty() && txtDevice.Enabled ? file + "  " + kNoPorts : file, ColorWhite);
}

void LinkSetup::ShowSettings(const Settings& settings) {
    portNumber_ = std::clamp(settings.CommPortNumber, 1, kMostPorts);
    txtDevice.Text = world_.Catalog.DeviceOf(portNumber_);
    Controls.SetIndex(cboProtocol, settings.SerialProtocol);
    Controls.SetIndex(cboBaud, settings.BaudIndex);
    Controls.SetIndex(cboParity, settings.ParityIndex);
    Controls.SetIndex(cboAddress, settings.MeterAddressValue);
    const auto meter = std::find(kMeterTypes.begin(), kMeterTypes.end(), settings.MeterType);
    Controls.SetIndex(cboMeter, static_cast<int>(meter - kMeterTypes.begin()));
    txtModbus.Text = std::to_string(settings.ModbusAddress);
    txtVersion.Text = std::to_string(settings.FirmwareVersion);
    chkWakeUp.Value = settings.LongWakeUp;
    chkEcho.Value = settings.CommsEnabled == Comms::EchoingLink ? 1 : 0;
    chkNode.Value = settings.EthernetMode ? 1 : 0;
    chkWork.Value = settings.CommsEnabled == Comms::NoLink && !settings.EthernetMode ? 1 : 0;
    txtNode.Text = settings.NodeAddress;
    txtNodeIp.Text = settings.NodeIp;
    txtNodeUdp.Text = std::to_string(settings.NodeUdpPort);
    txtTcp.Text = std::to_string(settings.TcpPort);
    ShowProtocol();
    ShowNode();
}

void LinkSetup::ListPorts() {
    ShowPorts();
    const std::size_t count = ports_.size();
    if (count == 0) return ShowResult(kNoPorts, ColorRed);
    ShowResult(std::to_string(count) + (count == 1 ? " serial port." : " serial ports."), ColorWhite);
}

void LinkSetup::ShowPorts() {
    ports_ = world_.Catalog.Ports();
    portTexts_.clear();
    for (const PortDescription& port : ports_) {
        portTexts_.push_back(port.Description.empty() ? port.Device : port.Device + "   " + port.Description);
    }
    cboPort.Entries.assign(portTexts_.begin(), portTexts_.end());
    ShowPortOfDevice();
    Controls.TellChanged();
}

// The list shows the port that the device field names, by whatever name, and none for another device.
void LinkSetup::ShowPortOfDevice() {
    const auto shown = std::find_if(ports_.begin(), ports_.end(), [this](const PortDescription& port) {
        return SameDevice(world_.Folder.Store, port.Device, txtDevice.Text);
    });
    cboPort.ListIndex = shown == ports_.end() ? -1 : static_cast<int>(shown - ports_.begin());
}

void LinkSetup::PickPort() {
    txtDevice.Text = ports_[static_cast<std::size_t>(cboPort.ListIndex)].Device;
}

// Parity is Modbus's alone, as is the second address.
void LinkSetup::ShowProtocol() {
    const bool modbus = cboProtocol.ListIndex > 0;
    cboParity.Enabled = txtModbus.Enabled = modbus;
    cboAddress.Enabled = chkWakeUp.Enabled = !modbus;
}

void LinkSetup::ShowNode() {
    const bool node = chkNode.Value == 1;
    for (Control* control : {&txtNode, &txtNodeIp, &txtNodeUdp, &txtTcp}) control->Enabled = node;
    chkWork.Enabled = !node;
    const bool serial = !node && chkWork.Value == 0;
    for (Control* control : {&cboPort, &cmdRefresh, &txtDevice, &chkEcho}) control->Enabled = serial;
    cmdTest.Enabled = serial || node;
    cmdFind.Enabled = serial;
}

std::string LinkSetup::TakeLines(SettingsLines& lines) const {
    const bool node = chkNode.Value == 1;
    Comms::Code comms = !node && chkEcho.Value == 1 ? Comms::EchoingLink : Comms::Link;
    if (!node && chkWork.Value == 1) comms = Comms::NoLink;
    const int meter = kMeterTypes[static_cast<std::size_t>(std::max(cboMeter.ListIndex, 0))];
    const struct {
        std::string_view Key;
        const Control& Shown;
        std::string Value;
    } values[] = {
        {"MeterType", cboMeter, std::to_string(meter)},
        {"BaudIndex", cboBaud, std::to_string(cboBaud.ListIndex)},
        {"CommPortNumber", cboPort, std::to_string(portNumber_)},
        {"SerialProtocol", cboProtocol, std::to_string(cboProtocol.ListIndex)},
        {"ParityIndex", cboParity, std::to_string(cboParity.ListIndex)},
        {"MeterAddressValue", cboAddress, std::to_string(cboAddress.ListIndex)},
        {"ModbusAddress", txtModbus, std::string(Trimmed(txtModbus.Text))},
        {"LongWakeUp", chkWakeUp, std::to_string(chkWakeUp.Value)},
        {"FirmwareVersion", txtVersion, std::string(Trimmed(txtVersion.Text))},
        {"CommsEnabled", chkWork, std::to_string(comms)},
        {"NodeAddress", txtNode, node ? std::string(Trimmed(txtNode.Text)) : kNoNode},
        {"NodeIp", txtNodeIp, std::string(Trimmed(txtNodeIp.Text))},
        {"NodeUdpPort", txtNodeUdp, std::string(Trimmed(txtNodeUdp.Text))},
        {kTcpPortKey, txtTcp, std::string(Trimmed(txtTcp.Text))},
    };
    for (const auto& [key, shown, value] : values) {
        if (!node && key == kTcpPortKey) continue;  // means nothing, and may be the 0 of a new file
        const std::string refusal = SetSettingsKey(lines, *FindSettingsKey(key), value);
        if (!refusal.empty()) return InCaptions(refusal, key, shown);
    }
    return {};
}

LinkSetup::Entered LinkSetup::EnteredNow() const {
    Entered entered{{}, lines_, txtDevice.Enabled ? txtDevice.Text : ""};
    entered.Wrong = TakeLines(entered.Lines);
    return entered;
}

bool LinkSetup::MayClose() {
    if (asking_) return false;
    if (!AskToDrop || EnteredNow() == kept_) return true;
    asking_ = true;
    const bool may = AskToDrop(
        {kTitle, "What was changed here is not saved.", BoxIcon::None, world_.Folder.At(kSettingsFile)});
    asking_ = false;
    return may;
}

void LinkSetup::SaveAndOpen() {
    if (!Save()) return;
    if (OpenSetup && !OpenSetup())
        return ShowResult("Saved, but Counter Setup could not be started.", ColorRed);
    if (Close) Close();
}

bool LinkSetup::Save() {
    SettingsLines lines = lines_;
    std::string wrong = TakeLines(lines);
    if (wrong.empty()) {
        if (const Status status = WriteAll(lines); !status.Ok()) wrong = status.Text();
    }
    if (!wrong.empty()) return ShowResult(wrong, ColorRed), false;
    TakeWritten(lines);
    kept_ = EnteredNow();
    ShowResult("Saved in " + world_.Folder.At(kSettingsFile), ColorGreen);
    return true;
}

// What another program has changed meanwhile is kept, and shown from now on.
void LinkSetup::TakeWritten(const SettingsLines& lines) {
    SettingsLines shown = lines_;
    TakeLines(shown);
    lines_ = lines;
    if (shown == lines) return;
    Settings settings;
    ParseSettings(lines, settings);
    ShowSettings(settings);
    ShowPorts();
}

// The port first: settings whose port means nothing are of no use.
Status LinkSetup::WriteAll(SettingsLines& lines) {
    if (Status status = world_.Folder.Store.MakeFolder(world_.Folder.Path); !status.Ok()) return status;
    const bool same = world_.Catalog.DeviceOf(portNumber_) == txtDevice.Text;
    if (txtDevice.Enabled && !same) {
        if (Status status = PointPort(world_.Folder, world_.Catalog, portNumber_, txtDevice.Text);
            !status.Ok())
            return status;
    }
    return SaveSettings(world_.Folder, WaitOn(world_.Pump), lines_, lines);
}

void LinkSetup::ShowResult(const std::string& text, Color color) {
    lblResult.Caption = text;
    lblResult.TextColor = color;
    Controls.TellChanged();
}

}  // namespace counter
