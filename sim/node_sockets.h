// NodeSockets: the node's end of the network. A UDP port for logins, one TCP connection that the node opens.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace sim {

// The port of logins, here and at the tool.
inline constexpr int kNodePort = 63179;

class NodeSockets {
  public:
    NodeSockets() = default;
    ~NodeSockets();
    NodeSockets(const NodeSockets&) = delete;
    NodeSockets& operator=(const NodeSockets&) = delete;

    // Takes the UDP port at `ip`, dotted decimal, which a tool on the same machine may hold as well. Empty
    // text, or the system's reason.
    std::string Open(const std::string& ip);

    // Readable when a datagram has come.
    int DatagramHandle() const { return udp_; }
    // Nothing when there is none. `host` becomes where it came from.
    std::optional<std::string> ReadDatagram(std::string& host);

    // Begins a call, from the node's own address. A connection that is up, or that another call has begun,
    // stays: the new one is given up again at once.
    void Call(const std::string& host, int port);
    // Readable or, while Calling, writable when something has happened; -1 when there is none.
    int ConnectionHandle() const { return tcp_; }
    bool Calling() const { return calling_; }
    // True when the call that was begun has been taken. One that is refused is given up.
    bool FinishCall();
    // What has arrived, without waiting. An end of the connection from the other side closes it here too.
    std::string Read();
    bool IsConnected() const { return tcp_ >= 0 && !calling_; }
    void Write(std::string_view bytes);
    void Hangup();

  private:
    std::string ip_;
    int udp_ = -1;
    int tcp_ = -1;
    bool calling_ = false;
};

}  // namespace sim
