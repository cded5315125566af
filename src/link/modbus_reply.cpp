#include "link/modbus_reply.h"

#include <algorithm>
#include <string>
#include <string_view>

#include "meter/hex_text.h"

namespace counter {

namespace {

constexpr std::size_t kFunctionAt = 2;  // digits; the address is in front
constexpr std::size_t kCountAt = 8;     // behind the first register
constexpr std::size_t kHeadDigits = 4;  // address and function
constexpr std::size_t kWriteDigits = 12;

constexpr unsigned kReadHolding = 3, kReadInput = 4, kWriteMany = 16;

// An address out of a setup file may be in small letters.
std::string Capitals(std::string text) {
    std::transform(text.begin(), text.end(), text.begin(),
                   [](char c) { return c >= 'a' && c <= 'f' ? static_cast<char>(c - 'a' + 'A') : c; });
    return text;
}

unsigned NumberAt(const std::string& digits, std::size_t at, std::size_t length) {
    return ParseHex(std::string_view(digits).substr(std::min(at, digits.size()), length));
}

std::string BeginningFor(const std::string& request) {
    const unsigned function = NumberAt(request, kFunctionAt, 2);
    if (function == kReadHolding || function == kReadInput)
        return request.substr(0, kHeadDigits) + HexNumber(2 * NumberAt(request, kCountAt, 4), 2);
    return function == kWriteMany ? request.substr(0, kWriteDigits) : request;
}

}  // namespace

bool ReplyAnswers(const LinkState& link, std::size_t digits) {
    return link.ReplyText.size() == digits && !link.ReplyHadMore &&
           Capitals(link.ReplyText).starts_with(BeginningFor(Capitals(link.ModbusPayload)));
}

}  // namespace counter
