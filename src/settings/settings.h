// Settings.SSS: which meter is connected and how. Two lines of text, each ended by CR LF.
//
// Line 1, 22 characters (positions from 1):
//   1 MeterType   2 BaudIndex   3-4 CommPortNumber   5 SerialProtocol   6 ParityIndex   7 reserved
//   8 MeterAddressValue   9-11 ModbusAddress   12 LongWakeUp   13-15 FirmwareVersion   16 CommsEnabled
//   17 ProgramKind   18-22 reserved
// Line 2, 28 or 29 characters, the Ethernet node, in hexadecimal:
//   1-4 TcpPort   5-16 NodeAddress   17-20 NodeUdpPort   21-28 NodeIp   29 "1" once the program was ended
//
// This room parses and formats text; it opens nothing.
#pragma once

#include <array>
#include <string>
#include <string_view>

namespace counter {

inline constexpr const char* kSettingsFile = "Settings.SSS";
inline constexpr int kSettingsLine1Length = 22;
// Why a file with another baud digit can't be used.
inline constexpr const char* kBaudDigitReason = "the baud digit, position 2 of line 1, is none of 0 to 6";

// The line speeds by their index. Index 7 fits the three bits that the meter has for it but names no speed.
inline constexpr std::array<std::string_view, 8> BaudTable = {"300",  "600",  "1200",  "2400",
                                                              "4800", "9600", "19200", ""};

namespace Comms {
enum Code : int { NoLink = 0, Link = 1, EchoingLink = 2 };  // of a serial line
}

namespace ProgramKind {
enum Code : int { NoCalibration = 7, OtherProgram = 8 };  // any other: the whole program
}

struct SettingsLines {
    std::string SettingsLine1;
    std::string SettingsLine2;

    bool operator==(const SettingsLines&) const = default;
};

struct Settings {
    SettingsLines Lines;      // line 1 normalised to 22 characters
    SettingsLines FileLines;  // as they are in the file

    int MeterType = 0;          // MeterKind: 0..3, 5..8
    int BaudIndex = -1;         // 0..6 into BaudTable; -1 where the digit is none of them
    int CommPortNumber = 0;     // 0..99
    int SerialProtocol = 0;     // Protocol
    int ParityIndex = 0;        // Parity
    int MeterAddressValue = 0;  // 0..31
    int ModbusAddress = 1;      // 1..999
    int LongWakeUp = 0;         // 1: the long wake-up string; any other digit: the short one
    int FirmwareVersion = 0;    // 0..999
    int CommsEnabled = 0;       // Comms; a digit above those is a link too
    int ProgramKind = 0;        // 0..9

    int TcpPort = 0;          // this program's, for the node's call
    int NodeUdpPort = 0;      //
    std::string NodeAddress;  // 12 hexadecimal digits
    std::string NodeIp;       // dotted decimal

    // Derived.
    char MeterAddressChar = '0';    // "0".."9", "A".."V": the address as frames carry it
    std::string MeterAddressLabel;  // as the meter shows it: "0." for 16 and so on
    std::string ModbusAddressHex;   // two digits
    std::string MeterNameSuffix;    // " Counter" or " Counter Transmitter"
    bool EthernetMode = false;      // the meter is at a node
    bool ModbusLink = false;        // Modbus of either kind
};

// Splits the file's text into its two lines. A comma ends a line as well; what is missing is empty.
SettingsLines SplitSettings(std::string_view text);

// A line of 17 characters is of the old format and gets "10000"; then any line is filled with "0" or cut to
// 22 characters (only five are added: a shorter line stays shorter).
std::string NormaliseLine1(std::string_view line);

// Takes the fields over. What is no number counts as 0. An address above 31 leaves MeterAddressChar and
// MeterAddressLabel as they were.
void ParseSettings(const SettingsLines& fileLines, Settings& settings);

// Why no serial line can be set as these settings say, naming the digit; empty where all is legal.
std::string IllegalLine(const Settings& settings);

// Both lines as the file holds them.
std::string FormatSettings(const SettingsLines& lines);

// The character that means an address 0..31 in settings and frames.
char AddressChar(int address);

// `now` with the characters in which `to` differs from `from`, those beyond the end of `from` included.
SettingsLines WithChanges(const SettingsLines& from, const SettingsLines& to, SettingsLines now);

// Overwrites the characters from position `from`, counted from 1; a shorter line is filled with "0" first.
void SettingsPut(std::string& line, int from, std::string_view text);

}  // namespace counter
