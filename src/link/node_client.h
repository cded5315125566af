// NodeClient: the connection to the Ethernet node that a meter is reached through.
//
// A datagram asks the node to call back; the node opens a TCP connection to a port that is listened at here,
// and from then on every frame goes over that connection. There is no second login: who loses the connection
// starts the program again.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <string_view>

#include "link/link_state.h"
#include "platform/dialogs.h"
#include "platform/pump.h"
#include "platform/sockets.h"
#include "platform/status.h"

namespace counter {

// Where the node is and where it is to call.
struct NodeRecord {
    std::string Address;  // 12 hexadecimal digits
    std::string Ip;       // dotted decimal
    int TcpPort = 0;      // of this machine, 1..65535
};

class NodeClient {
  public:
    static constexpr int kLoginTries = 10;
    static constexpr double kTryMs = 4000;  // from one login to the next

    NodeClient(LinkState& state, Pump& pump, Dialogs& dialogs, Sockets sockets);
    ~NodeClient();
    NodeClient(const NodeClient&) = delete;
    NodeClient& operator=(const NodeClient&) = delete;

    // Asks for the call up to ten times, four seconds each. `variant` 1..8 of the login's check. The status
    // is of the two ports, which must be free, and of the TCP port, which must not be 0; whether the node has
    // called, Connected() tells. From then on the node is kept awake once in 14 seconds by whatever wait is
    // under way.
    Status Login(const NodeRecord& node, int variant);

    SocketState State() const { return sockets_.Tcp.State(); }
    bool Connected() const { return State() == SocketState::Connected; }
    // True while the node is connected. Otherwise warns the user by a message box, after which the wait for
    // a reply ends.
    bool CheckConnected();
    // Whoever has called: any caller is taken for the node, which may have an address of its own towards this
    // machine. Empty without a connection, and where its address is not told.
    std::string Caller() const { return sockets_.Tcp.Caller(); }
    // The far end has said that it has all that was sent.
    bool TookAll() const { return sockets_.Tcp.Unacknowledged() == 0; }
    // CheckConnected has found the connection broken since the login.
    bool Lost() const { return lost_; }

    // A frame for the meter, as it is: what arrives from now on is its reply. Dropped without a
    // connection.
    void SendFrame(std::string_view frame);
    // A frame for the node itself.
    void SendNodeCommand(bool on);

    // Ends the connection.
    void Close();

    // Hooks; each may be empty and must not wait.
    std::function<void(int tryNumber)> TryBegins;  // 1..10
    std::function<void()> HideStatus;              // before the message box
    std::function<void()> Ticked;                  // every second from the login on, after the keep-alive

  private:
    void Take(std::string_view bytes);
    void Tick();

    LinkState& state_;
    Pump& pump_;
    Dialogs& boxes_;
    Sockets sockets_;
    NodeRecord node_;
    std::shared_ptr<Pump::Ticker> ticker_;
    int ticks_ = 0;  // since the last keep-alive
    bool lost_ = false;
};

}  // namespace counter
