// The live value of Item 1 beside the pages: asked for about once a second while it is on, and never in the
// middle of another exchange.
#pragma once

#include <functional>
#include <memory>
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

    // The first reading is asked for at once, where nobody else waits.
    void Start();
    // A reading that still comes is thrown away.
    void Stop();

    std::function<void()> Changed;  // may be empty

  private:
    void AskIfFree();
    void Ask();
    int PointOfItem1() const;
    void Tell() const {
        if (Changed) Changed();
    }

    Session& session_;
    bool on_ = false, asking_ = false;
    int run_ = 0;  // another one where it was started anew in a wait
    std::shared_ptr<Pump::Ticker> ticker_;
    std::string text_, trouble_;
};

}  // namespace counter
