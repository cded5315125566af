#include "link/node_exchange.h"

#include <utility>

#include "link/ascii_frame.h"
#include "link/awaited_reply.h"
#include "link/link_error.h"
#include "link/modbus_frame.h"

namespace counter {

namespace {

// The line behind the node is as slow as any: a block of 110 characters takes 3.7 seconds at 300 baud.
double ReplyMs(int baudIndex) {
    if (baudIndex == 0) return 9000;
    return baudIndex == 1 ? 5000 : 3000;
}

}  // namespace

void SendThroughNode(Link& link) {
    link.State.ReplyText.clear();
    link.Node->SendFrame(link.State.CommandText);
}

void ReceiveThroughNode(Link& link) {
    LinkState& state = link.State;
    const int asked = state.TransactionId;
    AwaitedReply reply(link, ReplyMs(state.BaudIndex));
    reply.TakeIn();
    state.LinkError = LinkErrors::kGood;
    if (reply.Bytes.empty()) {
        if (link.Node->CheckConnected()) state.LinkError = LinkErrors::kNodeNoReply;
        return;
    }
    if (!state.ModbusLink) return JudgeNodeAscii(state, reply.Bytes);
    const int latest = std::exchange(state.TransactionId, asked);  // of a press in the wait
    JudgeModbusTcp(state, reply.Bytes);
    state.TransactionId = latest;
}

bool NodeTookAll(Link& link) {
    constexpr double kLookAgainMs = 20;  // nothing tells of it
    const double lastMs = link.Pump.NowMs() + ReplyMs(link.State.BaudIndex);
    while (link.Node->Connected() && !link.Node->TookAll() && link.Pump.NowMs() < lastMs) {
        link.Pump.WaitUntil(
            link.Pump.NowMs() + kLookAgainMs, [] { return false; }, "node to take what was sent");
    }
    return link.Node->Connected() && !link.Node->Lost() && link.Node->TookAll();
}

}  // namespace counter
