#include "link/probe.h"

#include <algorithm>

#include "link/ascii_frame.h"
#include "link/awaited_reply.h"
#include "link/modbus_frame.h"
#include "link/waits.h"
#include "meter/hex_text.h"
#include "meter/meter_words.h"
#include "settings/settings.h"

namespace counter {

namespace {

constexpr std::string_view kAsciiQuestion = "G130";
constexpr std::string_view kModbusQuestion = "0400030002";
constexpr std::string_view kModbusHead = "0404";  // function, and the bytes of two registers
constexpr std::size_t kModbusDigits = 14;         // of a reply without its check

std::string AddressDigits(int address) {
    return HexNumber(static_cast<unsigned>(address), 2);
}

bool IsByteOfMemory(std::string_view received) {
    const auto isDigit = [](char c) {
        return std::string_view("0123456789ABCDEF").find(c) != std::string_view::npos;
    };
    if (received.ends_with('\n')) received.remove_suffix(1);
    return received.size() == 3 && isDigit(received[0]) && isDigit(received[1]) && received[2] == '\r';
}

bool IsReading(const ProbedAddress& probed, const LinkState& judged, std::size_t checkDigits) {
    return judged.LinkError == LinkErrors::kGood && !judged.ReplyHadMore &&
           judged.ReplyText.size() == kModbusDigits + checkDigits &&
           judged.ReplyText.starts_with(AddressDigits(probed.Address) + std::string(kModbusHead));
}

// A meter of either check may answer a question whose check is the same in both.
bool IsRtuReading(const ProbedAddress& probed, std::string_view received) {
    for (const bool published : {true, false}) {
        LinkState judged;
        judged.CrcTableFixed = published;
        if (received.size() > 2 && JudgeRtu(judged, received) && IsReading(probed, judged, 4)) return true;
    }
    return false;
}

bool IsModbusAsciiReading(const ProbedAddress& probed, std::string_view received) {
    LinkState judged;
    if (!received.starts_with(':') || !JudgeModbusAscii(judged, received)) return false;
    judged.ReplyText.resize(judged.ReplyText.find_last_not_of(' ') + 1);
    return IsReading(probed, judged, 2);
}

}  // namespace

std::string ProbeFrame(const ProbedAddress& probed) {
    if (probed.SerialProtocol == Protocol::CustomAscii) {
        LinkState head;
        head.MeterAddressChar = AddressChar(probed.Address);
        return FrameAscii(AsciiCommand(head, kAsciiQuestion));
    }
    const std::string digits = AddressDigits(probed.Address) + std::string(kModbusQuestion);
    return probed.SerialProtocol == Protocol::ModbusRtu ? FrameRtu(digits, !probed.OldCheck)
                                                        : FrameModbusAscii(digits);
}

ProbeReply JudgeProbe(const ProbedAddress& probed, std::string_view received) {
    if (const std::string echo = ProbeFrame(probed); received.starts_with(echo))
        received.remove_prefix(echo.size());
    if (received.empty()) return ProbeReply::None;
    const bool good = probed.SerialProtocol == Protocol::CustomAscii ? IsByteOfMemory(received)
                      : probed.SerialProtocol == Protocol::ModbusRtu ? IsRtuReading(probed, received)
                                                                     : IsModbusAsciiReading(probed, received);
    return good ? ProbeReply::Meter : ProbeReply::Senseless;
}

ProbeReply Probe(Link& link, const ProbedAddress& probed, double firstCharacterMs) {
    const std::string frame = ProbeFrame(probed);
    link.Port.SetRtsEnable(true);
    link.Port.Input();
    link.Port.Output(frame);
    WaitForOutput(link);
    AwaitedReply reply(link, firstCharacterMs);
    reply.TakeIn();
    if (reply.LinkError == LinkErrors::kPortFault) return ProbeReply::LineGone;
    if (reply.Bytes != frame) return JudgeProbe(probed, reply.Bytes);
    AwaitedReply behindEcho(link, firstCharacterMs);
    behindEcho.TakeIn();
    if (behindEcho.LinkError == LinkErrors::kPortFault) return ProbeReply::LineGone;
    return JudgeProbe(probed, behindEcho.Bytes);
}

}  // namespace counter
