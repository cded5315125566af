#include "link/node_frames.h"

#include "link/node_checksum.h"
#include "meter/hex_text.h"

namespace counter {

namespace {

constexpr std::string_view kHeaderToken = "\x5A\x93\xD1\xC0\x7E\x42";
constexpr std::string_view kStatusMark = "\x05\x04";
constexpr std::size_t kStatusMarkAt = 12;
constexpr std::size_t kStatusSize = 19;
constexpr std::size_t kFrameCheckAt = 14;
constexpr std::size_t kAddressDigits = 12;

std::string BigEndian(int number) {
    return {static_cast<char>(number >> 8), static_cast<char>(number)};
}

}  // namespace

std::string NodeId(std::string_view nodeAddress) {
    std::string digits(nodeAddress);
    digits.resize(kAddressDigits, '0');
    return TextOfHex(digits) + std::string(kHeaderToken);
}

std::string NodeLoginFrame(std::string_view nodeAddress, int variant, int tcpPort) {
    std::string frame = NodeId(nodeAddress);
    frame += '\x04';
    frame += static_cast<char>(variant);
    frame += BigEndian(0) + BigEndian(tcpPort) + BigEndian(0);
    frame.replace(kFrameCheckAt, 2, BigEndian(NodeChecksum(frame, variant)));
    return frame;
}

std::string NodeKeepAlive(std::string_view nodeAddress) {
    return NodeId(nodeAddress) + "\x01\x01\x05\xFF";
}

std::string NodeCommand(std::string_view nodeAddress, bool on) {
    return NodeId(nodeAddress) + TextOfHex(on ? "570410000000FF" : "570400000000FF");
}

bool IsStatusFrame(std::string_view received) {
    return received.size() == kStatusSize && received.starts_with(kHeaderToken) &&
           received.substr(kStatusMarkAt, kStatusMark.size()) == kStatusMark;
}

std::string_view WithoutStatusFrames(std::string_view received) {
    while (IsStatusFrame(received.substr(0, kStatusSize))) received.remove_prefix(kStatusSize);
    while (received.size() > kStatusSize && IsStatusFrame(received.substr(received.size() - kStatusSize)))
        received.remove_suffix(kStatusSize);
    return received;
}

}  // namespace counter
