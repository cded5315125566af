#include "platform/trace_sockets.h"

#include <utility>

#include "platform/trace_line.h"

namespace counter {

TraceSockets::TraceSockets(Sockets inner, const Pump& pump, Sink sink)
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
