// SetupWrites: the actions that write the meter's setup, and the end of the program that waits for them.
//
// Every wait runs what the user does, so one such action may begin inside another, and a Get or the end of
// the program inside any. Each counts itself here while it runs; who needs to know asks.
#pragma once

#include <functional>
#include <string>

namespace counter {

enum class EndWish {
    None,
    User,     // Exit, or the window was closed: he reads what was written before the window goes
    Outside,  // a signal, or the end of the desktop's session: nobody may be there to read
};

struct SetupWrites {
    int Running = 0;    // under way, one inside the other
    int Begun = 0;      // since the program began
    int PutsBegun = 0;  // those of them that write a whole setup

    // The end of the program is wanted; it comes when what runs has stopped after the frame in hand.
    EndWish Wish = EndWish::None;
    std::function<std::string()>
        SoFar;  // what the one that began last has written, in words; empty: nothing is to be told
    std::function<void()> EndProgram;  // may be empty

    bool EndWanted() const { return Wish != EndWish::None; }
    // For whoever stops when an end is wanted, as its last act.
    void EndIfWanted() const {
        if (EndWanted() && Running == 0 && EndProgram) EndProgram();
    }
};

// While it lives an action counts as under way.
class SetupWriteScope {
  public:
    // One whose end is always awaited has nothing to tell.
    explicit SetupWriteScope(SetupWrites& writes, std::function<std::string()> soFar = {}) : writes_(writes) {
        ++writes_.Running;
        ++writes_.Begun;
        if (soFar) writes_.SoFar = std::move(soFar);
    }
    ~SetupWriteScope() {
        if (--writes_.Running == 0 && !writes_.EndWanted()) writes_.SoFar = nullptr;
    }
    SetupWriteScope(const SetupWriteScope&) = delete;
    SetupWriteScope& operator=(const SetupWriteScope&) = delete;

  private:
    SetupWrites& writes_;
};

}  // namespace counter
