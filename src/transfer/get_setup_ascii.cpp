#include <cstdlib>
#include <string>

#include "link/exchange.h"
#include "link/link_error.h"
#include "link/waits.h"
#include "meter/boards.h"
#include "meter/firmware.h"
#include "meter/hex_text.h"
#include "transfer/get_setup.h"

namespace counter {

namespace {

// Lengths alone prove a reply good. One that is right only because a digit too many was dropped from its end,
// that has other characters than digits, or that came with another, which may be the right one, is taken, and
// told.
void DoubtReply(SetupTransfer& transfer, int step) {
    const LinkState& state = transfer.Line.State;
    const bool digits = IsHexText(state.ReplyText);
    if (!transfer.Doubt.empty() || (digits && !state.ReplyWasOdd && !state.ReplyHadMore)) return;
    transfer.Doubt =
        LinkStepName(step, ErrorSource::GetAscii) + (!digits ? ": not all that came are hexadecimal digits"
                                                     : state.ReplyHadMore ? ": more than one reply came"
                                                                          : ": a digit too many came");
}

// One exchange. False: it was called off, before it or in one of its waits.
bool Exchange(SetupTransfer& transfer, const char* command) {
    if (transfer.GivesUp()) return false;
    if (!SendAscii(transfer.Line, command, [&] { return transfer.GivesUp(); })) return false;
    ReceiveReply(transfer.Line);
    return !transfer.GivesUp();
}

// Asks and tests the length, the only proof of a good reply.
bool Ask(SetupTransfer& transfer, const char* command, std::size_t length, int step) {
    Link& link = transfer.Line;
    if (!Exchange(transfer, command) || link.State.LinkError != 0) return false;
    if (link.State.ReplyText.size() != length) {
        link.State.Fail(step, ErrorSource::GetAscii);
        return false;
    }
    DoubtReply(transfer, step);
    return true;
}

// False: it was called off before anything was sent.
bool WakeUp(SetupTransfer& transfer) {
    Link& link = transfer.Line;
    if (link.State.EthernetMode) return !transfer.GivesUp();
    link.State.CommandText = link.State.LongWakeUp ? "|************|" : "|**|";
    return SendCommand(link, [&] { return transfer.GivesUp(); });
}

void PauseAfterBlock(SetupTransfer& transfer) {
    if (!NeedsPauseAfterBlock(transfer.Identity.FirmwareVersion)) return;
    WaitForInput(transfer.Line);
    LinkDelay(transfer.Line, 1500);
}

// The three blocks, joined in the order of the image: the first 12 digits of the second block are its end.
bool GetBlocks(SetupTransfer& transfer) {
    Link& link = transfer.Line;
    std::string& data = transfer.Image.SetupData;
    if (!Ask(transfer, "XR1AZ", 108, LinkErrors::kFirstBlock)) return false;
    data = link.State.ReplyText;
    PauseAfterBlock(transfer);
    transfer.ProgressTo(30);
    if (!Ask(transfer, "XR35Z", 108, LinkErrors::kSecondBlock)) return false;
    const std::string end = link.State.ReplyText.substr(0, 12);
    data += link.State.ReplyText.substr(12);
    PauseAfterBlock(transfer);
    transfer.ProgressTo(60);
    if (!Ask(transfer, "XB74Z", 44, LinkErrors::kThirdBlock)) return false;
    data += link.State.ReplyText + end;
    PauseAfterBlock(transfer);
    return true;
}

void TakeIdentity(SetupTransfer& transfer) {
    MeterIdentity& identity = transfer.Identity;
    AmendHalfDuplex(transfer);
    transfer.ProgressTo(90);
    identity.MeterType = CodeOf(transfer.Image, Field::MeterType);
    identity.FirmwareVersion = CodeOf(transfer.Image, Field::FirmwareVersion);
}

// Version 78 shows a two-relay board as a four-relay one; bit 2 of byte 0x2B tells them apart. A byte that
// never came leaves the reply before it in place, and that is what is looked at.
bool GetRelayBoard(SetupTransfer& transfer) {
    constexpr int kTwoRelays = 2;  // stored code
    const int board = CodeOf(transfer.Image, Field::RelayOption);
    if (board == 0 || board == kTwoRelays || !AsksRelayByte(transfer.Identity.FirmwareVersion)) return true;
    Link& link = transfer.Line;
    LinkDelay(link, 200);
    if (!Exchange(transfer, "G12B") || link.State.PortFault) return false;
    if (link.State.ReplyText.size() != 2) {
        link.State.Fail(LinkErrors::kRelayByte, ErrorSource::GetAscii);
        return false;
    }
    const SetupImage reply{link.State.ReplyText};
    if (BitsGet(reply, 2, 2, 1) == 0) PutCode(transfer.Image, Field::RelayOption, board | kTwoRelays);
    return true;
}

bool GetExtendedOption(SetupTransfer& transfer) {
    Link& link = transfer.Line;
    transfer.ProgressTo(100);
    LinkDelay(link, 200);
    if (!Ask(transfer, "G128", 2, LinkErrors::kExtendedByte)) return false;
    const SetupImage reply{link.State.ReplyText};
    transfer.Derived.ExtendedMeter = BitsGet(reply, 7, 7, 1) == 1;
    if (!transfer.Derived.ExtendedMeter) PutCode(transfer.Image, Field::ClassAndCurve, 0);
    return true;
}

bool GetAnalogBoard(SetupTransfer& transfer) {
    if (!AsksAnalogByte(transfer.Identity.FirmwareVersion)) return true;
    Link& link = transfer.Line;
    if (!Ask(transfer, "R141", 2, LinkErrors::kAnalogByte)) return false;
    PutCode(transfer.Image, Field::AnalogOption, std::atoi(link.State.ReplyText.c_str()));
    return true;
}

constexpr int kOptionBoardsPos = 193;

// The bytes that the meter keeps apart from its setup words.
bool GetLiveBytes(SetupTransfer& transfer) {
    if (!Ask(transfer, "G130", 2, LinkErrors::kBoardByte)) return false;
    DigitsPut(transfer.Image, kOptionBoardsPos, transfer.Line.State.ReplyText);
    return GetRelayBoard(transfer) && GetExtendedOption(transfer) && GetAnalogBoard(transfer);
}

// A meter without an input board is a remote display, and talking to it has made a "Remote C" one "Remote A".
void SettleRemoteDisplay(SetupImage& image) {
    const int pos = RowOf(Field::DisplayType).Pos;
    const bool remote = IsRemoteDisplay(HexDigitGet(image, pos));
    if (InputOptionFromSetup(image) == InputBoard::None && !remote)
        DigitsPut(image, pos, std::to_string(DisplayType::RemoteA));
}

bool GetAll(SetupTransfer& transfer) {
    if (!GetBlocks(transfer)) return false;
    TakeIdentity(transfer);
    return GetLiveBytes(transfer);
}

}  // namespace

void GetSetupAscii(SetupTransfer& transfer) {
    transfer.Line.State.PortFault = false;  // one of an exchange before must not cut this Get short
    transfer.ProgressTo(6);
    if (!WakeUp(transfer)) return;
    LinkDelay(transfer.Line, 300);
    const bool whole = GetAll(transfer);
    // A meter that nobody asks any more would stay as it was woken.
    if (whole || transfer.GaveUp) SendAscii(transfer.Line, "C0");
    if (!whole) return;
    PutCode(transfer.Image, Field::SerialProtocol, transfer.Line.State.SerialProtocol);
    SettleRemoteDisplay(transfer.Image);
}

}  // namespace counter
