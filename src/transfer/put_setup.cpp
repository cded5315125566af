#include "transfer/put_setup.h"

#include <algorithm>
#include <string>

#include "link/exchange.h"
#include "link/link_error.h"
#include "link/modbus_reply.h"
#include "link/waits.h"
#include "meter/field_value.h"
#include "meter/firmware.h"
#include "transfer/put_frames.h"

namespace counter {

namespace {

constexpr int kAnswerDigits = 12;  // address, function, first register, count
constexpr int kBeforeResetMs = 1500;
// The Display Type and the Mode are the first digits of their bytes.
const int kDisplayTypePos = RowOf(Field::DisplayType).Pos;
const int kModePos = RowOf(Field::Mode).Pos;

// The meter itself writes the digit as a capital.
bool IsRemoteC(const SetupImage& image) {
    return DigitsGet(image, kDisplayTypePos, 1) == "C";
}

// The Modes of a board lie four apart, by the number of the board; none counts as the dual board.
int BoardOfMode(int mode) {
    return std::max<int>(mode / 4, InputBoard::DualSigCond);
}

// Stops the reading stream first. Returns the Mode digit of the meter, -1 where none came.
int AskBoardAscii(Link& link) {
    SendAscii(link, "A1");
    LinkDelay(link, 300);
    link.State.RawReply.clear();
    AskAscii(link, "G12D");
    if (link.State.LinkError != 0) return -1;
    if (link.State.RawReply.size() == 2) return HexDigitGet({link.State.RawReply}, 1);
    link.State.PortFault = true;
    return -1;
}

int AskBoardModbus(Link& link) {
    AskModbus(link, "0300450001");
    if (link.State.LinkError != 0) return -1;
    // The length is that of RTU also over Modbus ASCII, whose answer never has it: required.
    const std::size_t wanted = link.State.EthernetMode ? 10 : 14;
    if (!ReplyAnswers(link.State, wanted)) {
        link.State.Fail(LinkErrors::kBoardAnswer, ErrorSource::PutModbus);
        return -1;
    }
    const int mode = HexDigitGet({link.State.ReplyText}, 9);
    LinkDelay(link, link.State.BaudIndex == 0 ? 0 : 1000);
    return mode;
}

bool WriteBlock(SetupTransfer& transfer, const AsciiWrite& write) {
    Link& link = transfer.Line;
    if (write.PauseMs > 0) LinkDelay(link, write.PauseMs);
    const std::string body = write.Command + AsciiData(transfer.Image, write) + "Z";
    if (!SendAscii(link, body, [&] { return transfer.GivesUp(); })) return false;
    if (!LineHolds(link)) return false;
    link.State.FramesWritten.emplace_back(write.Command);
    transfer.ProgressTo(write.Percent);
    return true;
}

double PutPauseMs(const LinkState& link) {
    if (link.EthernetMode && link.BaudIndex == 0) return 0;
    return link.BaudIndex == 1 ? 600 : 1000;
}

bool WriteRow(SetupTransfer& transfer, const ModbusWrite& write) {
    Link& link = transfer.Line;
    const std::string payload = write.Head + ModbusData(transfer.Image, write);
    LinkDelay(link, PutPauseMs(link.State));
    if (transfer.IsSuperseded()) return false;
    transfer.ProgressTo(write.Percent);
    link.State.ModbusPayload = payload;
    if (!SendCommand(link, [&] { return transfer.GivesUp(); })) return false;
    link.State.FramesWritten.push_back(FrameName(write));
    ReceiveReply(link);
    const auto wanted = static_cast<std::size_t>(kAnswerDigits + ModbusExtraDigits(link.State));
    if (link.State.LinkError == 0 && !ReplyAnswers(link.State, wanted))
        link.State.Fail(write.Step, ErrorSource::PutModbus);
    return link.State.LinkError == 0;
}

// At 4800 baud and above the node is told before the first write and after the last.
void TellNode(Link& link, bool on) {
    constexpr int kFastBaud = 4;
    if (link.State.EthernetMode && link.State.BaudIndex >= kFastBaud) link.Node->SendNodeCommand(on);
}

}  // namespace

BoardCheck CheckMeterBoard(SetupTransfer& transfer) {
    Link& link = transfer.Line;
    const int mode = link.State.ModbusLink ? AskBoardModbus(link) : AskBoardAscii(link);
    if (mode < 0) return {};
    BoardCheck check{true, BoardOfMode(mode), BoardOfMode(HexDigitGet(transfer.Image, kModePos))};
    if (IsRemoteC(transfer.Image)) check.ImageBoard = check.MeterBoard;
    return check;
}

void PutSetupAscii(SetupTransfer& transfer) {
    Link& link = transfer.Line;
    transfer.Image.SetupData.resize(kImageDigits, '0');
    if (IsRemoteC(transfer.Image)) DigitsPut(transfer.Image, kModePos, "00");
    if (link.State.LinkError != 0) return;
    for (const AsciiWrite& write : link.State.EthernetMode ? NodeWrites() : SerialWrites()) {
        if (!WriteBlock(transfer, write)) return;
    }
    LinkDelay(link, kBeforeResetMs);
    // The setup is in the meter whole: only a later one may keep the reset from it.
    link.State.CommandText = std::string("|*") + link.State.MeterAddressChar + "C0";
    if (!SendCommand(link, [&] { return transfer.IsSuperseded(); })) return;
    if (LineHolds(link)) link.State.FramesWritten.emplace_back("C0");
}

Status PutSetupModbus(SetupTransfer& transfer, const BringUp& bringUp) {
    SetupImage& image = transfer.Image;
    transfer.Line.State.ReplyText.clear();
    // A meter that was told the address 0 would never answer again.
    if (FieldDigits(image, Field::ModbusAddress) == "00") PutCode(image, Field::ModbusAddress, 1);
    TellNode(transfer.Line, true);
    for (const ModbusWrite& write : ModbusWrites()) {
        if (write.NeedsCutoffRegister && !ModbusTakesCutoffValue(transfer.Identity.FirmwareVersion)) continue;
        if (write.Data.front().Position == kDisplayTypePos && IsRemoteC(image))
            DigitsPut(image, kDisplayTypePos, std::to_string(DisplayType::RemoteS));
        if (WriteRow(transfer, write)) continue;
        // A later Put tells the node by itself; one that failed leaves it as it is.
        if (transfer.WasCalledOff()) TellNode(transfer.Line, false);
        return {};
    }
    if (transfer.IsSuperseded()) return {};
    transfer.Line.State.ModbusAddressHex = FieldDigits(image, Field::ModbusAddress);
    Status saved = SaveLinkSettings(image, bringUp);
    TellNode(transfer.Line, false);  // by the baud rate that the settings now name: required
    return saved;
}

}  // namespace counter
