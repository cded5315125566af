// QtSockets: the sockets to an Ethernet node, in the event loop.
//
// They are the system's own, watched by the loop, since the library that wraps them would cost every program
// that links it a quarter of its start and of its memory.
#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "platform/sockets.h"

class QSocketNotifier;

namespace counter {

class QtUdpSocket : public UdpSocket {
  public:
    QtUdpSocket() = default;
    ~QtUdpSocket() override { QtUdpSocket::Close(); }
    QtUdpSocket(const QtUdpSocket&) = delete;
    QtUdpSocket& operator=(const QtUdpSocket&) = delete;

    // The address is reused, so that several tools, and a node on the same machine, can hold the port.
    Status Bind(int localPort) override;
    void Send(const std::string& host, int port, std::string_view bytes) override;
    void Close() override;

  private:
    int descriptor_ = -1;
    bool bothFamilies_ = false;
};

// Works while the event loop runs and needs an application object.
class QtTcpSocket : public TcpSocket {
  public:
    QtTcpSocket();
    ~QtTcpSocket() override;
    QtTcpSocket(const QtTcpSocket&) = delete;
    QtTcpSocket& operator=(const QtTcpSocket&) = delete;

    Status Listen(int localPort) override;
    SocketState State() const override { return state_; }
    // What the far end leaves no room for, tens of thousands of bytes that it has not taken, is lost.
    void Send(std::string_view bytes) override;
    void Close() override;
    std::size_t Unacknowledged() const override;
    std::string Caller() const override;

    // The port that is listened at, another than was asked for only where that was 0; 0 where there is none.
    // For tests.
    int LocalPort() const;

  private:
    void Take();
    void PassOn();
    void End(SocketState state);

    int descriptor_ = -1;                       // that listens, then that of the connection
    std::unique_ptr<QSocketNotifier> listens_;  // both stay until Close: they may be in a call of their own
    std::unique_ptr<QSocketNotifier> reads_;
    SocketState state_ = SocketState::Closed;
};

class QtSockets {
  public:
    Sockets Both() { return {udp_, tcp_}; }

  private:
    QtUdpSocket udp_;
    QtTcpSocket tcp_;
};

}  // namespace counter
