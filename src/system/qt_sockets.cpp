#include "system/qt_sockets.h"

#include <arpa/inet.h>
#include <linux/sockios.h>
#include <netdb.h>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <sys/ioctl.h>
#include <sys/socket.h>
#include <unistd.h>

#include <QSocketNotifier>
#include <cerrno>
#include <cstdint>
#include <optional>

#include "system/system_status.h"

namespace counter {

namespace {

// Far more than a frame; what has arrived beyond it is told next.
constexpr std::size_t kMostAtOnce = 64 * 1024;

Status PortFailure(const char* kind, int port, int error) {
    return SystemStatus(std::string(kind) + " port " + std::to_string(port), error);
}

void CloseDescriptor(int& descriptor) {
    if (descriptor >= 0) close(descriptor);
    descriptor = -1;
}

void SetOption(int descriptor, int level, int option, int value) {
    setsockopt(descriptor, level, option, &value, sizeof value);
}

// A socket for both families, or for IPv4 alone where the machine has no other.
int OpenSocket(int kind, bool& bothFamilies) {
    const int descriptor = socket(AF_INET6, kind | SOCK_NONBLOCK | SOCK_CLOEXEC, 0);
    bothFamilies = descriptor >= 0;
    if (!bothFamilies) return socket(AF_INET, kind | SOCK_NONBLOCK | SOCK_CLOEXEC, 0);
    SetOption(descriptor, IPPROTO_IPV6, IPV6_V6ONLY, 0);
    return descriptor;
}

// An address of either family as the system takes it.
struct Address {
    sockaddr_storage Storage = {};
    socklen_t Size = 0;

    const sockaddr* Generic() const { return reinterpret_cast<const sockaddr*>(&Storage); }
};

// IPv4 addresses are mapped into the other family where a socket is for both. Nothing for a host that is no
// address; an empty one is every address of the machine.
std::optional<Address> AddressOf(const std::string& host, int port, bool bothFamilies) {
    Address address;
    const auto number = htons(static_cast<std::uint16_t>(port));
    if (bothFamilies) {
        auto& six = reinterpret_cast<sockaddr_in6&>(address.Storage);
        six.sin6_family = AF_INET6;
        six.sin6_port = number;
        address.Size = sizeof six;
        if (!host.empty() && inet_pton(AF_INET6, ("::ffff:" + host).c_str(), &six.sin6_addr) != 1) return {};
    } else {
        auto& four = reinterpret_cast<sockaddr_in&>(address.Storage);
        four.sin_family = AF_INET;
        four.sin_port = number;
        address.Size = sizeof four;
        if (!host.empty() && inet_pton(AF_INET, host.c_str(), &four.sin_addr) != 1) return {};
    }
    return address;
}

// At every address of the machine, shared with whoever shares it. Returns 0 or the error.
int BindAnywhere(int descriptor, bool bothFamilies, int port) {
    SetOption(descriptor, SOL_SOCKET, SO_REUSEADDR, 1);
    const auto address = AddressOf("", port, bothFamilies);
    return bind(descriptor, address->Generic(), address->Size) == 0 ? 0 : errno;
}

}  // namespace

// For both families not only to reach the node: where one on this machine holds the port for IPv4, the system
// then gives datagrams to the node. They are never read here; the system's own buffer takes a few and drops
// the rest.
Status QtUdpSocket::Bind(int localPort) {
    Close();
    descriptor_ = OpenSocket(SOCK_DGRAM, bothFamilies_);
    const int error = descriptor_ < 0 ? errno : BindAnywhere(descriptor_, bothFamilies_, localPort);
    if (error == 0) return {};
    Close();
    return PortFailure("UDP", localPort, error);
}

void QtUdpSocket::Send(const std::string& host, int port, std::string_view bytes) {
    if (const auto address = AddressOf(host, port, bothFamilies_))
        sendto(descriptor_, bytes.data(), bytes.size(), 0, address->Generic(), address->Size);
}

void QtUdpSocket::Close() {
    CloseDescriptor(descriptor_);
}

QtTcpSocket::QtTcpSocket() = default;

QtTcpSocket::~QtTcpSocket() {
    QtTcpSocket::Close();
}

Status QtTcpSocket::Listen(int localPort) {
    Close();
    bool bothFamilies = false;
    descriptor_ = OpenSocket(SOCK_STREAM, bothFamilies);
    int error = descriptor_ < 0 ? errno : BindAnywhere(descriptor_, bothFamilies, localPort);
    if (error == 0 && listen(descriptor_, 1) != 0) error = errno;
    if (error != 0) {
        CloseDescriptor(descriptor_);
        return PortFailure("TCP", localPort, error);
    }
    state_ = SocketState::Listening;
    listens_ = std::make_unique<QSocketNotifier>(descriptor_, QSocketNotifier::Read);
    QObject::connect(listens_.get(), &QSocketNotifier::activated, listens_.get(), [this] { Take(); });
    return {};
}

// The first caller ends the listening: others who have called meanwhile are turned away.
void QtTcpSocket::Take() {
    const int caller = accept4(descriptor_, nullptr, nullptr, SOCK_NONBLOCK | SOCK_CLOEXEC);
    if (caller < 0) return;  // was gone again
    listens_->setEnabled(false);
    CloseDescriptor(descriptor_);
    descriptor_ = caller;
    SetOption(caller, IPPROTO_TCP, TCP_NODELAY, 1);
    state_ = SocketState::Connected;
    reads_ = std::make_unique<QSocketNotifier>(caller, QSocketNotifier::Read);
    QObject::connect(reads_.get(), &QSocketNotifier::activated, reads_.get(), [this] { PassOn(); });
}

void QtTcpSocket::PassOn() {
    std::string bytes(kMostAtOnce, '\0');
    const ssize_t size = recv(descriptor_, bytes.data(), bytes.size(), 0);
    if (size > 0) return TellArrived(std::string_view(bytes).substr(0, static_cast<std::size_t>(size)));
    if (size == 0) return End(SocketState::Closing);
    if (errno != EAGAIN && errno != EINTR) End(SocketState::Error);
}

void QtTcpSocket::End(SocketState state) {
    reads_->setEnabled(false);
    CloseDescriptor(descriptor_);
    state_ = state;
}

void QtTcpSocket::Send(std::string_view bytes) {
    if (state_ != SocketState::Connected) return;
    // A connection that broke is noticed where it is read.
    [[maybe_unused]] const ssize_t size = send(descriptor_, bytes.data(), bytes.size(), MSG_NOSIGNAL);
}

void QtTcpSocket::Close() {
    listens_.reset();
    reads_.reset();
    CloseDescriptor(descriptor_);
    state_ = SocketState::Closed;
}

std::size_t QtTcpSocket::Unacknowledged() const {
    int bytes = 0;
    if (state_ != SocketState::Connected || ioctl(descriptor_, SIOCOUTQ, &bytes) != 0) return 0;
    return static_cast<std::size_t>(bytes);
}

std::string QtTcpSocket::Caller() const {
    sockaddr_storage address = {};
    socklen_t size = sizeof address;
    char text[NI_MAXHOST] = {};
    auto* generic = reinterpret_cast<sockaddr*>(&address);
    if (state_ != SocketState::Connected || getpeername(descriptor_, generic, &size) != 0) return {};
    if (getnameinfo(generic, size, text, sizeof text, nullptr, 0, NI_NUMERICHOST) != 0) return {};
    constexpr std::string_view kMapped = "::ffff:";
    const std::string_view host = text;
    return std::string(host.substr(host.starts_with(kMapped) ? kMapped.size() : 0));
}

int QtTcpSocket::LocalPort() const {
    sockaddr_in6 address = {};  // the port is at the same place in both families
    socklen_t size = sizeof address;
    if (state_ != SocketState::Listening) return 0;
    getsockname(descriptor_, reinterpret_cast<sockaddr*>(&address), &size);
    return ntohs(address.sin6_port);
}

}  // namespace counter
