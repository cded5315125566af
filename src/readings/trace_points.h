// TracePoints: the readings that a trace was drawn of, for who looks closer.
#pragma once

#include <cstddef>
#include <vector>

namespace counter {

struct TracePoint {
    double Seconds = 0;
    double Value = 0;
    friend bool operator==(const TracePoint&, const TracePoint&) = default;
};

// Times go up. When there are more than kMost, of each four only the smallest and the largest stay, so that a
// long run needs no more memory and loses no peak.
class TracePoints {
  public:
    static constexpr std::size_t kMost = 16'000;
    void Clear() { points_.clear(); }
    void Add(const TracePoint& point);
    // All but the last one before `seconds` goes, from which a line leads on.
    void DropBefore(double seconds);
    const std::vector<TracePoint>& All() const { return points_; }
    // The place of the point that is nearest in time; 0 where there is none.
    std::size_t Nearest(double seconds) const;

  private:
    void Thin();
    std::vector<TracePoint> points_;
};

}  // namespace counter
