#include "platform/pump.h"

#include <algorithm>
#include <utility>

namespace counter {

namespace {

// Keeps the stack of reasons right however a wait is left: tests unwind a dead program.
struct ReasonScope {
    std::vector<const char*>& Stack;
    ReasonScope(std::vector<const char*>& stack, const char* reason) : Stack(stack) {
        Stack.push_back(reason);
    }
    ~ReasonScope() { Stack.pop_back(); }
    ReasonScope(const ReasonScope&) = delete;
    ReasonScope& operator=(const ReasonScope&) = delete;
};

}  // namespace

bool Pump::WaitUntil(double deadlineMs, const Condition& ready, const char* reason) {
    const ReasonScope scope(reasons_, reason);
    while (!ready()) {
        if (NowMs() >= deadlineMs) return false;
        RunEvents(std::min(deadlineMs, NextTickMs()));
        RunTicks();
        if (interruptRequested_ && OnInterrupt) {
            interruptRequested_ = false;
            OnInterrupt();
        }
    }
    return true;
}

std::shared_ptr<Pump::Ticker> Pump::Every(double periodMs, std::function<void()> tick) {
    auto ticker = std::make_shared<Ticker>(Ticker{periodMs, NowMs() + periodMs, std::move(tick)});
    tickers_.push_back(ticker);
    return ticker;
}

double Pump::NextTickMs() const {
    double next = kForever;
    for (const auto& known : tickers_) {
        if (const auto ticker = known.lock()) next = std::min(next, ticker->NextMs);
    }
    return next;
}

void Pump::RunTicks() {
    if (tickers_.empty()) return;
    std::erase_if(tickers_, [](const auto& known) { return known.expired(); });
    const double nowMs = NowMs();
    for (const auto& known : std::vector(tickers_)) {  // a tick may begin or end others
        const auto ticker = known.lock();
        if (!ticker || ticker->NextMs > nowMs) continue;
        ticker->NextMs += ticker->PeriodMs;
        if (ticker->NextMs <= nowMs) ticker->NextMs = nowMs + ticker->PeriodMs;
        ticker->Tick();
    }
}

std::string Pump::Reasons() const {
    std::string text;
    for (const char* reason : reasons_) {
        if (!text.empty()) text += " > ";
        text += reason;
    }
    return text;
}

}  // namespace counter
