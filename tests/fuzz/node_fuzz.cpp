// A node that answers anything, in any pieces and at any time. One byte of protocol and version, then
// arrivals, each a byte of time, a byte of length and the bytes: the first arrivals answer the first frame,
// and so on. Of the time, bits 0 to 5 are units of 100 ms, bit 6 says that another arrival answers the same
// frame, bit 7 ends the connection after it. Two Gets end within their waits, with a number or with a whole
// image.
#include "fuzz_get.h"

using namespace counter;

namespace {

constexpr int kMore = 0x40, kEnd = 0x80;

struct Caller : UdpSocket {
    explicit Caller(SocketState& connection) : Connection(connection) {}
    Status Bind(int) override { return {}; }
    void Send(const std::string&, int, std::string_view) override { Connection = SocketState::Connected; }
    void Close() override {}
    SocketState& Connection;
};

class AnythingConnection : public TcpSocket {
  public:
    AnythingConnection(test::VirtualPump& pump, std::string_view arrivals) : pump_(pump), rest_(arrivals) {}

    SocketState Now = SocketState::Closed;

    Status Listen(int) override {
        Now = SocketState::Listening;
        return {};
    }
    SocketState State() const override { return Now; }
    void Send(std::string_view) override {
        for (bool more = true; more && rest_.size() >= 2;) more = Answer();
    }
    void Close() override { Now = SocketState::Closed; }
    std::size_t Unacknowledged() const override { return 0; }
    std::string Caller() const override { return {}; }

  private:
    bool Answer() {
        const int time = static_cast<unsigned char>(rest_[0]);
        const std::string bytes(rest_.substr(2, static_cast<unsigned char>(rest_[1])));
        rest_.remove_prefix(2 + bytes.size());
        pump_.After((time & (kMore - 1)) * 100.0, [this, bytes, time] {
            if (Now == SocketState::Connected && !bytes.empty()) TellArrived(bytes);
            if ((time & kEnd) != 0) Now = SocketState::Closing;
        });
        return (time & kMore) != 0;
    }

    test::VirtualPump& pump_;
    std::string_view rest_;
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size < 3) return 0;
    test::VirtualPump pump;
    test::MemoryFiles store;
    test::RecordedDialogs boxes;
    test::MeterLine line(pump, {});
    store.Contents["home/Settings.SSS"] =
        fuzz::SettingsOfByte(data[0], {"NodeAddress=0080A3010203", "NodeIp=192.168.0.5", "TcpPort=10001"});
    AnythingConnection connection(pump, fuzz::TextOf(data + 1, size - 1));
    Caller caller(connection.Now);
    Session session{pump, line, boxes, {store, "home"}, Sockets{caller, connection}};
    Start(session);
    if (!LogIntoNode(session).Ok() || !session.Node.Connected()) std::abort();
    fuzz::GetTwice(session, 180000);
    return 0;
}
