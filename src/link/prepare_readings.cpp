#include "link/prepare_readings.h"

#include "link/exchange.h"
#include "link/link_error.h"
#include "link/waits.h"
#include "meter/firmware.h"
#include "meter/hex_text.h"

namespace counter {

namespace {

constexpr double kStreamStopsMs = 300;
constexpr double kBehindFlagsMs = 300;
constexpr double kBehindByteMs = 50;

constexpr unsigned kLineFeedBit = 1U << 7;
constexpr unsigned kCustomBit = 1U << 6;

unsigned AskByte(Link& link, const char* command, double pauseMs, int& failure) {
    AskAscii(link, command);
    if (failure == LinkErrors::kGood) failure = link.State.LinkError;
    const unsigned byte = ParseHex(link.State.RawReply) & 0xFFU;
    LinkDelay(link, pauseMs);
    return byte;
}

void AskCustomCharacters(Link& link, FrameRules& rules, int& failure) {
    rules.FrameLeadChar = static_cast<char>(AskByte(link, "G15D", kBehindByteMs, failure));
    rules.FrameEndChar = static_cast<char>(AskByte(link, "G1E0", kBehindByteMs, failure));
    rules.FrameBackStep = 0;
    if (rules.FrameEndChar == kNoCharacter) {
        rules.FrameEndChar = rules.FrameLeadChar;
        rules.FrameLeadChar = kNoCharacter;
        rules.FrameBackStep = 1;
    }
    if (rules.LineFeedFlag == 0) rules.FrameBackStep = 0;
}

}  // namespace

int PrepareReadings(Link& link, int firmwareVersion, FrameRules& rules) {
    int& failure = rules.Failure = LinkErrors::kGood;
    SendAscii(link, "A1");
    LinkDelay(link, kStreamStopsMs);
    rules.LineFeedFlag = (AskByte(link, "G132", kBehindFlagsMs, failure) & kLineFeedBit) != 0 ? 1 : 0;
    rules.FrameEndChar = rules.LineFeedFlag == 1 ? kLineFeed : kCarriageReturn;
    rules.FrameLeadChar = kNoCharacter;
    if (!HasCustomCharacters(firmwareVersion)) return failure;
    if ((AskByte(link, "G133", kBehindByteMs, failure) & kCustomBit) != 0)
        AskCustomCharacters(link, rules, failure);
    return failure;
}

}  // namespace counter
