// Put Setup: the image into the meter.
//
// Over Custom ASCII nothing answers a write, so success is only "appears to have". Over Modbus every write is
// answered; a failed one stops the Put with the rows before it already in the meter. Nothing is rolled back.
#pragma once

#include "link/read_settings.h"
#include "platform/status.h"
#include "transfer/setup_transfer.h"

namespace counter {

struct BoardCheck {
    bool Compared = false;  // false where the exchange failed or answered in a wrong length
    int MeterBoard = 0;     // InputBoard
    int ImageBoard = 0;     // the same, of the setup to be written
};

// Asks the meter for its input board. An image for a "Remote C" display goes to any board. Over Custom ASCII
// the exchange's LinkError stops the Put that follows; over Modbus ASCII the answer is always taken for too
// short (LinkError 16, no comparison): required.
BoardCheck CheckMeterBoard(SetupTransfer& transfer);

// Fills or cuts the image to 260 digits; does nothing else where LinkError is not 0. A line that goes away
// meanwhile ends it with LinkError 27.
//
//   WR1A  positions 1..108              serial
//   W91A, W911  positions 1..36, 37..72  through the node; 73..108 do not reach the meter: required
//   W435  positions 249..260, 109..112
//   WG2A  positions 141..204
//   WB74  positions 205..248, after 2000 ms
//   |*C0  reset, after 1500 ms
void PutSetupAscii(SetupTransfer& transfer);

// Six writes, the fourth only above version 75; LinkError 1, 4, 7, 10, 11 or 14 for an answer of a wrong
// length. A Modbus address 0 becomes 1 in the image, a "Remote C" display becomes "Remote S". A good Put ends
// with SaveLinkSettings, whose status is returned. Through the node at 4800 baud and above (BaudIndex 4) the
// node gets a command before the first write and, unless the Put fails, another at the very end.
Status PutSetupModbus(SetupTransfer& transfer, const BringUp& bringUp);

// Line 1 of the settings as the image wants it: baud rate, protocol, parity, both addresses, duplex.
std::string LinkSettingsLine(const std::string& settingsLine1, const SetupImage& image);

// Brings Settings.SSS in line with what was put and, where that changes it, the port too: a meter told to go
// to a new baud rate is answered at that rate from then on.
Status SaveLinkSettings(const SetupImage& image, const BringUp& bringUp);

}  // namespace counter
