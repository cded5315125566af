#include "platform/trace.h"

#include <cstdio>
#include <utility>

namespace counter {

namespace {

std::string TraceLine(double ms, char direction, std::string_view bytes) {
    char head[32];
    std::snprintf(head, sizeof head, "%8.0f %c", ms, direction);
    std::string line = head;
    std::string text;
    for (const char c : bytes) {
        const auto code = static_cast<unsigned char>(c);
        char pair[4];
        std::snprintf(pair, sizeof pair, " %02X", code);
        line += pair;
        text += code >= 32 && code < 127 ? c : '.';
    }
    return line + "  " + text;
}

}  // namespace

TracePort::TracePort(SerialPort& inner, const Pump& pump, TraceSink sink)
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

TraceSockets::TraceSockets(Sockets inner, const Pump& pump, TraceSink sink)
    : inner_(inner), pump_(pump), sink_(std::move(sink)), startMs_(pump.NowMs()) {}

void TraceSockets::Tell(char direction, std::string_view bytes) {
    sink_(TraceLine(pump_.NowMs() - startMs_, direction, bytes));
}

void TraceSockets::Udp::Send(const std::string& host, int port, std::string_view bytes) {
    all_.Tell('>', bytes);
    all_.inner_.Udp.Send(host, port, bytes);
}

TraceSockets::Tcp::Tcp(TraceSockets& all) : all_(all) {
    all_.inner_.Tcp.Arrived = [this](std::string_view bytes) {
        all_.Tell('<', bytes);
        TellArrived(bytes);
    };
}

void TraceSockets::Tcp::Send(std::string_view bytes) {
    all_.Tell('>', bytes);
    all_.inner_.Tcp.Send(bytes);
}

}  // namespace counter
