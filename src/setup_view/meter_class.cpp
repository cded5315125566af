#include "setup_view/meter_class.h"

#include "link/change_settings.h"
#include "link/exchange.h"
#include "link/port_setup.h"
#include "link/waits.h"
#include "meter/hex_text.h"
#include "setup_view/setup_view.h"

namespace counter {

namespace {

constexpr int kBaud9600 = 5;  // index of the baud table
constexpr double kBetweenFramesMs = 100;
constexpr std::size_t kWordDigits = 4;
constexpr std::size_t kOldNodeLine = 28;  // length of a node line that was never written at the program's end

// The first byte of the word with its class: no curve on a Basic meter; on an Extended one the curve stays.
std::string WithClass(std::string word, int extended) {
    auto byte = ParseHex(std::string_view(word).substr(0, 2));
    if (!extended) byte &= ~0x0CU;
    if (extended && (byte & 0x0CU) == 0) byte |= 0x04U;
    return word.replace(0, 2, HexNumber(byte, 2));
}

Settings At9600(Settings settings) {
    settings.BaudIndex = kBaud9600;
    return settings;
}

}  // namespace

void MeterClass::Wire() {
    Controls().On(cmdQBasic, [this](Control& button) { PressClass(button, 0); });
    Controls().On(cmdQExtended, [this](Control& button) { PressClass(button, 1); });
    Controls().On(cmd9600, [this](Control&) { SetBaud9600(); });
}

void MeterClass::ColorCommands() {
    cmdQBasic.BackColor = cmdQExtended.BackColor = ColorGray;
}

void MeterClass::MarkClass() {
    (Values().ExtendedMeter ? cmdQExtended : cmdQBasic).BackColor = ColorLightGray;
}

// Behind the write the button alone is marked: it tells the meter's class, which the image need not have.
void MeterClass::PressClass(Control& button, int extended) {
    const int stay = View.Stay();
    button.BackColor = ColorWhite;
    const bool written = BasicExtend(extended);
    Program.Writes.EndIfWanted();
    if (stay != View.Stay()) return;
    if (written) ColorCommands();
    button.BackColor = ColorLightGray;
    Control& option = extended ? View.Modes.optExtended : View.Modes.optBasic;
    if (View.CurrentTab() == option.Tab) View.Focus(option);  // the user may have gone to another page
}

bool MeterClass::BasicExtend(int extended) {
    const int stay = View.Stay();
    Program.Home.ShowHourglass(true);
    View.Buttons.picText.Text = extended ? "Writing EXTENDED meter" : "Writing BASIC meter";
    View.Controls.TellChanged();
    std::string_view why = WhyNotWritten();
    const bool written = why.empty() && SendClass(extended);
    if (why.empty() && !written) why = "The meter has not answered as it should, so nothing was written.";
    LinkDelay(Program.Link, kBetweenFramesMs);
    if (stay == View.Stay()) View.Buttons.picText.Text = why;
    Program.Home.ShowHourglass(false);
    return written;
}

std::string_view MeterClass::WhyNotWritten() const {
    if (Program.Settings.CommsEnabled == Comms::NoLink && !Program.LinkState.EthernetMode)
        return "There is no link to a meter, so nothing is written.";
    return Program.LinkState.ModbusLink ? "Over Modbus the meter's class can't be written." : "";
}

void MeterClass::SayNothing() {
    View.Buttons.picText.Text.clear();
}

bool MeterClass::SendClass(int extended) {
    LinkState& link = Program.LinkState;
    const SetupWriteScope writing(Program.Writes);
    AskAscii(Program.Link, "X11FZ");
    if (link.LinkError != 0 || link.ReplyText.size() != kWordDigits) return false;
    LinkDelay(Program.Link, kBetweenFramesMs);
    SendAscii(Program.Link, "W11F" + WithClass(link.ReplyText, extended) + "Z");
    return true;
}

// The file and the open port change; the BaudIndex in memory stays until the settings are read again. A file
// that can't be written leaves the port as it is, and the home view says why.
void MeterClass::SetBaud9600() {
    const std::string path = Program.Folder.At(kSettingsFile);
    SettingsLines changed;
    const Status status =
        ChangeSettings(Program.Folder, WaitOn(Program.Pump), [&](SettingsLines& lines) -> Status {
            if (const std::string reason = IllegalLine(At9600(Program.Settings)); !reason.empty())
                return {StatusKind::Illegal, path, reason};
            SettingsPut(lines.SettingsLine1, 2, std::to_string(kBaud9600));
            if (lines.SettingsLine2.size() == kOldNodeLine) lines.SettingsLine2 += "0";
            changed = lines;
            return {};
        });
    if (status.Ok()) Program.Settings.Lines = Program.Settings.FileLines = changed;
    if (!status.Ok()) {
        Program.Home.ShowStatus(status.Text(), ColorRed);
        return;
    }
    LinkState at9600 = Program.LinkState;
    at9600.BaudIndex = kBaud9600;
    if (Status set = Program.Port.SetSettings(PortSettingsText(at9600)); !set.Ok())
        Program.Home.ShowStatus(set.Text(), ColorRed);
}

}  // namespace counter
