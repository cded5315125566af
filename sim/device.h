// Device: the meter without its line. Memory, boards, readings, resets; both protocols work on it.
#pragma once

#include <map>
#include <optional>
#include <string>
#include <utility>

#include "sim/memory.h"
#include "sim/options.h"
#include "sim/readings.h"

namespace sim {

struct LineSettings {
    LineProtocol Protocol = LineProtocol::CustomAscii;
    int BaudIndex = 5;      // 0..7
    int Baud = 9600;        // bits per second
    int Parity = 0;         // 0 none, 1 odd, 2 even; Custom ASCII has none
    int Address = 1;        // Custom ASCII, 0..31
    int ModbusAddress = 1;  // 0..255; a meter at 0 takes broadcasts and answers nothing

    bool operator==(const LineSettings&) const = default;
};

// As the memory holds them.
LineSettings LineSettingsOf(const Memory& memory);

class Device {
  public:
    explicit Device(const MeterOptions& options);

    Memory& Words() { return memory_; }
    const Memory& Words() const { return memory_; }

    // The byte of the working memory that a G command reads; 0 where nothing is known to live.
    int LiveByte(int address) const;
    // The byte at an image position as Modbus tells it: the memory's, but for what the fitted boards tell.
    int ToldByte(int position) const;
    int AnalogOption() const { return analogBoard_.value_or(memory_.Bits(143, 7, 0)); }

    // The raw count of a reading, without the point.
    int Value(Reading which, double nowMs) { return readings_.Value(which, nowMs); }
    // The lines that command B0..B7 gives, without the end of the last: one for all values, or one each when
    // the setup says so. `which` is '0'..'7'; empty for another character.
    std::string ValueLines(char which, double nowMs);
    // What ends a reply: CR, or CR LF when the setup says so.
    std::string LineEnd() const { return memory_.Bits(189, 7, 7) ? "\r\n" : "\r"; }

    // Resets, numbered as the coils of Modbus: 1 meter, 2 function, 3 latched alarms, 4 peak, 5 valley,
    // 6 remote display.
    void Reset(int coil);
    // The line settings of the memory are to become active. Told once.
    void RequestLine() { lineRequested_ = true; }
    bool TakeLineRequest() { return std::exchange(lineRequested_, false); }

  private:
    int BoardByte() const;
    int OptionByte() const;

    Memory memory_;
    Readings readings_;
    std::optional<int> inputBoard_, commBoard_, relayBoard_, analogBoard_;
    std::optional<bool> extended_;
    std::map<int, int> liveBytes_;
    bool lineRequested_ = false;
};

}  // namespace sim
