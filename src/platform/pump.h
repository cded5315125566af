// Pump: the clock, and the one way to wait.
//
// There is one thread. Whoever has to wait calls WaitUntil, which runs events (input, timers, what the
// user does) until a condition holds or a deadline is reached, and sleeps while there are none. Waits
// nest: an event may start an action that waits itself; the outer wait goes on when the inner is done.
#pragma once

#include <functional>
#include <limits>
#include <memory>
#include <string>
#include <vector>

namespace counter {

// Local date and time, for file names and tables.
struct WallTime {
    int Year = 0, Month = 0, Day = 0;                       // Month 1..12, Day 1..31
    int Hour = 0, Minute = 0, Second = 0, Millisecond = 0;  // 24 hours
    int MinutesEast = 0;                                    // of UTC, as the clock goes at that time
};

class Pump {
  public:
    using Condition = std::function<bool()>;
    static constexpr double kForever = std::numeric_limits<double>::infinity();

    virtual ~Pump() = default;

    // Monotonic time in milliseconds, with fractions; its zero means nothing.
    virtual double NowMs() const = 0;
    virtual WallTime LocalTime() const = 0;

    // Runs events until `ready` holds (true) or the clock reaches `deadlineMs` (false). A condition that
    // holds, or a deadline that is past, returns at once and runs nothing. `reason` says in a few words
    // what is waited for.
    bool WaitUntil(double deadlineMs, const Condition& ready, const char* reason);

    // What Every began; it ends with the last reference.
    struct Ticker {
        double PeriodMs;
        double NextMs;
        std::function<void()> Tick;
    };
    // From now on `tick` is called every `periodMs` milliseconds by whatever wait is under way, nested ones
    // included. A call that comes late is made once and not made up for. A tick that waits itself holds up
    // the wait that it came in, and may be called again meanwhile: it looks at Waits first.
    [[nodiscard]] std::shared_ptr<Ticker> Every(double periodMs, std::function<void()> tick);

    // Lets input pile up for some milliseconds, in which nothing runs, an interrupt included: for who is
    // woken more often than what has come is worth. A clock of tests has no such cost.
    virtual void Rest(double) {}

    // Ends the process with this exit status. Does not return: no line after a wait runs in a dead program.
    [[noreturn]] virtual void EndProcess(int status) = 0;

    // The next turn of a wait calls OnInterrupt, once for each request. Without a handler nothing happens.
    void RequestInterrupt() { interruptRequested_ = true; }
    std::function<void()> OnInterrupt;

    // How many waits are under way, one in another. The program as a whole is one.
    std::size_t Waits() const { return reasons_.size(); }
    // What the nested waits wait for, outermost first: for bug reports and failing tests.
    std::string Reasons() const;

  protected:
    // Runs the events that are ready; when there are none, sleeps until one comes or until `deadlineMs`.
    virtual void RunEvents(double deadlineMs) = 0;

  private:
    double NextTickMs() const;
    void RunTicks();

    std::vector<const char*> reasons_;
    std::vector<std::weak_ptr<Ticker>> tickers_;
    bool interruptRequested_ = false;
};

}  // namespace counter
