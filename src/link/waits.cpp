#include "link/waits.h"

#include "link/link_error.h"
#include "link/node_exchange.h"

namespace counter {

namespace {

// A request to the node passes two more computers on its way.
constexpr double kNodeExtraMs = 1000;

void Pause(Link& link, double ms, const char* reason) {
    link.Pump.WaitUntil(
        link.Pump.NowMs() + ms, [] { return false; }, reason);
}

}  // namespace

void LinkDelay(Link& link, double ms) {
    Pause(link, LinkDelayMs(link, ms), "link delay");
}

double LinkDelayMs(const Link& link, double ms) {
    return link.State.EthernetMode ? ms + kNodeExtraMs : ms;
}

void Delay(Link& link, float seconds) {
    if (seconds == 0) seconds = 0.55F - 0.1F * static_cast<float>(link.State.BaudIndex);
    Pause(link, static_cast<double>(seconds) * 1000, "delay");
}

void WaitForInput(Link& link) {
    const double deadline = link.Pump.NowMs() + 1000;
    link.Pump.WaitUntil(
        deadline, [&] { return link.Port.Faulted() || link.Port.InBufferCount() != 0; }, "wait for input");
    link.State.PortFault = link.Port.Faulted();
}

void WaitForOutput(Link& link) {
    link.Pump.WaitUntil(
        Pump::kForever, [&] { return link.Port.Faulted() || link.Port.OutBufferCount() == 0; }, "send");
}

bool SerialLineHolds(Link& link) {
    if (link.State.EthernetMode || !link.Port.Faulted()) return true;
    link.State.LinkError = LinkErrors::kPortFault;
    return false;
}

bool LineHolds(Link& link) {
    if (!link.State.EthernetMode) return SerialLineHolds(link);
    if (NodeTookAll(link)) return true;
    link.State.LinkError = LinkErrors::kPortFault;
    return false;
}

}  // namespace counter
