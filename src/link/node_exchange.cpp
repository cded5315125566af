#include "link/node_exchange.h"

#include <utility>

#include "link/ascii_frame.h"
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
    state.LinkError = LinkErrors::kGood;
    link.Pump.WaitUntil(
        link.Pump.NowMs() + ReplyMs(state.BaudIndex),
        [&] { return !state.NodeReply.empty() || !link.Node->Connected(); }, "reply through the node");
    if (state.NodeReply.empty()) {
        if (link.Node->CheckConnected()) state.LinkError = LinkErrors::kNodeNoReply;
        return;
    }
    if (!state.ModbusLink) {
        JudgeNodeAscii(state, std::exchange(state.NodeReply, {}));
    } else {
        JudgeModbusTcp(state, state.NodeReply);
    }
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
