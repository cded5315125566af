#include "link/node_client.h"

#include "link/node_frames.h"

namespace counter {

namespace {

constexpr double kTickMs = 1000;
constexpr int kKeepAliveTicks = 14;

}  // namespace

NodeClient::NodeClient(LinkState& state, Pump& pump, Dialogs& dialogs, Sockets sockets)
    : state_(state), pump_(pump), boxes_(dialogs), sockets_(sockets) {
    sockets_.Tcp.Arrived = [this](std::string_view bytes) { Take(bytes); };
}

NodeClient::~NodeClient() {
    Close();
    sockets_.Tcp.Arrived = nullptr;
}

Status NodeClient::Login(const NodeRecord& node, int variant) {
    if (node.TcpPort == 0)
        return {StatusKind::Illegal, "TcpPort 0",
                "the node can't call it; the settings name one of 1 to 65535"};
    node_ = node;
    lost_ = false;
    ticks_ = 0;
    ticker_ = pump_.Every(kTickMs, [this] { Tick(); });  // also while the login waits
    sockets_.Udp.Close();
    if (Status status = sockets_.Tcp.Listen(node.TcpPort); !status.Ok()) return status;
    if (Status status = sockets_.Udp.Bind(kNodeUdpPort); !status.Ok()) return status;
    const std::string frame = NodeLoginFrame(node.Address, variant, node.TcpPort);
    for (int tryNumber = 1; tryNumber <= kLoginTries; ++tryNumber) {
        if (TryBegins) TryBegins(tryNumber);
        sockets_.Udp.Send(node.Ip, kNodeUdpPort, frame);
        if (pump_.WaitUntil(
                pump_.NowMs() + kTryMs, [this] { return Connected(); }, "call of the node"))
            break;
    }
    return {};
}

bool NodeClient::CheckConnected() {
    if (Connected()) return true;
    lost_ = true;
    if (HideStatus) HideStatus();
    boxes_.Show({"Re-Connect", "Node communications appears broken.  Restart program.", BoxIcon::None});
    return false;
}

void NodeClient::SendFrame(std::string_view frame) {
    state_.NodeReply.clear();
    state_.NodeFirstRun = false;
    sockets_.Tcp.Send(frame);
}

void NodeClient::SendNodeCommand(bool on) {
    sockets_.Tcp.Send(NodeCommand(node_.Address, on));
}

void NodeClient::Close() {
    ticker_.reset();
    sockets_.Udp.Close();
    sockets_.Tcp.Close();
}

// A reply comes in one piece: the next arrival takes its place.
void NodeClient::Take(std::string_view bytes) {
    const std::string_view reply = WithoutStatusFrames(bytes);
    if (!reply.empty() || bytes.empty()) state_.NodeReply = reply;
}

void NodeClient::Tick() {
    if (Connected() && ++ticks_ == kKeepAliveTicks) {
        ticks_ = 0;
        sockets_.Tcp.Send(NodeKeepAlive(node_.Address));
    }
    if (Ticked) Ticked();
}

}  // namespace counter
