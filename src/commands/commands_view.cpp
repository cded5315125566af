// Buttons and what they send, readings, coming and going.
#include "commands/commands_view.h"

#include "commands/active_items.h"
#include "link/exchange.h"
#include "link/waits.h"
#include "meter/field_code.h"
#include "meter/meter_words.h"

namespace counter {

namespace {

// Functions that need Item 3: Batch and those that combine A and B.
bool TakesItem3(int mode, int function) {
    return function == Function::Batch || (function >= Function::Sum && function <= Function::Ratio) ||
           (mode == Mode::Rate && function == Function::RatioLessOne);
}

}  // namespace

CommandsView::CommandsView(Session& session) : Program(session) {
    Wire();
    WireHelpLine();
}

// The letter of Valley is outside the run of the others, its coil inside it: required.
void CommandsView::Wire() {
    // clang-format off
    WireReading(cmdItem1,    ReadingKind::Item1,  picItem1,  "Item 1 request sent.");
    WireReading(cmdItem2,    ReadingKind::Item2,  picItem2,  "Item 2 request sent.");
    WireReading(cmdItem3,    ReadingKind::Item3,  picItem3,  "Item 3 request sent.");
    WireReading(cmdPeakRd,   ReadingKind::Peak,   picPeak,   "Peak Request sent.");
    WireReading(cmdValleyRd, ReadingKind::Valley, picValley, "Valley Request sent.");
    Controls.On(cmdActive,  [this](Control&) { ReadActive(false, "All Active Readings request sent."); });
    Controls.On(cmdActiveP, [this](Control&) {
        ReadActive(true, "All Active Readings + Peak + Valley request sent.");
    });

    WireReset(cmdFRst,    {"C1", "050002FF00"}, "Function Reset Command sent.");
    WireReset(cmdLARst,   {"C2", "050003FF00"}, "Latched Alarms Reset Command sent.");
    WireReset(cmdMRst,    {"C0", "050001FF00"}, "Meter Reset Command sent.");
    WireReset(cmdPeak,    {"C3", "050004FF00"}, "Peak Reset Command sent.");
    WireReset(cmdValley,  {"C9", "050005FF00"}, "Valley Reset Command sent.");
    WireReset(cmdRmtDspy, {"C4", "050006FF00"}, "Remote Display Reset Command sent.");

    WireRemote(cmdDspyOnly, {"H", "100069000204"}, "Remote data sent to Display only.");
    WireRemote(cmdItm3Only, {"K", "10006B000204"}, "Remote data sent to Item 3 only.");
    WireRemote(cmdBoth,     {"L", "10006D000204"}, "Remote data sent to Display and Item 3.");
    WireRemote(cmdC,        {"", "", true},        "Remote data sent to Display");
    // clang-format on

    Controls.On(cmdSendPRM, [this](Control&) { OpenCurve(); });
    Controls.On(cmdOK, [this](Control&) {
        Program.Home.ShowHourglass(true);
        if (ShowMainMenu) ShowMainMenu();
        Unload();
        Program.Home.ShowHourglass(false);
    });
}

void CommandsView::WireReading(Control& button, ReadingKind kind, Control& field, const char* status) {
    Controls.On(button, [this, kind, &field, status](Control&) { ReadInto(field, kind, status); });
}

void CommandsView::WireReset(Control& button, Request reset, const char* status) {
    Controls.On(button, [this, reset, status](Control&) {
        ShowStatus(status, ColorGreen);
        if (!Program.LinkState.ModbusLink) {
            SendAscii(Program.Link, reset.Ascii);
            return;
        }
        Program.LinkState.ModbusPayload = std::string(reset.Modbus);
        SendCommand(Program.Link);
    });
}

void CommandsView::Load() {
    const bool modbus = Program.LinkState.ModbusLink;
    ClearFields();
    txtRmtDspy.Text.clear();
    WhyNotSent.clear();
    rmtClearOnFocus_ = 0;
    lblErrText.Visible = lblModeC.Visible = false;
    cmdItm3Only.Enabled = cmdBoth.Enabled = true;
    termEachItem_ = CodeOf(Program.Image, Field::Cr);
    DisableTakenItem3();
    if (!Program.LineTrouble.Ok()) ShowStatus(Program.LineTrouble.Text(), ColorRed);
    cmdC.Enabled = cmdActive.Enabled = cmdActiveP.Enabled = !modbus;
    Controls.TellChanged();
}

void CommandsView::Activate() {
    cmdSendPRM.Enabled = !Program.LinkState.ModbusLink;
    Controls.TellChanged();
}

void CommandsView::Unload() {
    ++opening_;
    Controls.DropFocus();
    lblErrText.Visible = lblModeC.Visible = false;
}

void CommandsView::DisableTakenItem3() {
    if (!TakesItem3(CodeOf(Program.Image, Field::Mode), CodeOf(Program.Image, Field::Function))) return;
    cmdItm3Only.Enabled = cmdBoth.Enabled = false;
    ShowStatus(
        "Remote display is unavailable for Item 3 because it is being used by the selected Mode/Function.",
        ColorGreen);
}

// The pause in front of each frame lets a window draw the status and the empty field.
void CommandsView::ReadInto(Control& field, ReadingKind kind, const char* status) {
    field.Text.clear();
    ShowStatus(status, ColorGreen);
    if (!Ask(kind)) return;
    field.Text = Program.LinkState.RawReply;
    Controls.TellChanged();
}

void CommandsView::ReadActive(bool withPeakValley, const char* status) {
    ClearFields();
    ShowStatus(status, ColorGreen);
    if (!Ask(withPeakValley ? ReadingKind::AllActivePlus : ReadingKind::AllActive)) return;
    if (termEachItem_ == 1)
        ShowStatus("Only Item 1 displayed because Termination after each item set.", ColorGreen);
    ShowValues(withPeakValley);
}

// False where there is nothing to show: the line failed, whether in a wait or in the exchange itself, or the
// view was left meanwhile. A meter that does not answer is no failure here: required, so the last good reply
// of any command is shown again.
bool CommandsView::Ask(ReadingKind kind) {
    const int opening = opening_;
    ReadSingle(Program.Link, kind);
    if (opening != opening_) return false;
    if (!Program.LinkState.PortFault && LineHolds(Program.Link)) return true;
    ShowStatus(kCommunicationsFailure, ColorRed);
    return false;
}

void CommandsView::ShowValues(bool withPeakValley) {
    SplitLine split = SplitActiveItems(Program.LinkState.RawReply, withPeakValley);
    Program.LinkState.RawReply = split.Rest;
    picItem1.Text = split.Values[1];
    picItem2.Text = split.Values[2];
    picItem3.Text = split.Values[3];
    if (withPeakValley) {
        picPeak.Text = split.Values[kPeak];
        picValley.Text = split.Values[kValley];
    }
    Controls.TellChanged();
}

void CommandsView::ClearFields() {
    for (Control* field : {&picItem1, &picItem2, &picItem3, &picPeak, &picValley}) field->Text.clear();
}

void CommandsView::OpenCurve() {
    if (Program.LinkState.SerialProtocol != Protocol::CustomAscii) {
        Program.Dialogs.Show({"", "Cannot send the custom curve file when using the Modbus protocol."});
    } else if (OpenSendCurve) {
        OpenSendCurve();
    }
}

void CommandsView::ShowStatus(const std::string& text, Color color) {
    lblErrText.Caption = text;
    lblErrText.TextColor = color;
    lblErrText.Visible = true;
    Controls.TellChanged();
}

}  // namespace counter
