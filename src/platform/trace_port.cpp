#include "platform/trace_port.h"

#include <utility>

#include "platform/trace_line.h"

namespace counter {

TracePort::TracePort(SerialPort& inner, const Pump& pump, Sink sink)
    : inner_(inner), pump_(pump), sink_(std::move(sink)), startMs_(pump.NowMs()) {
    inner_.Arrived = [this] { PassArrival(); };
}

void TracePort::PassArrival() {
    if (!Arrived) return;
    TellArrived();
    Flush();
}

void TracePort::Flush() {
    if (received_.empty()) return;
    Tell(receivedAtMs_, '<', received_);
    received_.clear();
}

void TracePort::Close() {
    Flush();
    inner_.Close();
}

std::string TracePort::Input() {
    std::string bytes = inner_.Input();
    if (!bytes.empty() && received_.empty()) receivedAtMs_ = pump_.NowMs();
    received_ += bytes;
    return bytes;
}

void TracePort::Output(std::string_view bytes) {
    Flush();
    Tell(pump_.NowMs(), '>', bytes);
    inner_.Output(bytes);
}

void TracePort::Tell(double atMs, char direction, std::string_view bytes) {
    sink_(TraceLine(atMs - startMs_, direction, bytes));
}

}  // namespace counter
