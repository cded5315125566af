// AutoScale: the scale by which the latest readings fill a chart, in round numbers.
#pragma once

#include <deque>
#include <optional>
#include <string>

namespace counter {

// The latest readings of a view, as many as tell what a chart of the next ones has to span.
class RecentReadings {
  public:
    static constexpr std::size_t kMost = 1000;
    // `decimals`: digits after the point as the meter sent them.
    void Add(double value, int decimals);
    void Clear() { *this = {}; }
    bool Empty() const { return values_.empty(); }
    double Smallest() const;
    double Largest() const;
    int Decimals() const { return decimals_; }

  private:
    std::deque<double> values_;
    int decimals_ = 0;
};

// Texts for the entries of a scale.
struct ScaleNumbers {
    std::string Mid, Small;
};

// `divisions`: how many small divisions the readings are to take at most, of all that the chart has. The
// middle lies on a division that has a label, every fifth. Readings that are all alike get divisions of the
// meter's last digit. Nothing where there are no readings.
std::optional<ScaleNumbers> AutoScale(const RecentReadings& readings, int divisions);

}  // namespace counter
