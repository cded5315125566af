#include "link/exchange.h"

#include "link/ascii_frame.h"
#include "link/link_error.h"
#include "link/modbus_frame.h"
#include "link/node_exchange.h"
#include "link/waits.h"
#include "meter/meter_words.h"

namespace counter {

namespace {

constexpr double kBeforeSendMs = 300;
constexpr double kFirstCharacterMs = 3000;
constexpr double kFirstPartMs = 200;
// Far above the four seconds that the longest block takes at 300 baud. A meter that was left in continuous
// output may never fall silent; what came is then judged as it is, and found to have the wrong length.
constexpr double kLongestReplyMs = 30'000;

std::string TrimBlanks(const std::string& text) {
    const std::size_t first = text.find_first_not_of(' ');
    if (first == std::string::npos) return {};
    return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

void BuildFrame(LinkState& link) {
    if (!link.ModbusLink) {
        link.CommandText = FrameAscii(link.CommandText);
        return;
    }
    link.ModbusPayload = link.ModbusAddressHex + link.ModbusPayload;
    if (link.EthernetMode) {
        link.TransactionId = NextTransaction(link.TransactionId);
        link.CommandText = FrameModbusTcp(link.ModbusPayload, link.TransactionId);
        return;
    }
    link.CommandText = link.SerialProtocol == Protocol::ModbusRtu
                           ? FrameRtu(link.ModbusPayload, link.CrcTableFixed)
                           : FrameModbusAscii(link.ModbusPayload);
}

bool WaitForFirstCharacter(Link& link) {
    link.Pump.WaitUntil(
        link.Pump.NowMs() + kFirstCharacterMs,
        [&] { return link.Port.Faulted() || link.Port.InBufferCount() > 0; }, "first character of a reply");
    if (link.Port.Faulted()) {
        link.State.LinkError = LinkErrors::kPortFault;
    } else if (link.Port.InBufferCount() == 0) {
        link.State.LinkError = LinkErrors::kNoReply;
    }
    return link.State.LinkError == LinkErrors::kGood;
}

// Takes in characters until none comes for ten characters' time and 50 ms.
std::string TakeUntilSilence(Link& link) {
    const double gapMs = static_cast<double>(link.State.CharTimeMs * 10 + 50);
    std::string reply;
    const double lastMs = link.Pump.NowMs() + kLongestReplyMs;
    const auto input = [&] { return link.Port.Faulted() || link.Port.InBufferCount() > 0; };
    while (link.Pump.NowMs() < lastMs &&
           link.Pump.WaitUntil(link.Pump.NowMs() + gapMs, input, "end of a reply")) {
        if (link.Port.Faulted()) {
            link.State.LinkError = LinkErrors::kPortFault;
            break;
        }
        reply += link.Port.Input();
    }
    return reply;
}

// Half duplex adapters send back what was sent, check fields and line end included.
bool RemoveEcho(LinkState& link, std::string& reply) {
    if (!link.EchoMode) return true;
    if (reply.compare(0, link.CommandText.size(), link.CommandText) != 0) {
        link.LinkError = LinkErrors::kNoEcho;
        return false;
    }
    reply.erase(0, link.CommandText.size());
    return true;
}

bool Judge(LinkState& link, const std::string& reply) {
    if (!link.ModbusLink) {
        JudgeAscii(link, reply);
        return link.LinkError == LinkErrors::kGood;
    }
    return link.SerialProtocol == Protocol::ModbusRtu ? JudgeRtu(link, reply) : JudgeModbusAscii(link, reply);
}

}  // namespace

// Another press may send during each of these waits and leaves its own texts, so that these are put
// back after it.
void SendCommand(Link& link) {
    LinkState& state = link.State;
    const std::string command = state.CommandText;
    const std::string payload = state.ModbusPayload;
    LinkDelay(link, kBeforeSendMs);
    state.CommandText = command;
    state.ModbusPayload = payload;
    BuildFrame(state);
    if (state.EthernetMode) return SendThroughNode(link);
    if (link.Port.InBufferCount() != 0) state.RawReply = link.Port.Input();
    link.Port.SetRtsEnable(true);
    link.Port.Input();
    const std::string frame = state.CommandText;
    const std::string request = state.ModbusPayload;
    link.Port.Output(frame);
    WaitForOutput(link);
    state.CommandText = frame;
    state.ModbusPayload = request;
}

void ReceiveReply(Link& link) {
    LinkState& state = link.State;
    const std::string sent = state.CommandText;
    const std::string request = state.ModbusPayload;
    state.ReplyHadMore = false;
    if (state.EthernetMode) {
        ReceiveThroughNode(link);
        state.ModbusPayload = request;
        if (state.LinkError == LinkErrors::kGood) state.ReplyText = TrimBlanks(state.ReplyText);
        return;
    }
    state.LinkError = LinkErrors::kGood;
    if (!WaitForFirstCharacter(link)) return;
    LinkDelay(link, kFirstPartMs);
    std::string reply = TakeUntilSilence(link);
    state.CommandText = sent;  // the reply is this command's, whatever was sent meanwhile
    state.ModbusPayload = request;
    if (state.LinkError != LinkErrors::kGood) return;
    if (!RemoveEcho(state, reply)) return;
    if (Judge(state, reply)) state.ReplyText = TrimBlanks(state.ReplyText);
}

void SendAscii(Link& link, std::string_view body) {
    link.State.CommandText = AsciiCommand(link.State, body);
    SendCommand(link);
}

void AskAscii(Link& link, std::string_view body) {
    SendAscii(link, body);
    ReceiveReply(link);
}

void AskModbus(Link& link, std::string_view payload) {
    link.State.ModbusPayload = std::string(payload);
    SendCommand(link);
    ReceiveReply(link);
}

int ModbusExtraDigits(const LinkState& link) {
    if (link.EthernetMode) return 0;
    return link.SerialProtocol == Protocol::ModbusRtu ? 4 : 2;
}

}  // namespace counter
