#include "readings/trace_points.h"

#include <algorithm>

namespace counter {

namespace {

constexpr std::size_t kGroup = 4;

bool Lower(const TracePoint& a, const TracePoint& b) {
    return a.Value < b.Value;
}

}  // namespace

void TracePoints::Add(const TracePoint& point) {
    points_.push_back(point);
    if (points_.size() > kMost) Thin();
}

void TracePoints::Thin() {
    auto kept = points_.begin();
    for (std::size_t i = 0; i < points_.size(); i += kGroup) {
        const auto first = points_.begin() + static_cast<std::ptrdiff_t>(i);
        const auto end = first + static_cast<std::ptrdiff_t>(std::min(kGroup, points_.size() - i));
        const auto [low, high] = std::minmax_element(first, end, Lower);
        const TracePoint earlier = *std::min(low, high);
        const TracePoint later = *std::max(low, high);
        *kept++ = earlier;
        if (low != high) *kept++ = later;
    }
    points_.erase(kept, points_.end());
}

void TracePoints::DropBefore(double seconds) {
    const auto stays = std::find_if(points_.begin(), points_.end(),
                                    [seconds](const TracePoint& p) { return p.Seconds >= seconds; });
    if (stays - points_.begin() > 1) points_.erase(points_.begin(), stays - 1);
}

std::size_t TracePoints::Nearest(double seconds) const {
    const auto after = std::lower_bound(points_.begin(), points_.end(), seconds,
                                        [](const TracePoint& p, double time) { return p.Seconds < time; });
    const auto place = static_cast<std::size_t>(after - points_.begin());
    if (place == 0) return 0;
    if (place == points_.size()) return place - 1;
    return after->Seconds - seconds < seconds - (after - 1)->Seconds ? place : place - 1;
}

}  // namespace counter
