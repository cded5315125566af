#include "link/single_reading.h"

#include <algorithm>
#include <cstdint>
#include <string>

#include "link/exchange.h"
#include "link/link_error.h"
#include "link/modbus_reply.h"
#include "meter/hex_text.h"

namespace counter {

namespace {

// Of a Modbus reply as hexadecimal text: address, function and byte count are in front.
constexpr std::size_t kCountAt = 6;
constexpr std::size_t kCountDigits = 8;

// A reply that is too short counts as what is there of it. Nothing at all, as when the node stays silent, is
// no count.
std::string CountText(const std::string& reply) {
    if (reply.empty()) return {};
    const std::string_view digits = std::string_view(reply).substr(std::min(kCountAt, reply.size()));
    const auto count = static_cast<std::int32_t>(ParseHex(digits.substr(0, kCountDigits)));
    return (count < 0 ? "" : " ") + std::to_string(count);
}

bool IsLine(ReadingKind kind) {
    return kind == ReadingKind::AllActive || kind == ReadingKind::AllActivePlus;
}

// All values may come in a line each.
bool MayHaveLines(std::string_view command) {
    return command == "B0" || command == "B7";
}

// On a serial line all that comes within 200 ms and a silence is one reply. The node gives them out one by
// one, and hardly further apart than the meter needs for the next.
bool AnotherFollows(Link& link) {
    constexpr double kTurnaroundMs = 200;
    return link.State.EthernetMode &&
           link.Pump.WaitUntil(
               link.Pump.NowMs() + kTurnaroundMs, [&] { return !link.State.NodeReply.empty(); },
               "another reply through the node");
}

}  // namespace

// Values are of any length, so that only this is known for none: nothing, the command that an adapter has
// given back, and through the node, where a reply may be cut, a text without the end of every reply. Where
// two lines answer one question, the first is the late answer to an earlier one.
void AskValue(Link& link, std::string_view command) {
    AskAscii(link, command);
    LinkState& state = link.State;
    if (state.LinkError != LinkErrors::kGood) return;
    if (!state.ReplyHadEnd) state.LinkError = LinkErrors::kNoCarriageReturn;
    const bool two = !MayHaveLines(command) && (state.ReplyHadMore || AnotherFollows(link));
    if (state.ReplyText.empty() || state.ReplyText.starts_with('*') || two)
        state.Fail(LinkErrors::kReadingLength, ErrorSource::Reading);
}

bool CountAnswers(const LinkState& link) {
    return ReplyAnswers(link, kCountAt + kCountDigits + static_cast<std::size_t>(ModbusExtraDigits(link)));
}

void ReadSingle(Link& link, ReadingKind kind) {
    const SingleReading& reading = kSingleReadings[static_cast<std::size_t>(kind)];
    LinkState& state = link.State;
    if (!state.ModbusLink) {
        AskValue(link, reading.AsciiCommand);
        if (!IsLine(kind)) state.RawReply = state.ReplyText;
    } else if (!reading.ModbusPayload.empty()) {
        AskModbus(link, reading.ModbusPayload);
        if (state.LinkError == LinkErrors::kGood && !CountAnswers(state))
            state.Fail(LinkErrors::kReadingLength, ErrorSource::Reading);
        state.RawReply = CountText(state.ReplyText);
    }
}

}  // namespace counter
