#include "recording/recorder.h"

#include <algorithm>

#include "platform/utc_time.h"

namespace counter {

namespace {

constexpr double kLookMs = 250;

}  // namespace

Status Recorder::Open(const std::string& path) {
    return ReadingStore::Open(path, ReadingStore::Use::Make, store_);
}

Status Recorder::Begin(RunFacts facts) {
    const WallTime now = pump_.LocalTime();
    facts.StartMs = UtcMs(now);
    facts.MinutesEast = now.MinutesEast;
    if (Status status = store_->BeginRun(facts, run_); !status.Ok()) return status;
    store_->WaitAtMost(ReadingStore::kHastyMs);
    ticker_ = pump_.Every(kLookMs, [this] { WriteWhenDue(); });
    return {};
}

void Recorder::Take(std::string_view frame, const WallTime& time) {
    const std::string_view text = Stripped(frame);
    if (text.empty() || !Recording()) return;
    if (waiting_.size() >= kMemory) {
        ++refused_;
        return;
    }
    if (waiting_.empty() && trouble_.Ok()) dueMs_ = pump_.NowMs() + kBatchMs;
    waiting_.push_back({run_, ++taken_, UtcMs(time), SplitReading(text)});
    if (waiting_.size() >= kBatchMost && trouble_.Ok()) dueMs_ = 0;
    WriteWhenDue();
}

void Recorder::WriteWhenDue() {
    if (waiting_.empty() || pump_.NowMs() < dueMs_) return;
    const std::string before = trouble_.Reason;
    trouble_ = WriteBatch();
    dueMs_ = pump_.NowMs() + (trouble_.Ok() ? 0 : kRetryMs);
    if (trouble_.Reason != before && TroubleChanged) TroubleChanged();
    if (trouble_.Ok() && Wrote) Wrote();
}

// What waited long for room goes out in batches too, one a look: a stall would lose input.
Status Recorder::WriteBatch() {
    const std::size_t size = std::min(waiting_.size(), kBatchMost);
    Status status = store_->Add({waiting_.data(), size});
    if (status.Ok()) waiting_.erase(waiting_.begin(), waiting_.begin() + static_cast<std::ptrdiff_t>(size));
    return status;
}

Status Recorder::End() {
    if (!store_) return {};
    ticker_.reset();
    store_->WaitAtMost(ReadingStore::kPatientMs);
    const bool any = !waiting_.empty();
    trouble_ = {};
    while (!waiting_.empty() && trouble_.Ok()) trouble_ = WriteBatch();
    if (any && trouble_.Ok() && Wrote) Wrote();
    return trouble_;
}

}  // namespace counter
