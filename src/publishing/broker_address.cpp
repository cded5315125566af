#include "publishing/broker_address.h"

#include <charconv>
#include <string_view>

namespace counter {

namespace {

constexpr const char* kLegal = "a broker is mqtt://[USER:PASSWORD@]HOST[:PORT]/PREFIX, or mqtts:// with TLS";

bool TakeScheme(std::string_view& rest, bool& tls) {
    tls = rest.starts_with("mqtts://");
    if (!tls && !rest.starts_with("mqtt://")) return false;
    rest.remove_prefix(rest.find("//") + 2);
    return true;
}

// What is in front of `end`, which goes with it; all where it isn't there.
std::string_view CutAt(std::string_view& rest, std::size_t end) {
    const std::string_view cut = rest.substr(0, end);
    rest.remove_prefix(end == std::string_view::npos ? rest.size() : end + 1);
    return cut;
}

bool TakePort(std::string_view text, int& port) {
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), port);
    return error == std::errc() && end == text.data() + text.size() && port >= 1 && port <= 65535;
}

bool TakeHost(std::string_view host, BrokerAddress& address) {
    if (host.starts_with('[')) {
        host.remove_prefix(1);
        address.Host = CutAt(host, host.find(']'));
    } else {
        const std::size_t colon = host.find(':');
        address.Host = host.substr(0, colon);
        host.remove_prefix(address.Host.size());
    }
    address.Port = address.Tls ? 8883 : 1883;
    return !address.Host.empty() &&
           (host.empty() || (host.starts_with(':') && TakePort(host.substr(1), address.Port)));
}

bool TakePrefix(std::string_view prefix, std::string& topic) {
    while (prefix.ends_with('/')) prefix.remove_suffix(1);
    topic = prefix;
    return !prefix.empty() && prefix.front() != '$' && prefix.find_first_of("+#") == std::string_view::npos;
}

}  // namespace

std::string ParseBrokerUrl(const std::string& url, BrokerAddress& address) {
    std::string_view rest = url;
    if (!TakeScheme(rest, address.Tls)) return kLegal;
    const std::size_t slash = rest.find('/');
    std::string_view host = CutAt(rest, slash);
    if (const std::size_t at = host.rfind('@'); at != std::string_view::npos) {
        std::string_view user = CutAt(host, at);
        address.User = CutAt(user, user.find(':'));
        address.Password = user;
    }
    return TakeHost(host, address) && TakePrefix(rest, address.Prefix) ? std::string() : kLegal;
}

bool IsTopicLevel(const std::string& text) {
    return !text.empty() && text.find_first_of("/+#") == std::string::npos;
}

}  // namespace counter
