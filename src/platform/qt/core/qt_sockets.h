// QtSockets: the sockets to an Ethernet node, on those of the system.
#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "platform/sockets.h"

class QTcpServer;
class QTcpSocket;
class QUdpSocket;

namespace counter {

// Both work while the event loop runs and need an application object.

class QtUdpSocket : public UdpSocket {
  public:
    QtUdpSocket();
    ~QtUdpSocket() override;

    // The address is reused, so that several tools, and a node on the same machine, can hold the port.
    Status Bind(int localPort) override;
    void Send(const std::string& host, int port, std::string_view bytes) override;
    void Close() override;

  private:
    std::unique_ptr<QUdpSocket> socket_;
};

class QtTcpSocket : public TcpSocket {
  public:
    QtTcpSocket();
    ~QtTcpSocket() override;

    Status Listen(int localPort) override;
    SocketState State() const override;
    void Send(std::string_view bytes) override;
    void Close() override;

    // The port that is listened at; 0 where none is. Another than was asked for only for port 0.
    int LocalPort() const;

  private:
    // Objects of the event loop, which may still be in one of their own calls when they are given up.
    struct Later {
        void operator()(QTcpServer* server) const;
        void operator()(QTcpSocket* socket) const;
    };

    void Take();
    void PassOn();

    std::unique_ptr<QTcpServer, Later> server_;
    std::unique_ptr<QTcpSocket, Later> socket_;
};

class QtSockets {
  public:
    Sockets Both() { return {udp_, tcp_}; }

  private:
    QtUdpSocket udp_;
    QtTcpSocket tcp_;
};

}  // namespace counter
