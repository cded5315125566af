#include "shell/link_switch.h"

#include <algorithm>
#include <utility>

#include "link/port_setup.h"
#include "meter/firmware.h"
#include "meter/text.h"
#include "settings/settings_keys.h"
#include "shell/line_words.h"
#include "shell/port_numbers.h"
#include "shell/start.h"

namespace counter {

namespace {

constexpr int kMostAddresses = 32;
constexpr int kFirstWithLabel = 10;  // the panel shows those from here on as letters, and with a point
constexpr int kSpeeds = 7;

Settings Parsed(const SettingsLines& lines) {
    Settings settings;
    ParseSettings(lines, settings);
    return settings;
}

SettingsLines WithLine1(SettingsLines lines, const std::string& line1) {
    lines.SettingsLine1 = line1;
    return lines;
}

// "16  (0. on its panel)"
std::string AddressText(int address) {
    const std::string number = std::to_string(address);
    if (address < kFirstWithLabel) return number;
    const std::string label = AddressChar(address % 16) + std::string(address > 15 ? "." : "");
    return number + "  (" + label + " on its panel)";
}

}  // namespace

std::string WhyLinkStays(const Session& session) {
    if (session.LinkState.EthernetMode)
        return "The meter is behind an Ethernet node. Its link is not switched here: counter-link changes "
               "it, "
               "and the next start uses it.";
    if (session.Home.Transfers > 0 || session.Writes.Running > 0 || session.LinkState.Awaited)
        return "The meter is being asked or written now. Switch the link when that has ended.";
    if (session.Settings.CommsEnabled == Comms::NoLink)
        return "The settings name no link: counter-link lays one down.";
    return {};
}

LinkSwitch::LinkSwitch(Session& session, const World& world) : session_(session), world_(world) {
    Form::Fill(cboBaud, std::span(BaudTable).first(kSpeeds));
    for (int address = 0; address < kMostAddresses; ++address) addressTexts_.push_back(AddressText(address));
    cboAddress.Entries.assign(addressTexts_.begin(), addressTexts_.end());
    pbFind.Visible = false;
    Wire();
}

Control& LinkSwitch::Add(ControlKind kind, std::string_view name, std::string_view caption) {
    Control control;
    control.Kind = kind;
    control.Name = name;
    control.Caption = caption;
    return Controls.Add(std::move(control));
}

void LinkSwitch::Wire() {
    Controls.On(cmdFind, [this](Control&) { Find(); });
    Controls.On(cmdFile, [this](Control&) { ShowFiles(); });
    Controls.On(cmdUse, [this](Control&) { UseForSession(); });
    Controls.On(cmdKeep, [this](Control&) { Keep(); });
    Controls.On(cmdClose, [this](Control&) {
        if (!Cancel() && Close) Close();
    });
}

void LinkSwitch::Load() {
    lines_ = session_.Settings.Lines;
    ListPorts();
    ShowLink(lines_);
    cmdFile.Visible = session_.ChosenLink.Choice().has_value();
    ShowResult("The link is to " + LinkInWords(session_.Settings) + ".", ColorWhite);
}

// The numbers that mean a port now, and one that is free for each port of the machine that none means.
void LinkSwitch::ListPorts() {
    const Files& files = session_.Folder.Store;
    const std::vector<PortDescription> machine = world_.Catalog.Ports();
    const auto known = [&](const std::string& device) {
        return std::ranges::any_of(ports_,
                                   [&](const Port& port) { return SameDevice(files, port.Device, device); });
    };
    ports_ = {{session_.Settings.CommPortNumber, world_.Catalog.DeviceOf(session_.Settings.CommPortNumber)}};
    // The file's link must be one to choose, whatever has become of its port.
    const int ofFile = Parsed(WithLine1(lines_, session_.ChosenLink.FileLine1())).CommPortNumber;
    if (session_.ChosenLink.Choice() && ofFile != ports_.front().Number)
        ports_.push_back({ofFile, world_.Catalog.DeviceOf(ofFile)});
    for (int number = 1; number <= kMostPorts; ++number) {
        const bool means = number <= static_cast<int>(machine.size()) ||
                           !files.LinkTarget(PortLink(session_.Folder, number)).empty();
        if (!means) continue;
        if (std::string device = world_.Catalog.DeviceOf(number); !known(device))
            ports_.push_back({number, std::move(device)});
    }
    for (const PortDescription& port : machine) {
        if (!known(port.Device)) ports_.push_back({FreeNumber(), port.Device});
    }
    std::ranges::sort(ports_, {}, &Port::Number);
    portTexts_.clear();
    for (const Port& port : ports_) portTexts_.push_back(std::to_string(port.Number) + "   " + port.Device);
    cboPort.Entries.assign(portTexts_.begin(), portTexts_.end());
}

int LinkSwitch::FreeNumber() const {
    int number = static_cast<int>(world_.Catalog.Ports().size()) + 1;
    const auto taken = [&] {
        return !session_.Folder.Store.LinkTarget(PortLink(session_.Folder, number)).empty() ||
               std::ranges::any_of(ports_, [&](const Port& port) { return port.Number == number; });
    };
    while (number < kMostPorts && taken()) ++number;
    return number;
}

void LinkSwitch::ShowLink(const SettingsLines& lines) {
    lines_ = lines;
    const Settings settings = Parsed(lines);
    const auto port = std::ranges::find(ports_, settings.CommPortNumber, &Port::Number);
    Controls.SetIndex(cboPort, port == ports_.end() ? -1 : static_cast<int>(port - ports_.begin()));
    Controls.SetIndex(cboBaud, settings.BaudIndex);
    Controls.SetIndex(cboAddress, settings.MeterAddressValue);
    txtModbus.Text = std::to_string(settings.ModbusAddress);
    cboAddress.Enabled = !settings.ModbusLink;
    txtModbus.Enabled = settings.ModbusLink;
    Controls.TellChanged();
}

void LinkSwitch::ShowFiles() {
    ShowLink(WithLine1(lines_, session_.ChosenLink.FileLine1()));
    ShowResult("Settings.SSS has " + LinkInWords(Parsed(lines_)) + ".", ColorWhite);
}

std::string LinkSwitch::TakeLines(SettingsLines& lines) const {
    for (const Control* list : {&cboPort, &cboBaud, &cboAddress}) {
        if (list->Enabled && list->ListIndex < 0) return list->Caption + ": nothing is chosen.";
    }
    lines = lines_;
    const auto set = [&lines](std::string_view key, const std::string& value) {
        return SetSettingsKey(lines, *FindSettingsKey(key), value);
    };
    const Port& port = ports_[static_cast<std::size_t>(cboPort.ListIndex)];
    set("CommPortNumber", std::to_string(port.Number));
    set("BaudIndex", std::to_string(cboBaud.ListIndex));
    if (cboAddress.Enabled) set("MeterAddressValue", std::to_string(cboAddress.ListIndex));
    if (!txtModbus.Enabled) return {};
    constexpr std::string_view kKey = "ModbusAddress";
    const std::string refusal = set(kKey, std::string(Trimmed(txtModbus.Text)));
    return refusal.empty() ? refusal : txtModbus.Caption + refusal.substr(kKey.size());
}

// As at a start, the version of the settings decides about the check.
Status LinkSwitch::BringUp() {
    Status status = ReadSettings(session_.BringUp);
    session_.LinkState.CrcTableFixed = HasPublishedCrc(session_.Settings.FirmwareVersion);
    return status;
}

bool LinkSwitch::Use() {
    SettingsLines lines;
    std::string wrong = TakeLines(lines);
    if (wrong.empty()) wrong = WhyLinkStays(session_);
    if (wrong.empty()) {
        const Port& port = ports_[static_cast<std::size_t>(cboPort.ListIndex)];
        if (!SameDevice(session_.Folder.Store, world_.Catalog.DeviceOf(port.Number), port.Device)) {
            const Status pointed = PointPort(session_.Folder, world_.Catalog, port.Number, port.Device);
            if (!pointed.Ok()) wrong = pointed.Text();
        }
    }
    if (!wrong.empty()) return ShowResult(wrong, ColorRed), false;
    const std::optional<std::string> before = session_.ChosenLink.Choice();
    session_.ChosenLink.Choose(lines.SettingsLine1);
    const Status status = BringUp();
    if (status.Ok()) return true;
    session_.ChosenLink.Choose(before);
    BringUp();
    ShowResult(status.Text() + ". The link is as it was.", ColorRed);
    return false;
}

void LinkSwitch::UseForSession() {
    if (!Use()) return;
    const std::string how =
        session_.ChosenLink.Choice() ? ", for this session." : ", as the settings have it.";
    session_.Home.ShowStatus("The link is now to " + LinkInWords(session_.Settings) + how, ColorWhite);
    if (Close) Close();
}

void LinkSwitch::Keep() {
    if (!Use()) return;
    if (Status kept = session_.ChosenLink.Keep(WaitOn(session_.Pump)); !kept.Ok())
        return ShowResult(kept.Text() + ". The link is in use, for this session.", ColorRed);
    session_.Home.ShowStatus(
        "The link is now to " + LinkInWords(session_.Settings) + ", and the settings have it.", ColorWhite);
    if (Close) Close();
}

bool LinkSwitch::Cancel() {
    if (!finding_) return false;
    stop_ = true;
    ShowResult("Stopping.", ColorWhite);
    return true;
}

// The link's own port is closed meanwhile: the search may need its device.
void LinkSwitch::Find() {
    SettingsLines lines;
    std::string wrong = TakeLines(lines);
    if (wrong.empty()) wrong = WhyLinkStays(session_);
    if (!wrong.empty()) return ShowResult(wrong, ColorRed);
    stop_ = false;
    Busy(true);
    SearchResult found;
    {
        const TransferScope asking(session_.Home);
        const auto stopped = [&] { return stop_ || asking.Cancelled(); };
        ClosePort(session_.Link);
        found = FindMeter({session_.Pump, world_.Port, session_.Folder.Path, {}, stopped}, world_.Tried,
                          lines, DevicesToTry(), [&](int number, int all, const SearchStep& step) {
                              if (stopped()) return false;
                              pbFind.Value = 100 * number / all;
                              ShowResult("Trial " + std::to_string(number) + " of " + std::to_string(all) +
                                             ": " + StepInWords(step),
                                         ColorGreen);
                              return true;
                          });
        ReopenLine(session_);
    }
    Busy(false);
    if (found.Found) return TakeFound(found);
    ShowResult(found.Words, stop_ ? ColorWhite : ColorRed);
}

void LinkSwitch::TakeFound(const SearchResult& found) {
    const auto port = std::ranges::find(ports_, found.Device, &Port::Device);
    SettingsLines lines = found.Lines;
    SetSettingsKey(lines, *FindSettingsKey("CommPortNumber"), std::to_string(port->Number));
    ShowLink(lines);
    ShowResult(found.Words + " It is on " + found.Device + ".", ColorGreen);
}

// The one that is chosen comes first.
std::vector<std::string> LinkSwitch::DevicesToTry() const {
    std::vector<std::string> devices;
    for (const Port& port : ports_) devices.push_back(port.Device);
    std::rotate(devices.begin(), devices.begin() + cboPort.ListIndex,
                devices.begin() + cboPort.ListIndex + 1);
    return devices;
}

void LinkSwitch::Busy(bool busy) {
    finding_ = busy;
    pbFind.Visible = busy;
    for (Control* control : {&cboPort, &cboBaud, &cmdFind, &cmdFile, &cmdUse, &cmdKeep})
        control->Enabled = !busy;
    const bool modbus = Parsed(lines_).ModbusLink;
    cboAddress.Enabled = !busy && !modbus;
    txtModbus.Enabled = !busy && modbus;
    Controls.TellChanged();
}

void LinkSwitch::ShowResult(const std::string& text, Color color) {
    lblResult.Caption = text;
    lblResult.TextColor = color;
    Controls.TellChanged();
}

}  // namespace counter
