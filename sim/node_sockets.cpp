#include "sim/node_sockets.h"

#include <arpa/inet.h>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <sys/socket.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>

#include "sim/handles.h"

namespace sim {

namespace {

// Longer than any datagram of a tool.
constexpr std::size_t kLongestDatagram = 2048;

sockaddr_in AddressOf(const std::string& ip, int port) {
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_port = htons(static_cast<std::uint16_t>(port));
    inet_pton(AF_INET, ip.c_str(), &address.sin_addr);
    return address;
}

const sockaddr* Generic(const sockaddr_in& address) {
    return reinterpret_cast<const sockaddr*>(&address);
}

void SwitchOn(int handle, int level, int option) {
    const int on = 1;
    setsockopt(handle, level, option, &on, sizeof on);
}

}  // namespace

NodeSockets::~NodeSockets() {
    CloseHandleOf(tcp_);
    CloseHandleOf(udp_);
}

std::string NodeSockets::Open(const std::string& ip) {
    ip_ = ip;
    udp_ = socket(AF_INET, SOCK_DGRAM | SOCK_NONBLOCK | SOCK_CLOEXEC, 0);
    SwitchOn(udp_, SOL_SOCKET, SO_REUSEADDR);
    const sockaddr_in own = AddressOf(ip, kNodePort);
    return udp_ >= 0 && bind(udp_, Generic(own), sizeof own) == 0 ? "" : std::strerror(errno);
}

std::optional<std::string> NodeSockets::ReadDatagram(std::string& host) {
    char bytes[kLongestDatagram];
    sockaddr_in from{};
    socklen_t size = sizeof from;
    const ssize_t got = recvfrom(udp_, bytes, sizeof bytes, 0, reinterpret_cast<sockaddr*>(&from), &size);
    if (got < 0) return std::nullopt;
    char text[INET_ADDRSTRLEN] = {};
    inet_ntop(AF_INET, &from.sin_addr, text, sizeof text);
    host = text;
    return std::string(bytes, static_cast<std::size_t>(got));
}

void NodeSockets::Call(const std::string& host, int port) {
    const int handle = socket(AF_INET, SOCK_STREAM | SOCK_NONBLOCK | SOCK_CLOEXEC, 0);
    SwitchOn(handle, IPPROTO_TCP, TCP_NODELAY);
    const sockaddr_in own = AddressOf(ip_, 0);
    const sockaddr_in tool = AddressOf(host, port);
    const bool begun = bind(handle, Generic(own), sizeof own) == 0 &&
                       (connect(handle, Generic(tool), sizeof tool) == 0 || errno == EINPROGRESS);
    if (!begun || tcp_ >= 0) {
        close(handle);
        return;
    }
    tcp_ = handle;
    calling_ = true;
}

bool NodeSockets::FinishCall() {
    int error = 0;
    socklen_t size = sizeof error;
    getsockopt(tcp_, SOL_SOCKET, SO_ERROR, &error, &size);
    calling_ = false;
    if (error != 0) Hangup();
    return error == 0;
}

std::string NodeSockets::Read() {
    std::string bytes;
    char part[512];
    ssize_t got = 0;
    while ((got = recv(tcp_, part, sizeof part, 0)) > 0) bytes.append(part, static_cast<std::size_t>(got));
    if (got == 0 || (errno != EAGAIN && errno != EINTR)) Hangup();
    return bytes;
}

// What a tool that never reads leaves no room for is lost.
void NodeSockets::Write(std::string_view bytes) {
    while (!bytes.empty() && tcp_ >= 0) {
        const ssize_t gone = send(tcp_, bytes.data(), bytes.size(), MSG_NOSIGNAL);
        if (gone < 0 && errno == EINTR) continue;
        if (gone <= 0) return;
        bytes.remove_prefix(static_cast<std::size_t>(gone));
    }
}

void NodeSockets::Hangup() {
    CloseHandleOf(tcp_);
    calling_ = false;
}

}  // namespace sim
