#include "platform/trace_port.h"

#include <cstdio>
#include <utility>

namespace counter {

TracePort::TracePort(SerialPort& inner, const Pump& pump, Sink sink)
    : inner_(inner), pump_(pump), sink_(std::move(sink)), startMs_(pump.NowMs()) {}

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
    char head[32];
    std::snprintf(head, sizeof head, "%8.0f %c", atMs - startMs_, direction);
    std::string line = head;
    std::string text;
    for (const char c : bytes) {
        const auto code = static_cast<unsigned char>(c);
        char pair[4];
        std::snprintf(pair, sizeof pair, " %02X", code);
        line += pair;
        text += code >= 32 && code < 127 ? c : '.';
    }
    sink_(line + "  " + text);
}

}  // namespace counter
