// LinkError: how the last receive or transfer ended, as the number that users report.
#pragma once

#include <string>

namespace counter {

namespace LinkErrors {

inline constexpr int kGood = 0;
// 1..15 from a Modbus RTU meter: the low digit of its exception code. The transfers use some of the same
// numbers for replies of a wrong length.
inline constexpr int kIllegalFunction = 1;
inline constexpr int kIllegalAddress = 2;
inline constexpr int kIllegalValue = 3;

inline constexpr int kNodeNoReply = 20;       // node: nothing before the deadline
inline constexpr int kNoReply = 21;           // serial: no first character within 3000 ms
inline constexpr int kNoEcho = 22;            // the reply does not begin with the echo of what was sent
inline constexpr int kNoCarriageReturn = 23;  // Custom ASCII: no CR in the reply
inline constexpr int kCrc = 24;               // Modbus RTU: wrong check
inline constexpr int kNoLineFeed = 25;        // Modbus ASCII: no LF in the reply
inline constexpr int kLrc = 26;               // Modbus ASCII: wrong check
inline constexpr int kPortFault = 27;         // the port failed, the line or the node's connection went away
inline constexpr int kOtherTransaction = 27;  // node: the reply of another Modbus request

}  // namespace LinkErrors

// What a number of the receive (20 and above) means, for people; for others "reply of a wrong length, or the
// meter refused (exception n)".
std::string LinkErrorMeaning(int linkError);

}  // namespace counter
