// Frames of Modbus, on serial lines and towards the Ethernet node.
//
// RTU:   address, function, data, CRC low, CRC high; as bytes. Ends by silence.
// ASCII: ":", the same as hexadecimal digits, LRC as two digits, CR, LF.
// TCP:   transaction number (2), 00 00, length (2), address, function, data. Length counts what comes after.
// Published in "MODBUS over Serial Line, Specification and Implementation Guide V1.02"; this meter's
// firmware differs from it in one CRC table entry and in the LRC of a sum that is a multiple of 256.
#pragma once

#include <string>
#include <string_view>

#include "link/link_state.h"

namespace counter {

struct ModbusCheck {
    unsigned char A = 0xFF;  // comes first on the wire
    unsigned char B = 0xFF;
};

// CRC over `bytes` by the table method. Meters before version 81 have 0xC2 in entry 233 of the first table
// where the published value is 0xC1: `fixedTable` false takes theirs.
ModbusCheck ModbusCrc(std::string_view bytes, bool fixedTable);

// LRC of a text of hexadecimal digits, as two characters: 256 less the sum of its bytes modulo 256. A sum
// that is a multiple of 256 gives 256, written "G0". Required, odd as it is: the meter itself sends the true
// "00", so a reply of that kind fails.
std::string ModbusLrc(std::string_view digits);

// The frame of a request whose `digits` begin with the address.
std::string FrameRtu(std::string_view digits, bool fixedTable);
std::string FrameModbusAscii(std::string_view digits);
std::string FrameModbusTcp(std::string_view digits, int transactionId);

// The number of the next request: 65535 is followed by 1.
int NextTransaction(int transactionId);

// Check a received frame and set LinkError, RawReply and ReplyText (hexadecimal digits from the device
// address on, check field included). An RTU exception reply sets LinkError to the low digit of its code.
// Returns false when the reply failed and ReplyText is to stay untrimmed.
bool JudgeRtu(LinkState& link, std::string_view received);
bool JudgeModbusAscii(LinkState& link, std::string_view received);
// The node's reply carries no check field. One of another transaction is LinkError 27; neither length nor
// exceptions are looked at.
bool JudgeModbusTcp(LinkState& link, std::string_view received);

}  // namespace counter
