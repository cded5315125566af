#include <cstdlib>
#include <string>

#include "link/exchange.h"
#include "link/link_error.h"
#include "link/waits.h"
#include "meter/firmware.h"
#include "transfer/get_setup.h"

namespace counter {

namespace {

// Asks and tests the length, the only proof of a good reply.
bool Ask(Link& link, const char* command, std::size_t length, int step) {
    AskAscii(link, command);
    if (link.State.LinkError == 0 && link.State.ReplyText.size() != length)
        link.State.Fail(step, ErrorSource::GetAscii);
    return link.State.LinkError == 0;
}

void WakeUp(Link& link) {
    if (link.State.EthernetMode == 1) return;
    link.State.CommandText = link.State.LongWakeUp == 1 ? "|************|" : "|**|";
    SendCommand(link);
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
    if (!Ask(link, "XR1AZ", 108, LinkErrors::kFirstBlock)) return false;
    data = link.State.ReplyText;
    PauseAfterBlock(transfer);
    transfer.ProgressTo(30);
    if (!Ask(link, "XR35Z", 108, LinkErrors::kSecondBlock)) return false;
    const std::string end = link.State.ReplyText.substr(0, 12);
    data += link.State.ReplyText.substr(12);
    PauseAfterBlock(transfer);
    transfer.ProgressTo(60);
    if (!Ask(link, "XB74Z", 44, LinkErrors::kThirdBlock)) return false;
    data += link.State.ReplyText + end;
    PauseAfterBlock(transfer);
    return true;
}

void TakeIdentity(SetupTransfer& transfer) {
    MeterIdentity& identity = transfer.Identity;
    if (identity.NoPanelModel == 1 && AlwaysHalfDuplexWithoutPanel(identity.FirmwareVersion)) {
        BitsPut(transfer.Image, 7, 7, 187, 1);
    }
    transfer.ProgressTo(90);
    identity.MeterType = ByteGet(transfer.Image, 235);
    identity.FirmwareVersion = ByteGet(transfer.Image, 233);
}

// Version 78 shows a two-relay board as a four-relay one; bit 2 of byte 0x2B tells them apart. A byte that
// never came leaves the reply before it standing, and that is what is looked at.
bool GetRelayBoard(SetupTransfer& transfer) {
    const int relayCode = BitsGet(transfer.Image, 6, 5, 193);
    if (relayCode == 0 || relayCode == 2 || !AsksRelayByte(transfer.Identity.FirmwareVersion)) return true;
    Link& link = transfer.Line;
    LinkDelay(link, 200);
    AskAscii(link, "G12B");
    if (link.State.PortFault != 0) return false;
    if (link.State.ReplyText.size() != 2) {
        link.State.Fail(LinkErrors::kRelayByte, ErrorSource::GetAscii);
        return false;
    }
    const SetupImage reply{link.State.ReplyText};
    if (BitsGet(reply, 2, 2, 1) == 0) BytePut(transfer.Image, 193, ByteGet(transfer.Image, 193) | 0x40);
    return true;
}

bool GetExtendedOption(SetupTransfer& transfer) {
    Link& link = transfer.Line;
    transfer.ProgressTo(100);
    LinkDelay(link, 200);
    if (!Ask(link, "G128", 2, LinkErrors::kExtendedByte)) return false;
    const SetupImage reply{link.State.ReplyText};
    transfer.Derived.ExtendedMeter = BitsGet(reply, 7, 7, 1);
    if (transfer.Derived.ExtendedMeter == 0) BitsPut(transfer.Image, 3, 2, 185, 0);
    return true;
}

bool GetAnalogBoard(SetupTransfer& transfer) {
    if (!AsksAnalogByte(transfer.Identity.FirmwareVersion)) return true;
    Link& link = transfer.Line;
    if (!Ask(link, "R141", 2, LinkErrors::kAnalogByte)) return false;
    BitsPut(transfer.Image, 7, 0, 143, std::atoi(link.State.ReplyText.c_str()));
    return true;
}

// The bytes that the meter keeps apart from its setup words.
bool GetLiveBytes(SetupTransfer& transfer) {
    if (!Ask(transfer.Line, "G130", 2, LinkErrors::kBoardByte)) return false;
    DigitsPut(transfer.Image, 193, transfer.Line.State.ReplyText);
    return GetRelayBoard(transfer) && GetExtendedOption(transfer) && GetAnalogBoard(transfer);
}

// A meter without an input board is a remote display, and talking to it has made a "Remote C" one "Remote A".
void SettleRemoteDisplay(SetupImage& image) {
    if (BitsGet(image, 2, 0, 193) == 0 && HexDigitGet(image, 185) < 6) DigitsPut(image, 185, "6");
}

}  // namespace

void GetSetupAscii(SetupTransfer& transfer) {
    transfer.Line.State.PortFault = 0;  // one of an exchange before must not cut this Get short
    transfer.ProgressTo(6);
    WakeUp(transfer.Line);
    LinkDelay(transfer.Line, 300);
    if (!GetBlocks(transfer)) return;
    TakeIdentity(transfer);
    if (!GetLiveBytes(transfer)) return;
    SendAscii(transfer.Line, "C0");
    BitsPut(transfer.Image, 3, 2, 109, transfer.Line.State.SerialProtocol);
    SettleRemoteDisplay(transfer.Image);
}

}  // namespace counter
