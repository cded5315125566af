#include "link/link_error.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace counter {

namespace {

using From = ErrorSource;

struct Words {
    From Source;  // Unknown: the line
    int Number;
    std::string_view Text;  // of a transfer the step, of a refusal what the meter has against it
    std::string_view Fault = "wrong length";  // of a step
};

// clang-format off
constexpr auto kWords = std::to_array<Words>({
    {From::Unknown,     LinkErrors::kGood,             "good"},
    {From::Unknown,     LinkErrors::kNodeNoReply,      "the node sent no reply in time"},
    {From::Unknown,     LinkErrors::kNoReply,          "no reply within 3 seconds"},
    {From::Unknown,     LinkErrors::kNoEcho,           "the line did not echo what was sent"},
    {From::Unknown,     LinkErrors::kNoCarriageReturn, "the reply has no end"},
    {From::Unknown,     LinkErrors::kCrc,              "the reply's CRC is wrong"},
    {From::Unknown,     LinkErrors::kNoLineFeed,       "the reply has no line feed"},
    {From::Unknown,     LinkErrors::kLrc,              "the reply's LRC is wrong"},
    {From::Unknown,     LinkErrors::kPortFault,        "the port failed, the line went away, or the reply was another request's"},
    {From::Refusal,     LinkErrors::kIllegalFunction,  "unknown function"},
    {From::Refusal,     LinkErrors::kIllegalAddress,   "unknown address"},
    {From::Refusal,     LinkErrors::kIllegalValue,     "illegal value"},
    {From::GetAscii,    LinkErrors::kFirstBlock,       "first block"},
    {From::GetAscii,    LinkErrors::kSecondBlock,      "second block"},
    {From::GetAscii,    LinkErrors::kThirdBlock,       "third block"},
    {From::GetAscii,    LinkErrors::kBoardByte,        "byte of the boards"},
    {From::GetAscii,    LinkErrors::kRelayByte,        "relay board"},
    {From::GetAscii,    LinkErrors::kExtendedByte,     "Extended option"},
    {From::GetAscii,    LinkErrors::kAnalogByte,       "analog board"},
    {From::GetModbus,   LinkErrors::kGet0001,          "test of the line, or registers from 0001"},
    {From::GetModbus,   LinkErrors::kGet0011,          "registers from 0011"},
    {From::GetModbus,   LinkErrors::kGet0025,          "registers from 0025"},
    {From::GetModbus,   LinkErrors::kGet0041,          "registers from 0041"},
    {From::GetModbus,   LinkErrors::kGet004C,          "registers from 004C"},
    {From::GetModbus,   LinkErrors::kGet0064,          "registers from 0064"},
    {From::PutModbus,   LinkErrors::kPut0001,          "registers from 0001"},
    {From::PutModbus,   LinkErrors::kPut0011,          "registers from 0011"},
    {From::PutModbus,   LinkErrors::kPut0021,          "registers from 0021"},
    {From::PutModbus,   LinkErrors::kPut003A,          "register 003A"},
    {From::PutModbus,   LinkErrors::kPut004D,          "registers from 004D"},
    {From::PutModbus,   LinkErrors::kPut0041,          "registers from 0041"},
    {From::PutModbus,   LinkErrors::kBoardAnswer,      "register of the board"},
    {From::Reading,     LinkErrors::kReadingLength,    "reading"},
    {From::Calibration, LinkErrors::kScaleLength,      "scale and offset, or reading"},
    {From::Calibration, LinkErrors::kExponentLength,   "exponent, or factor"},
    {From::Calibration, LinkErrors::kNotKept,          "scale, exponent or factor", "not kept as written"},
    {From::Calibration, LinkErrors::kNoMeasurement,    "reading", "no measurement"},
    {From::Curve,       LinkErrors::kUpperBlock,       "second item", "not kept as sent"},
    {From::Curve,       LinkErrors::kLowerBlock,       "first item", "not kept as sent"},
});
// clang-format on

const Words* FindWords(From source, int number) {
    const auto found = std::find_if(kWords.begin(), kWords.end(), [&](const Words& words) {
        return words.Source == source && words.Number == number;
    });
    return found == kWords.end() ? nullptr : &*found;
}

std::string RefusalWords(int exception) {
    const Words* why = FindWords(From::Refusal, exception);
    return "the meter refused" + (why == nullptr ? "" : ": " + std::string(why->Text)) + " (exception " +
           std::to_string(exception) + ")";
}

}  // namespace

std::string LinkStepName(int step, ErrorSource source) {
    const Words* words = FindWords(source, step);
    return words == nullptr ? "" : std::string(words->Text);
}

std::string LinkErrorMeaning(int linkError, ErrorSource source) {
    if (const Words* line = FindWords(From::Unknown, linkError)) return std::string(line->Text);
    if (source == From::Refusal) return RefusalWords(linkError);
    if (const Words* step = FindWords(source, linkError))
        return std::string(step->Text) + ": " + std::string(step->Fault);
    return "a reply of the wrong length, or the meter refused with exception " + std::to_string(linkError);
}

std::string FirstToTry(int linkError, ErrorSource source) {
    switch (linkError) {
        case LinkErrors::kNodeNoReply:
            return "is the meter behind the node on";
        case LinkErrors::kNoReply:
            return "is the meter on";
        case LinkErrors::kNoEcho:
            return "clear the box \"The line echoes what is sent\"";
        case LinkErrors::kNoCarriageReturn:
            return "compare the baud rate";
        case LinkErrors::kCrc:
            return "compare baud rate and parity";
        case LinkErrors::kNoLineFeed:
            return "compare the protocol";
        case LinkErrors::kLrc:
            return "try again";
        case LinkErrors::kPortFault:
            return "plug the adaptor in again";
        default:
            return source == ErrorSource::Refusal ? "do a Get" : "try again";
    }
}

}  // namespace counter
