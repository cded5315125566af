#include "fleet/table_line.h"

#include <algorithm>
#include <charconv>

#include "meter/text.h"
#include "platform/tcp_line.h"
#include "settings/settings_keys.h"

namespace counter {

namespace {

constexpr std::string_view kTcp = "tcp://";
constexpr std::string_view kNode = "node://";

// Empty where it is none.
std::string PortNumberText(std::string_view text) {
    int port = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), port);
    const bool whole = error == std::errc() && end == text.data() + text.size();
    return whole && port >= 1 && port <= 65535 ? std::to_string(port) : std::string();
}

std::string ReadTcp(std::string_view text, TableLine& line) {
    const auto place = ParseTcpLine(text);
    if (!place) return "is no tcp://HOST:PORT, the port 1 to 65535";
    line.Target = text;
    line.Key = std::string(kTcp) + SmallLetters(place->Host) + ":" + std::to_string(place->Port);
    return {};
}

std::string ReadNode(std::string_view text, TableLine& line) {
    constexpr const char* kLegal =
        "is no node://ADDRESS@IP or node://ADDRESS@IP:PORT, ADDRESS the node's own, 12 hexadecimal digits";
    std::string_view place = text.substr(kNode.size());
    const std::size_t at = std::min(place.find('@'), place.size());
    const std::string address(place.substr(0, at));
    place.remove_prefix(std::min(at + 1, place.size()));
    const std::size_t colon = std::min(place.find(':'), place.size());
    SettingsLines lines = NewSettingsLines();
    const std::string ip(place.substr(0, colon));
    if (!SetSettingsKey(lines, *FindSettingsKey("NodeAddress"), address).empty()) return kLegal;
    if (!SetSettingsKey(lines, *FindSettingsKey("NodeIp"), ip).empty()) return kLegal;
    Settings parsed;
    ParseSettings(lines, parsed);
    if (!parsed.EthernetMode) return "is no node: an address of 0 or F alone means that there is none";
    const std::string port = colon == place.size() ? "10001" : PortNumberText(place.substr(colon + 1));
    if (port.empty()) return kLegal;
    line.NodeAddress = parsed.NodeAddress;
    line.NodeIp = parsed.NodeIp;
    line.NodeTcpPort = std::stoi(port);
    line.Key = std::string(kNode) + line.NodeAddress + "@" + line.NodeIp;
    return {};
}

std::string DevicePathOf(std::string_view text, const std::string& folder, const FileReader& files) {
    const std::string name(text);
    if (name.find('/') == std::string::npos) {
        const std::string byId = "/dev/serial/by-id/" + name;
        return files.Exists(byId) ? byId : "/dev/" + name;
    }
    return files.Absolute(name.starts_with('/') || folder.empty() ? name : folder + "/" + name);
}

}  // namespace

std::string ReadTableLine(std::string_view text, const std::string& folder, const FileReader& files,
                          TableLine& line) {
    line.Text = text;
    if (text.empty()) return "is empty: a device, its name by id, tcp://HOST:PORT or node://ADDRESS@IP";
    if (text.starts_with(kTcp)) return ReadTcp(text, line);
    if (text.starts_with(kNode)) return ReadNode(text, line);
    line.Target = DevicePathOf(text, folder, files);
    line.Key = files.FollowLinks(line.Target);
    return {};
}

}  // namespace counter
