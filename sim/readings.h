// Readings: the values that the meter makes of what is applied to it, one measurement after the other.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "sim/item_plan.h"
#include "sim/options.h"

namespace sim {

// The calibration factor in parts per million, -32767 to 32767: the highest bit of the word is the sign.
int CalibrationPpmOf(const Memory& memory);

class Readings {
  public:
    // Without an error of its own the time base has the one that the calibration in `memory` makes good.
    Readings(const MeterOptions& options, const Memory& memory);

    // Takes over the scale of a setup, for the measurements to come: with a frequency applied and a plan that
    // shows it, Item 1 is the frequency by scale and offset 1, otherwise it is the signal.
    void Adopt(const Memory& memory, const ItemPlan& plan);
    // One measurement at `nowMs`; the signal begins at the first. Items 2 and 3 go with Item 1: Item 2 falls
    // while it climbs, Item 3 passes through zero.
    void Measure(double nowMs);
    // Raw counts of the latest measurement: the display's digits without the point.
    int Value(Reading which) const;

    // Peak or valley begin again with the next measurement; until then they are the latest.
    void ResetPeak() { peak_.reset(); }
    void ResetValley() { valley_.reset(); }
    // The signal begins again at the next measurement.
    void Restart() { beganMs_.reset(); }

  private:
    double ScaledFrequency(const Memory& memory) const;

    SignalOptions signal_;
    std::optional<double> frequencyHz_;
    double timebasePpm_;
    std::optional<int> rate_;  // Item 1, when it is the frequency
    std::optional<double> beganMs_;
    std::optional<int> peak_, valley_;
    int item1_ = 0;
    double base_ = 0;  // what Item 1 moves about
};

// Eight characters: blank or "-", then six digits with the point before the last `decimals` (0..5). Digits
// beyond the six are lost at the left.
std::string ValueText(int value, int decimals);

// A number sent from outside to the display or into Item 3.
struct RemoteValue {
    std::string Text;  // as it was sent; in Modbus the number in decimal
    int Count = 0;     // its digits without the point
    int Decimals = 0;  // 0..5

    bool operator==(const RemoteValue&) const = default;
};

// A sign, then digits with at most one point. The value ends at the first other character and after the
// fifth decimal; of more than six digits the last six count.
RemoteValue RemoteValueOf(std::string_view text);

}  // namespace sim
