#include "system/qt_tcp_port.h"

#include <sys/socket.h>
#include <unistd.h>

#include <QSocketNotifier>
#include <cerrno>

#include "system/tcp_call.h"

namespace counter {

namespace {

// Far more than a reply; what has arrived beyond it is told next.
constexpr std::size_t kMostInOneRead = 64 * 1024;

}  // namespace

QtTcpPort::QtTcpPort(const PortCatalog& catalog) : catalog_(catalog) {}

QtTcpPort::~QtTcpPort() {
    QtTcpPort::Close();
}

Status QtTcpPort::SetSettings(std::string_view text) {
    if (ParseLineSettings(text)) return {};
    return {StatusKind::Illegal, std::string(text), "no line settings of the meter"};
}

Status QtTcpPort::Open() {
    Close();
    line_ = catalog_.DeviceOf(number_);
    const auto line = ParseTcpLine(line_);
    if (!line) return {StatusKind::Illegal, line_, kTcpLineForm};
    int descriptor = -1;
    if (Status status = CallServer(line_, *line, descriptor, received_); !status.Ok()) {
        received_.clear();
        return status;
    }
    descriptor_ = descriptor;
    Listen();
    return {};
}

void QtTcpPort::Listen() {
    reads_ = std::make_unique<QSocketNotifier>(descriptor_, QSocketNotifier::Read);
    writes_ = std::make_unique<QSocketNotifier>(descriptor_, QSocketNotifier::Write);
    writes_->setEnabled(false);
    QObject::connect(reads_.get(), &QSocketNotifier::activated, reads_.get(), [this] { TakeIn(); });
    QObject::connect(writes_.get(), &QSocketNotifier::activated, writes_.get(), [this] { SendOn(); });
}

void QtTcpPort::Close() {
    reads_.reset();
    writes_.reset();
    if (descriptor_ >= 0) close(descriptor_);
    descriptor_ = -1;
    lineGone_ = false;
    received_.clear();
    unsent_.clear();
}

std::string QtTcpPort::Input() {
    std::string bytes;
    bytes.swap(received_);
    return bytes;
}

void QtTcpPort::Output(std::string_view bytes) {
    if (Faulted()) return;
    unsent_ += bytes;
    SendOn();
}

void QtTcpPort::SendOn() {
    const ssize_t size = send(descriptor_, unsent_.data(), unsent_.size(), MSG_NOSIGNAL);
    if (size < 0 && errno != EAGAIN && errno != EINTR) return LoseLine();
    if (size > 0) unsent_.erase(0, static_cast<std::size_t>(size));
    writes_->setEnabled(!unsent_.empty());
}

void QtTcpPort::TakeIn() {
    std::string bytes(kMostInOneRead, '\0');
    const ssize_t size = recv(descriptor_, bytes.data(), bytes.size(), 0);
    if (size == 0 || (size < 0 && errno != EAGAIN && errno != EINTR)) return LoseLine();
    if (size < 0) return;
    received_.append(bytes, 0, static_cast<std::size_t>(size));
    TellArrived();
}

void QtTcpPort::LoseLine() {
    lineGone_ = true;
    reads_->setEnabled(false);
    writes_->setEnabled(false);
    unsent_.clear();
}

}  // namespace counter
