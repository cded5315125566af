#include "support/meter_line.h"

#include <utility>

namespace counter::test {

MeterLine::MeterLine(VirtualPump& pump, sim::MeterOptions options) : pump_(pump), meter_(std::move(options)) {
    pump_.AddSource({[this] { return meter_.NextDueMs().value_or(Pump::kForever); },
                     [this](double nowMs) { Take(nowMs); }});
}

Status MeterLine::SetSettings(std::string_view text) {
    calls_.push_back("Settings " + std::string(text));
    return {};
}

Status MeterLine::Open() {
    calls_.push_back("Open");
    const Status status = std::exchange(NextOpen, {});
    open_ = status.Ok();
    faulted_ = false;
    if (open_ && meter_.LineGone()) meter_.LineBack();
    return status;
}

void MeterLine::Close() {
    calls_.push_back("Close");
    open_ = false;
}

std::string MeterLine::Input() {
    return std::exchange(input_, {});
}

void MeterLine::Output(std::string_view bytes) {
    sent_.emplace_back(bytes);
    if (plugged_ && !faulted_ && open_) meter_.Receive(bytes, pump_.NowMs());
}

void MeterLine::Take(double nowMs) {
    const std::string bytes = meter_.TakeDue(nowMs);
    if (open_) input_ += bytes;
    if (meter_.LineGone()) faulted_ = true;
    if (open_ && !bytes.empty()) TellArrived();
}

}  // namespace counter::test
