#include "platform/pump.h"

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
        RunEvents(deadlineMs);
        if (interruptRequested_ && OnInterrupt) {
            interruptRequested_ = false;
            OnInterrupt();
        }
    }
    return true;
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
