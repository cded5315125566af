// Patience: the wait for whoever is at the other end of a pipe or a terminal: a reader that does not read, a
// terminal that was stopped by Ctrl-S, a named pipe that nobody has opened.
//
// It waits in the system, not in the pump: it lies below a single write, where nothing else may run. So it is
// told when it takes long, and a signal that ends the program ends it.
#pragma once

#include <functional>
#include <string>
#include <utility>

namespace counter {

class InterruptWatch;

class Patience {
  public:
    // Takes a line for people, once for each wait that has taken two seconds.
    explicit Patience(std::function<void(const std::string& line)> tell = {}) : tell_(std::move(tell)) {}

    // From now on the signals that this watch has taken end a wait; null: they have their usual meaning.
    void EndWith(const InterruptWatch* watch) { watch_ = watch; }

    // Waits until the descriptor is ready for `events` of poll, a hang-up included. 0, or EINTR where the
    // program is to end: then what is not ready within a second is given up. `what` is what is waited for.
    int Await(int descriptor, short events, const std::string& what) const;
    // Calls `done` again and again until it says true; 0 or EINTR in the same way.
    int Until(const std::function<bool()>& done, const std::string& what) const;

  private:
    std::function<void(const std::string&)> tell_;
    const InterruptWatch* watch_ = nullptr;
};

}  // namespace counter
