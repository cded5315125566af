// Sockets: what reaches a meter through an Ethernet node. Datagrams go out, the node calls back over TCP.
#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>

#include "platform/status.h"

namespace counter {

// Datagrams out. Nothing is ever read: what arrives at the port is dropped.
class UdpSocket {
  public:
    virtual ~UdpSocket() = default;

    // Takes local port 1..65535 at every address of the machine, shared with other programs that share it.
    virtual Status Bind(int localPort) = 0;
    // One datagram to `host` (dotted decimal). One that can't be sent is lost like one that is lost on its
    // way.
    virtual void Send(const std::string& host, int port, std::string_view bytes) = 0;
    virtual void Close() = 0;
};

// With the numbers under which service technicians know them.
enum class SocketState {
    Closed = 0,
    Open = 1,
    Listening = 2,
    ConnectionPending = 3,
    ResolvingHost = 4,
    HostResolved = 5,
    Connecting = 6,
    Connected = 7,
    Closing = 8,  // the far end has closed
    Error = 9,    // the connection broke
};

// One connection that somebody else opens: Listen, and the first caller, whoever it is, is taken and ends the
// listening.
class TcpSocket {
  public:
    virtual ~TcpSocket() = default;

    // Waits for a caller at port 0..65535 of every address of the machine. A connection that is up is
    // closed.
    virtual Status Listen(int localPort) = 0;
    virtual SocketState State() const = 0;
    // Dropped where nobody is connected.
    virtual void Send(std::string_view bytes) = 0;
    virtual void Close() = 0;
    // Bytes given to Send that the far end has not said it has; 0 without a connection. They drain while the
    // cable is whole, whatever the far end does with them, and no event tells of it.
    virtual std::size_t Unacknowledged() const = 0;
    // The address of the far end, dotted decimal where it is one of IPv4; empty without a connection.
    virtual std::string Caller() const = 0;

    // Told from the event loop what has arrived since it was told last; may be empty. It must not wait.
    std::function<void(std::string_view bytes)> Arrived;

  protected:
    // A copy is called, so that who is told may hand Arrived on to somebody else.
    void TellArrived(std::string_view bytes) const {
        if (const auto arrived = Arrived) arrived(bytes);
    }
};

// The pair that a node client works with.
struct Sockets {
    UdpSocket& Udp;
    TcpSocket& Tcp;
};

// For programs and tests that reach no node: nothing can be bound, nobody ever calls.
class NoUdpSocket : public UdpSocket {
  public:
    Status Bind(int) override { return {StatusKind::Illegal, "UDP", "this program has no sockets"}; }
    void Send(const std::string&, int, std::string_view) override {}
    void Close() override {}
};

class NoTcpSocket : public TcpSocket {
  public:
    Status Listen(int) override { return {StatusKind::Illegal, "TCP", "this program has no sockets"}; }
    SocketState State() const override { return SocketState::Closed; }
    void Send(std::string_view) override {}
    void Close() override {}
    std::size_t Unacknowledged() const override { return 0; }
    std::string Caller() const override { return {}; }
};

struct NoSockets {
    NoUdpSocket Udp;
    NoTcpSocket Tcp;
    Sockets Both() { return {Udp, Tcp}; }
};

}  // namespace counter
