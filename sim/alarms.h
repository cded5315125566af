// Alarms: which of the meter's four alarms are on, measurement by measurement.
//
// An alarm compares one Item with its setpoint. It comes on when the Item has been beyond it in as many
// readings running as the setup says, and goes off with the first reading that is not, unless it is latching.
// Deviations are not simulated.
#pragma once

#include <array>
#include <functional>

#include "sim/item_plan.h"

namespace sim {

class Alarms {
  public:
    // Judges one measurement for alarms 1 to `fitted` (0, 2 or 4, as there are relays); the others are off.
    // `valueOf` gives an Item in counts.
    void Judge(const Memory& memory, const ItemPlan& plan, int fitted,
               const std::function<int(Reading)>& valueOf);
    // Lets go of alarms that were held on; what still holds comes on again with the next measurement.
    void ResetLatched();

    const std::array<bool, 4>& On() const { return on_; }

  private:
    std::array<bool, 4> on_{};
    std::array<int, 4> running_{};  // readings beyond the setpoint, one after the other
};

}  // namespace sim
