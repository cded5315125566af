#include "link/awaited_reply.h"

#include <utility>

#include "link/link_error.h"
#include "link/waits.h"

namespace counter {

namespace {

constexpr double kFirstPartMs = 200;
// Far above the four seconds that the longest block takes at 300 baud. A meter that was left in continuous
// output may never fall silent; what came is then judged as it is, and found to have the wrong length.
constexpr double kLongestReplyMs = 30'000;

}  // namespace

AwaitedReply::AwaitedReply(Link& link, double longestMs)
    : link_(link), outer_(link.State.Awaited), firstBeforeMs_(link.Pump.NowMs() + longestMs) {
    link.State.Awaited = this;
}

AwaitedReply::~AwaitedReply() {
    link_.State.Awaited = outer_;
}

// Whoever came in a wait of this may have taken all in meanwhile, or a part.
void AwaitedReply::TakeIn() {
    if (link_.State.EthernetMode) return TakeFromNode();
    if (Bytes.empty() && !FirstCharacterCame()) return;
    TakeUntilSilence();
    done_ = true;
}

void AwaitedReply::TakeFromNode() {
    LinkState& state = link_.State;
    link_.Pump.WaitUntil(
        firstBeforeMs_, [&] { return done_ || !state.NodeReply.empty() || !link_.Node->Connected(); },
        "reply through the node");
    if (std::exchange(done_, true)) return;
    Bytes = std::exchange(state.NodeReply, {});
}

bool AwaitedReply::Stirs() const {
    return done_ || link_.Port.Faulted() || link_.Port.InBufferCount() > 0;
}

void AwaitedReply::End(int linkError) {
    LinkError = linkError;
    done_ = true;
}

bool AwaitedReply::FirstCharacterCame() {
    link_.Pump.WaitUntil(
        firstBeforeMs_, [this] { return Stirs(); }, "first character of a reply");
    if (done_) return false;
    if (link_.Port.Faulted()) return End(LinkErrors::kPortFault), false;
    if (link_.Port.InBufferCount() == 0) return End(LinkErrors::kNoReply), false;
    LinkDelay(link_, kFirstPartMs);
    return !done_;
}

void AwaitedReply::TakeUntilSilence() {
    const double gapMs = static_cast<double>(link_.State.CharTimeMs * 10 + 50);
    const double lastMs = link_.Pump.NowMs() + kLongestReplyMs;
    while (link_.Pump.NowMs() < lastMs &&
           link_.Pump.WaitUntil(
               link_.Pump.NowMs() + gapMs, [this] { return Stirs(); }, "end of a reply")) {
        if (done_) return;
        if (link_.Port.Faulted()) return End(LinkErrors::kPortFault);
        Bytes += link_.Port.Input();
    }
    // A question that the user left open for longer than that: all has come meanwhile.
    if (!done_ && link_.Pump.NowMs() >= lastMs) Bytes += link_.Port.Input();
}

}  // namespace counter
