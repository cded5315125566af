// ReadingStatistics: what the readings of one run amount to, and whether they come.
//
// A run begins with Begin, which forgets everything, and is kept over a pause. Each reading is told with its
// time, in milliseconds of a clock that never goes back.
#pragma once

#include <array>
#include <deque>
#include <string>
#include <string_view>
#include <vector>

namespace counter {

// A frame carries up to three values.
inline constexpr int kMostItems = 3;

enum class RunState {
    Stopped,   // no run: before the first, in a scale entry, after the end; figures are the last run's
    Starting,  // no reading of the run has come
    Running,
    Silent,  // readings should come and none has, for longer than is usual
    Paused,
    Full,  // the chart's time is over
};

// The state in words, "Running".
std::string_view WordOf(RunState state);

// What holds a run up.
enum class RunHold { None, Paused, Full };

// What the values of one item amount to; all 0 without a value.
class ItemFigures {
  public:
    // `decimals`: digits after the point as the meter sent them.
    void Add(double value, int decimals);

    long long Count = 0;
    double Current = 0, Smallest = 0, Largest = 0, Mean = 0;
    int Decimals = 0;    // the most that the meter has sent
    bool Shows = false;  // whether the newest reading shows a number for this item
    // Standard deviation of a sample; 0 of fewer than two values.
    double Deviation() const;

  private:
    double squares_ = 0;  // sum of the squared distances from the mean
};

class ReadingStatistics {
  public:
    void Begin(double nowMs);
    void End() { began_ = false; }
    // Readings come again: the time of the pause counts neither as silence nor for the rate.
    void Continue(double nowMs);
    // Everything as before the first run.
    void Forget() { *this = {}; }

    // One reading, as ItemsOf cuts it: an item that shows no number, an empty text, has no value.
    void Take(const std::vector<std::string>& items, double nowMs);
    // A histogram tells of a reading that lies beyond its bars.
    void CountOutside(bool below) { ++(below ? Below : Above); }

    RunState StateAt(double nowMs, RunHold hold) const;
    // Since the last reading, or since the run began or went on; whole seconds.
    long long SilentSeconds(double nowMs) const;
    // Readings a second over the last five seconds, or between the last two where they are slower. 0 of fewer
    // than two.
    double Rate() const;

    // item 1..3
    const ItemFigures& Of(int item) const { return items_.at(static_cast<std::size_t>(item) - 1); }
    // The most items that a frame of the run had; 0 before the first.
    int ItemsSeen() const { return itemsSeen_; }
    long long Readings = 0;          // with a number or without
    long long Below = 0, Above = 0;  // readings beyond the bars of a histogram

  private:
    // Readings that came within a tenth of a second.
    struct Arrivals {
        double FirstMs;
        long long Count;
    };
    void CountArrival(double nowMs);

    bool began_ = false;
    double heardMs_ = 0;  // the last reading, the beginning, or the end of a pause
    int itemsSeen_ = 0;
    std::array<ItemFigures, kMostItems> items_;
    std::deque<Arrivals> arrivals_;
};

}  // namespace counter
