// Options: which meter is simulated, and how texts of a command line say it.
#pragma once

#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "sim/fault.h"
#include "sim/signal.h"

namespace sim {

enum class LineProtocol { CustomAscii = 0, ModbusRtu = 1, ModbusAscii = 2 };

// Which table the CRC of Modbus RTU runs through. Firmware of version 80 and below has one wrong entry (C2).
enum class CrcKind { Published, C2 };

struct ImagePatch {
    int Position = 1;  // 1..260, counted in digits
    std::string Digits;
};

// What is not set follows the image.
struct MeterOptions {
    std::string Image;  // 260 digits; empty means the default setup
    std::vector<ImagePatch> Patches;

    std::optional<int> Version;            // firmware, 0..255
    std::optional<int> Type;               // meter type, 0..255
    std::optional<LineProtocol> Protocol;  // put into the image, as the four below
    std::optional<int> Parity;             // 0 none, 1 odd, 2 even
    std::optional<int> BaudIndex;          // 0..6: 300, 600 ... 19200
    std::optional<int> Address;            // Custom ASCII, 0..31
    std::optional<int> ModbusAddress;      // 1..255

    // Boards that are fitted, whatever the image says.
    std::optional<int> InputBoard;   // 0 none, 1 dual signal conditioner, 2 V-F converter, 3 quadrature
    std::optional<int> CommBoard;    // 0 none, 1 RS232, 2 RS485
    std::optional<int> RelayBoard;   // code 0..3: 1 is four relays, 2 and 3 are two
    std::optional<int> AnalogBoard;  // 0..4
    std::optional<bool> Extended;
    std::map<int, int> LiveBytes;  // byte that a G command gives at an address, above all else

    CrcKind Crc = CrcKind::Published;
    double TurnaroundMs = 2;  // from the end of a command to the first byte of the reply
    bool StrictBaud = false;  // bytes leave one by one at the speed of the line
    std::vector<Fault> Faults;
    // Other meters are on the same line: faults strike, and count, what is for this meter alone.
    bool Shared = false;

    SignalOptions Signal;
    // Readings a second; nothing: as fast as the line takes them, a thousand at most.
    std::optional<double> RateHz = 20;
    // The true frequency at input A. Where a Mode and Function show its rate, it takes the signal's place.
    std::optional<double> FrequencyHz;
    // How much too high the time base makes readings, before calibration; follows the calibration at start,
    // so that a meter begins calibrated.
    std::optional<double> TimebasePpm;
};

// The default setup, 260 digits.
extern const char* const kDefaultImage;

// The image with patches and settings put in: what the meter holds at power-on. Digits of a patch beyond the
// end of the image are lost.
std::string StartImage(const MeterOptions& options);

// Why a setup that is read from this meter could not show its analog board; empty: it shows it.
std::string WhyNotAnalog(const MeterOptions& options);

// 300, 600 ... 19200 for index 0..6; nothing for another rate.
std::optional<int> BaudIndexOf(int rate);
// Index 7 names no rate; the meter then listens at 9600.
int BaudRateOf(int index);

// Each returns an empty text, or what is wrong and what is legal; `out` is then unchanged.
// "POSITION=DIGITS", such as "191=60".
std::string ParsePatch(std::string_view text, ImagePatch& out);
// "max", or readings a second, above 0 and not above 1000.
std::string ParseRate(std::string_view text, std::optional<double>& out);
// "ADDRESS=BYTE", both two hexadecimal digits, such as "2B=04".
std::string ParseLiveByte(std::string_view text, std::map<int, int>& out);

}  // namespace sim
