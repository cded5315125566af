// Single readings: the tool asks for one value, or for one line of them, and gets one reply.
//
//   Custom ASCII   B1                      the value as the meter shows it, point included
//   Modbus         function 04, register   two registers, high word first: a signed count without its point
#pragma once

#include <array>
#include <string_view>

#include "link/link.h"

namespace counter {

enum class ReadingKind { Item1, Item2, Item3, Peak, Valley, AllActive, AllActivePlus };

struct SingleReading {
    ReadingKind Kind;
    std::string_view AsciiCommand;   // after the head
    std::string_view ModbusPayload;  // empty: the meter has no such request
};

// clang-format off
inline constexpr std::array<SingleReading, 7> kSingleReadings = {{
    {ReadingKind::Item1,         "B1", "0400030002"},
    {ReadingKind::Item2,         "B2", "0400090002"},
    {ReadingKind::Item3,         "B3", "04000B0002"},
    {ReadingKind::Peak,          "B4", "0400050002"},
    {ReadingKind::Valley,        "B6", "0400070002"},
    {ReadingKind::AllActive,     "B0", ""},
    {ReadingKind::AllActivePlus, "B7", ""},
}};
// clang-format on

// Asks a Custom ASCII meter for a value; LinkError is 1 or 23 also for a text that can't be one, which is
// in ReplyText and RawReply as it came. 1 too where two replies came: nothing in them says what they answer.
void AskValue(Link& link, std::string_view command);

// Whether ReplyText is the count that the last Modbus request has asked for.
bool CountAnswers(const LinkState& link);

// Asks for a reading and leaves its text in RawReply; LinkError tells how the receive ended, 1 for a Modbus
// reply of another length or to another request and for no value, and whoever does not look at it shows what
// the last good reply left. One value is without blanks at its ends, but a Modbus count that is not negative
// has one in front. A line of values stays as it came, since its first character is the sign's place of its
// first value. Over Modbus, what has no request is not asked for.
void ReadSingle(Link& link, ReadingKind kind);

}  // namespace counter
