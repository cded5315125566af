// Alarms: which of the meter's four alarms are on, measurement by measurement.
//
// An alarm compares one Item with its setpoint. It comes on when the Item has been beyond it in as many
// readings running as the setup says, and goes off with the first reading that is not, unless it is latching.
// Deviations are not simulated.
#pragma once

#include <array>

#include "sim/item_plan.h"

namespace sim {

struct AlarmSetup {
    bool Enabled = false;  // fitted, and active high or low
    bool ActiveLow = false;
    bool Latching = false;
    int Setpoint = 0;  // counts
    Reading Source = Reading::Item1;
    int Readings = 1;  // as many beyond the setpoint: 1, 2, 4 ... 128
};
using AlarmSetups = std::array<AlarmSetup, 4>;

// Alarms 1 to `fitted` (0, 2 or 4, as there are relays) as the setup has them.
AlarmSetups AlarmSetupsOf(const Memory& memory, const ItemPlan& plan, int fitted);

class Alarms {
  public:
    // Judges one measurement: Items 1 to 3, in counts.
    void Judge(const AlarmSetups& setups, const std::array<int, 3>& items);
    // Lets go of alarms that were held on; what still holds comes on again with the next measurement.
    void ResetLatched();

    const std::array<bool, 4>& On() const { return on_; }

  private:
    std::array<bool, 4> on_{};
    std::array<int, 4> running_{};  // readings beyond the setpoint, one after the other
};

}  // namespace sim
