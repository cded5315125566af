// LinkError: how the last receive or transfer ended, as the number that users report. Every number is named
// here, and has its words here.
//
// 20 and above come of the line and always mean the same. Those below are of what was being done: the same
// number means one thing to a Get and another to a Put.
#pragma once

#include <string>

namespace counter {

namespace LinkErrors {

inline constexpr int kGood = 0;

// The meter refuses, told by Modbus RTU alone: the low digit of its exception code, 1..15.
inline constexpr int kIllegalFunction = 1;
inline constexpr int kIllegalAddress = 2;
inline constexpr int kIllegalValue = 3;

// Get Setup over Custom ASCII, a reply of a wrong length.
inline constexpr int kFirstBlock = 1;
inline constexpr int kSecondBlock = 4;
inline constexpr int kThirdBlock = 7;
inline constexpr int kBoardByte = 8;
inline constexpr int kRelayByte = 9;
inline constexpr int kExtendedByte = 10;
inline constexpr int kAnalogByte = 11;

// Get Setup over Modbus, by the first register.
inline constexpr int kLineTest = 1;
inline constexpr int kGet0001 = 1;
inline constexpr int kGet0011 = 4;
inline constexpr int kGet0025 = 7;
inline constexpr int kGet0041 = 10;
inline constexpr int kGet004C = 11;
inline constexpr int kGet0064 = 14;

// Put Setup over Modbus, by the first register, and the question for the board before it.
inline constexpr int kPut0001 = 1;
inline constexpr int kPut0011 = 4;
inline constexpr int kPut0021 = 7;
inline constexpr int kPut003A = 10;
inline constexpr int kPut004D = 11;
inline constexpr int kPut0041 = 14;
inline constexpr int kBoardAnswer = 16;

inline constexpr int kReadingLength = 1;  // a single reading; also a text that is no value

// Calibration.
inline constexpr int kScaleLength = 1;     // of what is read first
inline constexpr int kExponentLength = 2;  // or of the calibration factor
inline constexpr int kNotKept = 3;         // other words come back than were written
inline constexpr int kNoMeasurement = 4;   // a reading that no correction can come of

// Custom curve: other digits come back than were sent.
inline constexpr int kUpperBlock = 1;  // of the second item
inline constexpr int kLowerBlock = 2;  // of the first

// The line.
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

// What a number below 20 is of.
enum class ErrorSource { Unknown, Refusal, GetAscii, GetModbus, PutModbus, Reading, Calibration, Curve };

// What was done in the step whose number `step` is: "third block". Empty where there is none.
std::string LinkStepName(int step, ErrorSource source);

// The number in words, for people: "third block: wrong length".
std::string LinkErrorMeaning(int linkError, ErrorSource source = ErrorSource::Unknown);

// What to try first: "compare the baud rate", "is the meter on". As docs/when-something-fails.md has it,
// which goes on from there.
std::string FirstToTry(int linkError, ErrorSource source = ErrorSource::Unknown);

}  // namespace counter
