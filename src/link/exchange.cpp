#include "link/exchange.h"

#include "link/ascii_frame.h"
#include "link/awaited_reply.h"
#include "link/link_error.h"
#include "link/modbus_frame.h"
#include "link/node_exchange.h"
#include "link/waits.h"
#include "meter/meter_words.h"

namespace counter {

namespace {

constexpr double kBeforeSendMs = 300;
constexpr double kFirstCharacterMs = 3000;

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

// In the wait of another exchange its reply comes first. Another press may send during each of these waits
// and leaves its own texts, so that these are put back after it.
bool SendCommand(Link& link, const std::function<bool()>& withdrawn) {
    LinkState& state = link.State;
    const std::string command = state.CommandText;
    const std::string payload = state.ModbusPayload;
    LinkDelay(link, kBeforeSendMs);
    if (state.Awaited) state.Awaited->TakeIn();
    if (withdrawn && withdrawn()) return false;
    state.CommandText = command;
    state.ModbusPayload = payload;
    BuildFrame(state);
    if (state.EthernetMode) return SendThroughNode(link), true;
    if (link.Port.InBufferCount() != 0) state.RawReply = link.Port.Input();
    link.Port.SetRtsEnable(true);
    link.Port.Input();
    const std::string frame = state.CommandText;
    const std::string request = state.ModbusPayload;
    link.Port.Output(frame);
    WaitForOutput(link);
    state.CommandText = frame;
    state.ModbusPayload = request;
    return true;
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
    AwaitedReply reply(link, kFirstCharacterMs);
    reply.TakeIn();
    state.LinkError = reply.LinkError;
    state.CommandText = sent;  // the reply is this command's, whatever was sent meanwhile
    state.ModbusPayload = request;
    if (state.LinkError != LinkErrors::kGood) return;
    if (!RemoveEcho(state, reply.Bytes)) return;
    if (Judge(state, reply.Bytes)) state.ReplyText = TrimBlanks(state.ReplyText);
}

bool SendAscii(Link& link, std::string_view body, const std::function<bool()>& withdrawn) {
    link.State.CommandText = AsciiCommand(link.State, body);
    return SendCommand(link, withdrawn);
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
