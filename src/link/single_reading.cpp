#include "link/single_reading.h"

#include <algorithm>
#include <cstdint>
#include <string>

#include "link/exchange.h"
#include "link/link_error.h"
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

bool HasCount(const LinkState& state) {
    return state.ReplyText.size() ==
           kCountAt + kCountDigits + static_cast<std::size_t>(ModbusExtraDigits(state));
}

bool IsLine(ReadingKind kind) {
    return kind == ReadingKind::AllActive || kind == ReadingKind::AllActivePlus;
}

}  // namespace

// Values are of any length, so that only this is known for none: nothing, the command that an adapter has
// given back, and through the node, where a reply may be cut, a text without the end of every reply.
void AskValue(Link& link, std::string_view command) {
    AskAscii(link, command);
    LinkState& state = link.State;
    if (state.LinkError != LinkErrors::kGood) return;
    if (!state.ReplyHadEnd) state.LinkError = LinkErrors::kNoCarriageReturn;
    if (state.ReplyText.empty() || state.ReplyText.starts_with('*'))
        state.Fail(LinkErrors::kReadingLength, ErrorSource::Reading);
}

void ReadSingle(Link& link, ReadingKind kind) {
    const SingleReading& reading = kSingleReadings[static_cast<std::size_t>(kind)];
    LinkState& state = link.State;
    if (!state.ModbusLink) {
        AskValue(link, reading.AsciiCommand);
        if (!IsLine(kind)) state.RawReply = state.ReplyText;
    } else if (!reading.ModbusPayload.empty()) {
        AskModbus(link, reading.ModbusPayload);
        // Modbus ASCII and the node tell an exception by nothing but its length.
        if (state.LinkError == LinkErrors::kGood && !HasCount(state))
            state.Fail(LinkErrors::kReadingLength, ErrorSource::Reading);
        state.RawReply = CountText(state.ReplyText);
    }
}

}  // namespace counter
