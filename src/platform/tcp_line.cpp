#include "platform/tcp_line.h"

#include <algorithm>
#include <charconv>

namespace counter {

namespace {

constexpr std::string_view kScheme = "tcp://";
constexpr int kHighestPort = 65535;

bool IsHostCharacter(unsigned char c) {
    return c > ' ' && c != 0x7F &&
           std::string_view("/[]@?#").find(static_cast<char>(c)) == std::string_view::npos;
}

}  // namespace

bool NamesTcpLine(std::string_view device) {
    return device.starts_with(kScheme);
}

std::optional<TcpLine> ParseTcpLine(std::string_view device) {
    if (!NamesTcpLine(device)) return std::nullopt;
    device.remove_prefix(kScheme.size());
    const std::size_t colon = device.rfind(':');
    if (colon == std::string_view::npos) return std::nullopt;
    std::string_view host = device.substr(0, colon), number = device.substr(colon + 1);
    const bool bracketed = host.size() > 2 && host.front() == '[' && host.back() == ']';
    if (bracketed) host = host.substr(1, host.size() - 2);
    if (host.empty() || !std::all_of(host.begin(), host.end(), IsHostCharacter)) return std::nullopt;
    if (!bracketed && host.find(':') != std::string_view::npos) return std::nullopt;
    TcpLine line{std::string(host), 0};
    const auto [end, error] = std::from_chars(number.data(), number.data() + number.size(), line.Port);
    const bool whole = error == std::errc{} && end == number.data() + number.size();
    if (!whole || line.Port < 1 || line.Port > kHighestPort) return std::nullopt;
    return line;
}

}  // namespace counter
