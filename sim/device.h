// Device: the meter without its line. Memory, boards, readings, alarms, resets; both protocols work on it.
#pragma once

#include <array>
#include <map>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "sim/alarms.h"
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

    int Version() const { return memory_.Bits(233, 7, 0); }

    // Makes the measurements that are due up to `nowMs`. The first is made at the first call: there the meter
    // is switched on. Values below are those of the latest measurement.
    void Follow(double nowMs);
    double ReadingIntervalMs() const { return readingIntervalMs_; }
    // The raw count of a reading, without the point; Item 3 may be one that was sent from outside.
    int Value(Reading which) const;
    // Each value of command B0..B7, eight characters; none for a character but '0'..'7'.
    std::vector<std::string> Values(char which) const;
    // The answer to that command without the end of its last line: all values in one line. With an end to
    // each value there is a line for each, but of all active values (B0) Item 1 alone.
    std::string ValueLines(char which) const;
    bool EndOfEach() const { return (LiveByte(0x33) & 0x08) != 0; }
    bool HasLineFeed() const { return (LiveByte(0x32) & 0x80) != 0; }
    // What ends a reply: CR, or CR LF when the setup says so.
    std::string LineEnd() const { return HasLineFeed() ? "\r\n" : "\r"; }
    // 1 to 3, never above what the Mode and Function have.
    int DisplayedItem() const;
    const std::array<bool, 4>& AlarmsOn() const { return alarms_.On(); }
    // 0, 2 or 4: as many as there are relays.
    int FittedAlarms() const;

    // A remote display shows what it is sent and transmits nothing of its own.
    bool IsRemoteDisplay() const { return memory_.Bits(185, 7, 4) >= 6; }
    // Continuous output, on and off.
    void Transmit(bool on) { transmitting_ = on && !IsRemoteDisplay(); }
    bool Transmitting() const { return transmitting_; }

    // Values sent from outside. A Mode and Function with three Items has no Item 3 to spare and ignores it.
    void ShowRemote(const RemoteValue& value) { remoteShown_ = value; }
    void SetRemoteItem3(const RemoteValue& value);
    const std::optional<RemoteValue>& RemoteShown() const { return remoteShown_; }
    const std::optional<RemoteValue>& RemoteItem3() const { return remoteItem3_; }
    // The number of a Modbus write as a value, with the first decimal point of the setup.
    RemoteValue RemoteValueOfCount(int count) const;

    // Resets, numbered as the coils of Modbus: 1 meter (all the others, the end of continuous output and the
    // line settings), 2 function (the signal begins again), 3 latched alarms, 4 peak, 5 valley, 6 remote
    // display.
    void Reset(int coil);
    // The line settings of the memory are to become active. Told once.
    void RequestLine() { lineRequested_ = true; }
    bool TakeLineRequest() { return std::exchange(lineRequested_, false); }

  private:
    ItemPlan Plan() const { return ItemPlanOf(BoardByte()); }
    void AdoptSetup();
    void Measure(double nowMs);
    std::string ValueTextOf(Reading which) const;
    int BoardByte() const;
    int OptionByte() const;

    Memory memory_;
    std::optional<int> inputBoard_, commBoard_, relayBoard_, analogBoard_;
    std::optional<bool> extended_;
    std::map<int, int> liveBytes_;
    Readings readings_;
    Alarms alarms_;
    AlarmSetups alarmSetups_;
    std::optional<std::uint64_t> adoptedChanges_;  // of the memory, when the setup was last adopted
    double readingIntervalMs_;
    std::optional<double> nextReadingMs_;
    std::optional<RemoteValue> remoteShown_, remoteItem3_;
    bool transmitting_ = false;
    bool lineRequested_ = false;
};

}  // namespace sim
