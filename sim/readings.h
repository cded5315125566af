// Readings: a signal that moves, and the values that the meter makes of it.
#pragma once

#include <optional>
#include <string>

namespace sim {

enum class Reading { Item1, Item2, Item3, Peak, Valley };

class Readings {
  public:
    // The display's digits without the point. Item 1 climbs from 10000 to 12000 and back in 20 s, Item 2
    // falls while it climbs, Item 3 passes through zero. Peak and valley are those of Item 1 as far as it was
    // asked for.
    int Value(Reading which, double nowMs);
    // Peak or valley start again from the next reading.
    void ResetPeak() { peak_.reset(); }
    void ResetValley() { valley_.reset(); }

  private:
    std::optional<int> peak_, valley_;
};

// Eight characters: blank or "-", then six digits with the point before the last `decimals` (0..5).
std::string ValueText(int value, int decimals);

}  // namespace sim
