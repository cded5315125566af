// Serial lines elsewhere: "tcp://HOST:PORT" names one that a server on the network hands on byte by byte.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace counter {

struct TcpLine {
    std::string Host;  // a name, or an address of either family without brackets
    int Port = 0;      // 1..65535

    bool operator==(const TcpLine&) const = default;
};

// Whether the text is meant as one, right or wrong.
bool NamesTcpLine(std::string_view device);
// Nothing for another text. An IPv6 address stands in brackets: "tcp://[::1]:4001".
std::optional<TcpLine> ParseTcpLine(std::string_view device);

// What is legal, for refusals.
inline constexpr const char* kTcpLineForm =
    "a line on the network is tcp://HOST:PORT, PORT 1 to 65535 and an IPv6 address in brackets";

}  // namespace counter
