#include "link/modbus_frame.h"

#include <algorithm>

#include "link/link_error.h"
#include "meter/crc_tables.h"
#include "meter/hex_text.h"

namespace counter {

namespace {

unsigned char FirstTable(unsigned index, bool fixedTable) {
    return fixedTable && index == kCrcEntryInDispute ? kCrcEntryPublished : FirstCrcTable[index];
}

// The low digit of the exception code, digit 6 of the reply as hexadecimal text.
int ExceptionDigit(const std::string& text) {
    return text.size() < 6 ? 0 : static_cast<int>(ParseHex(text.substr(5, 1)));
}

}  // namespace

ModbusCheck ModbusCrc(std::string_view bytes, bool fixedTable) {
    ModbusCheck check;
    for (const char c : bytes) {
        const unsigned index = static_cast<unsigned char>(c) ^ check.A;
        check.A = FirstTable(index, fixedTable) ^ check.B;
        check.B = SecondCrcTable[index];
    }
    return check;
}

std::string ModbusLrc(std::string_view digits) {
    unsigned sum = 0;
    for (std::size_t at = 0; at < digits.size(); at += 2) sum += ParseHex(digits.substr(at, 2));
    return HexByte(256 - static_cast<int>(sum % 256));
}

std::string FrameRtu(std::string_view digits, bool fixedTable) {
    std::string frame = TextOfHex(digits);
    const ModbusCheck check = ModbusCrc(frame, fixedTable);
    frame += static_cast<char>(check.A);
    frame += static_cast<char>(check.B);
    return frame;
}

std::string FrameModbusAscii(std::string_view digits) {
    return ":" + std::string(digits) + ModbusLrc(digits) + "\r\n";
}

std::string FrameModbusTcp(std::string_view digits, int transactionId) {
    const auto bytes = static_cast<unsigned>((digits.size() + 1) / 2);
    return TextOfHex(HexNumber(static_cast<unsigned>(transactionId), 4) + "0000" + HexNumber(bytes, 4) +
                     std::string(digits));
}

int NextTransaction(int transactionId) {
    return transactionId >= 65535 ? 1 : transactionId + 1;
}

bool JudgeRtu(LinkState& link, std::string_view received) {
    const std::size_t covered = received.size() < 2 ? 0 : received.size() - 2;
    const ModbusCheck check = ModbusCrc(received.substr(0, covered), link.CrcTableFixed);
    link.RawReply = std::string(received);
    link.ReplyText = HexOfText(received);
    const std::string expected = {static_cast<char>(check.A), static_cast<char>(check.B)};
    if (received.substr(covered) != expected) {
        link.LinkError = LinkErrors::kCrc;
        return false;
    }
    link.LinkError = LinkErrors::kGood;
    if (static_cast<unsigned char>(received[1]) >= 128)
        link.Fail(ExceptionDigit(link.ReplyText), ErrorSource::Refusal);
    return true;
}

bool JudgeModbusAscii(LinkState& link, std::string_view received) {
    const std::size_t end = received.find('\n');
    if (end == std::string_view::npos) {
        link.LinkError = LinkErrors::kNoLineFeed;
        return false;
    }
    // CR LF are cut by position, whatever the first of them is.
    link.RawReply = std::string(received.substr(0, end == 0 ? 0 : end - 1));
    link.ReplyHadMore = end + 1 != received.size();
    const std::string digits = link.RawReply.substr(std::min<std::size_t>(1, link.RawReply.size()));
    const std::size_t covered = digits.size() < 2 ? 0 : digits.size() - 2;
    link.ReplyText = digits + "  ";
    if (digits.substr(covered) == ModbusLrc(digits.substr(0, covered))) return true;
    link.LinkError = LinkErrors::kLrc;
    return false;
}

bool JudgeModbusTcp(LinkState& link, std::string_view received) {
    constexpr std::size_t kHeader = 6;
    const std::string transaction = HexNumber(static_cast<unsigned>(link.TransactionId), 4);
    if (HexOfText(received.substr(0, 2)) != transaction) {
        link.LinkError = LinkErrors::kOtherTransaction;
        return false;
    }
    link.ReplyText = HexOfText(received.substr(std::min(kHeader, received.size())));
    return true;
}

}  // namespace counter
