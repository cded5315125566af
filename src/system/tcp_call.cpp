#include "system/tcp_call.h"

#include <netdb.h>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <memory>

#include "system/system_status.h"

namespace counter {

namespace {

using Clock = std::chrono::steady_clock;
using std::chrono::milliseconds;

constexpr milliseconds kConnectTime{5000};
// A server that can't serve says so and ends the connection: on a network near by, within this time.
constexpr milliseconds kRefusalTime{200};

struct FreeAddresses {
    void operator()(addrinfo* list) const { freeaddrinfo(list); }
};
using Addresses = std::unique_ptr<addrinfo, FreeAddresses>;

// 0, or the error of getaddrinfo.
int Resolve(const TcpLine& line, Addresses& addresses) {
    addrinfo hints = {};
    hints.ai_family = AF_UNSPEC;
    hints.ai_socktype = SOCK_STREAM;
    hints.ai_flags = AI_NUMERICSERV;
    addrinfo* list = nullptr;
    const int error = getaddrinfo(line.Host.c_str(), std::to_string(line.Port).c_str(), &hints, &list);
    addresses.reset(error == 0 ? list : nullptr);
    return error;
}

// False at the deadline. A signal does not shorten the wait.
bool Ready(int descriptor, short events, Clock::time_point deadline) {
    pollfd connection = {descriptor, events, 0};
    for (;;) {
        const auto rest = std::chrono::ceil<milliseconds>(deadline - Clock::now()).count();
        const int ready = poll(&connection, 1, static_cast<int>(std::max<long>(rest, 0)));
        if (ready >= 0 || errno != EINTR) return ready > 0;
    }
}

void SetSocketOption(int descriptor, int level, int option, int value) {
    setsockopt(descriptor, level, option, &value, sizeof value);
}

// A far end that has gone without a word is noticed after some 15 seconds, whether or not something was sent.
void MakeAttentive(int descriptor) {
    SetSocketOption(descriptor, IPPROTO_TCP, TCP_NODELAY, 1);
    SetSocketOption(descriptor, SOL_SOCKET, SO_KEEPALIVE, 1);
    SetSocketOption(descriptor, IPPROTO_TCP, TCP_KEEPIDLE, 6);
    SetSocketOption(descriptor, IPPROTO_TCP, TCP_KEEPINTVL, 3);
    SetSocketOption(descriptor, IPPROTO_TCP, TCP_KEEPCNT, 3);
    SetSocketOption(descriptor, IPPROTO_TCP, TCP_USER_TIMEOUT, 15'000);
}

// 0, or the error; `descriptor` is then closed.
int Connect(const addrinfo& address, Clock::time_point deadline, int& descriptor) {
    descriptor = socket(address.ai_family, SOCK_STREAM | SOCK_NONBLOCK | SOCK_CLOEXEC, address.ai_protocol);
    if (descriptor < 0) return errno;
    MakeAttentive(descriptor);
    int error = connect(descriptor, address.ai_addr, address.ai_addrlen) == 0 ? 0 : errno;
    if (error == EINPROGRESS) {
        socklen_t size = sizeof error;
        if (!Ready(descriptor, POLLOUT, deadline))
            error = ETIMEDOUT;
        else
            getsockopt(descriptor, SOL_SOCKET, SO_ERROR, &error, &size);
    }
    if (error != 0) close(descriptor);
    return error;
}

// Whether the server has ended the connection by itself; takes in what it says.
bool EndsAtOnce(int descriptor, std::string& first) {
    const auto deadline = Clock::now() + kRefusalTime;
    while (Ready(descriptor, POLLIN, deadline)) {
        char part[512];
        const ssize_t size = recv(descriptor, part, sizeof part, 0);
        if (size == 0 || (size < 0 && errno != EAGAIN && errno != EINTR)) return true;
        if (size > 0) first.append(part, static_cast<std::size_t>(size));
    }
    return false;
}

std::string AdviceFor(int error) {
    if (error == ECONNREFUSED)
        return " (no server listens at this port: is it started, is the number right?)";
    if (error == ETIMEDOUT) return " (no answer within 5 seconds: is the machine on, is a firewall between?)";
    return "";
}

// What a server said, as a part of a line.
std::string Said(std::string text) {
    std::replace_if(
        text.begin(), text.end(), [](unsigned char c) { return c < ' ' || c > '~'; }, ' ');
    const std::size_t end = text.find_last_not_of(' ');
    return end == std::string::npos ? ""
                                    : ": \"" + text.substr(0, std::min<std::size_t>(end + 1, 100)) + "\"";
}

}  // namespace

Status CallServer(const std::string& name, const TcpLine& line, int& descriptor, std::string& first) {
    Addresses addresses;
    if (const int error = Resolve(line, addresses); error != 0)
        return {StatusKind::NotFound, name, gai_strerror(error)};
    int error = ETIMEDOUT;
    int count = 0;
    for (const addrinfo* address = addresses.get(); address != nullptr; address = address->ai_next) ++count;
    for (const addrinfo* address = addresses.get(); address != nullptr; address = address->ai_next) {
        // One that is never answered takes no time from the others.
        error = Connect(*address, Clock::now() + kConnectTime / count, descriptor);
        if (error == 0) break;
    }
    if (error != 0) {
        Status status = SystemStatus(name, error);
        status.Reason += AdviceFor(error);
        return status;
    }
    if (!EndsAtOnce(descriptor, first)) return {};
    close(descriptor);
    return {StatusKind::Busy, name,
            "the server ended the connection at once" + Said(first) +
                " (it serves one at a time: does another program use the line, can it open its device?)"};
}

}  // namespace counter
