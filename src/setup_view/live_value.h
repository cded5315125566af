// The live value of Item 1 beside the pages: asked for about once a second while it is on, and never in the
// middle of another exchange.
#pragma once

#include <functional>
#include <string>

#include "session/session.h"

namespace counter {

class LiveValue {
  public:
    explicit LiveValue(Session& session) : session_(session) {}

    bool On() const { return on_; }
    // The reading as the meter sent it, with its point; empty before the first.
    const std::string& Text() const { return text_; }
    // Why it went off by itself, a sentence; empty otherwise.
    const std::string& Trouble() const { return trouble_; }
    // Why it can't be on at all, a sentence; empty: it can.
    std::string WhyNever() const;

    // Returns when it has gone off again, however that comes: the waits between the readings are its own.
    void Start();
    // Off with the wait in hand.
    void Stop() { on_ = false; }

    std::function<bool()> Busy;     // somebody else asks the meter in a loop of his own; may be empty
    std::function<void()> Changed;  // may be empty

  private:
    bool MayAsk() const;
    void Ask();
    void Tell() const {
        if (Changed) Changed();
    }

    Session& session_;
    bool on_ = false;
    int run_ = 0;  // another one where it was started anew in a wait
    std::string text_, trouble_;
};

}  // namespace counter
