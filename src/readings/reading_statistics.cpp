#include "readings/reading_statistics.h"

#include <algorithm>
#include <cmath>

#include "meter/leading_number.h"

namespace counter {

namespace {

constexpr double kRateMs = 5000;  // how far back the rate looks
constexpr double kTogetherMs = 100;
// A meter that sends once in a gate time of 20 seconds isn't silent in between, so silence is what is longer
// than both.
constexpr double kSilentMs = 3000;
constexpr double kSilentIntervals = 3;

int DecimalsOf(const std::string& number) {
    const std::size_t point = number.find('.');
    if (point == std::string::npos) return 0;
    const std::size_t end = std::min(number.find('E'), number.size());
    return static_cast<int>(end - point - 1);
}

}  // namespace

std::string_view WordOf(RunState state) {
    switch (state) {
        case RunState::Stopped:
            return "Stopped";
        case RunState::Starting:
            return "Starting";
        case RunState::Running:
            return "Running";
        case RunState::Silent:
            return "No readings come";
        case RunState::Paused:
            return "Paused";
        case RunState::Full:
            return "Full";
    }
    return {};
}

// By Welford: sums of squares would lose all digits of a small deviation of large values.
void ItemFigures::Add(double value, int decimals) {
    ++Count;
    Current = value;
    Smallest = Count == 1 ? value : std::min(Smallest, value);
    Largest = Count == 1 ? value : std::max(Largest, value);
    Decimals = std::max(Decimals, decimals);
    const double distance = value - Mean;
    Mean += distance / static_cast<double>(Count);
    squares_ += distance * (value - Mean);
}

double ItemFigures::Deviation() const {
    return Count < 2 ? 0 : std::sqrt(squares_ / static_cast<double>(Count - 1));
}

void ReadingStatistics::Begin(double nowMs) {
    Forget();
    began_ = true;
    heardMs_ = nowMs;
}

void ReadingStatistics::Continue(double nowMs) {
    arrivals_.clear();
    heardMs_ = nowMs;
}

// A number that no double holds has no place among the others.
void ReadingStatistics::Take(const std::vector<std::string>& items, double nowMs) {
    ++Readings;
    heardMs_ = nowMs;
    CountArrival(nowMs);
    const std::size_t count = std::min(items.size(), items_.size());
    itemsSeen_ = std::max(itemsSeen_, static_cast<int>(count));
    for (std::size_t i = 0; i < items_.size(); ++i) {
        const bool shows = i < count && !items[i].empty();
        const double value = shows ? LeadingNumber(items[i]) : 0;
        items_[i].Shows = shows && std::isfinite(value);
        if (items_[i].Shows) items_[i].Add(value, DecimalsOf(items[i]));
    }
}

void ReadingStatistics::CountArrival(double nowMs) {
    if (!arrivals_.empty() && nowMs - arrivals_.back().FirstMs < kTogetherMs) {
        ++arrivals_.back().Count;
        return;
    }
    arrivals_.push_back({nowMs, 1});
    while (arrivals_.size() > 2 && nowMs - arrivals_.front().FirstMs > kRateMs) arrivals_.pop_front();
}

// The readings of the newest tenth of a second are still coming, so the rate ends where it begins.
double ReadingStatistics::Rate() const {
    if (arrivals_.size() < 2) return 0;
    long long count = 0;
    for (const Arrivals& arrivals : arrivals_) count += arrivals.Count;
    const double ms = arrivals_.back().FirstMs - arrivals_.front().FirstMs;
    return static_cast<double>(count - arrivals_.back().Count) * 1000 / ms;
}

RunState ReadingStatistics::StateAt(double nowMs, RunHold hold) const {
    if (!began_) return RunState::Stopped;
    if (hold == RunHold::Full) return RunState::Full;
    if (hold == RunHold::Paused) return RunState::Paused;
    const double usualMs = Rate() > 0 ? 1000 / Rate() : 0;
    if (nowMs - heardMs_ >= std::max(kSilentMs, kSilentIntervals * usualMs)) return RunState::Silent;
    return Readings == 0 ? RunState::Starting : RunState::Running;
}

long long ReadingStatistics::SilentSeconds(double nowMs) const {
    return static_cast<long long>((nowMs - heardMs_) / 1000);
}

}  // namespace counter
