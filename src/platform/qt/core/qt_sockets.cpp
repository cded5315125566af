#include "platform/qt/core/qt_sockets.h"

#include <QHostAddress>
#include <QTcpServer>
#include <QTcpSocket>
#include <QUdpSocket>

namespace counter {

namespace {

// Far more than a frame. What a caller sends beyond it, before it is taken, waits in the system.
constexpr qint64 kMostUnread = 64 * 1024;

Status PortFailure(const char* kind, int port, QAbstractSocket::SocketError error, const QString& reason) {
    StatusKind status = StatusKind::Other;
    if (error == QAbstractSocket::AddressInUseError) status = StatusKind::Busy;
    if (error == QAbstractSocket::SocketAccessError) status = StatusKind::NoPermission;
    return {status, kind + std::string(" port ") + std::to_string(port), reason.toStdString()};
}

}  // namespace

QtUdpSocket::QtUdpSocket() = default;
QtUdpSocket::~QtUdpSocket() = default;

// Bound to the addresses of both families: where a node on this machine holds the port for IPv4, the system
// then gives datagrams to the node. They are never read here; the system's own buffer takes a few and drops
// the rest.
Status QtUdpSocket::Bind(int localPort) {
    auto socket = std::make_unique<QUdpSocket>();
    if (!socket->bind(QHostAddress::Any, static_cast<quint16>(localPort), QUdpSocket::ShareAddress))
        return PortFailure("UDP", localPort, socket->error(), socket->errorString());
    socket_ = std::move(socket);
    return {};
}

void QtUdpSocket::Send(const std::string& host, int port, std::string_view bytes) {
    if (!socket_) return;
    socket_->writeDatagram(bytes.data(), static_cast<qint64>(bytes.size()),
                           QHostAddress(QString::fromStdString(host)), static_cast<quint16>(port));
}

void QtUdpSocket::Close() {
    socket_.reset();
}

void QtTcpSocket::Later::operator()(QTcpServer* server) const {
    server->close();
    server->deleteLater();
}

void QtTcpSocket::Later::operator()(QTcpSocket* socket) const {
    socket->disconnect();
    socket->close();
    socket->deleteLater();
}

QtTcpSocket::QtTcpSocket() = default;
QtTcpSocket::~QtTcpSocket() = default;

Status QtTcpSocket::Listen(int localPort) {
    Close();
    auto* server = new QTcpServer;
    server_.reset(server);
    if (!server->listen(QHostAddress::Any, static_cast<quint16>(localPort))) {
        Status status = PortFailure("TCP", localPort, server->serverError(), server->errorString());
        server_.reset();
        return status;
    }
    QObject::connect(server, &QTcpServer::newConnection, server, [this] { Take(); });
    return {};
}

// The first caller ends the listening: others who have called meanwhile are turned away.
void QtTcpSocket::Take() {
    if (socket_) return;
    QTcpSocket* caller = server_->nextPendingConnection();
    if (caller == nullptr) return;
    caller->setParent(nullptr);
    socket_.reset(caller);
    server_.reset();
    caller->setReadBufferSize(kMostUnread);
    caller->setSocketOption(QAbstractSocket::LowDelayOption, 1);
    QObject::connect(caller, &QTcpSocket::readyRead, caller, [this] { PassOn(); });
    PassOn();
}

void QtTcpSocket::PassOn() {
    const QByteArray bytes = socket_->readAll();
    if (!bytes.isEmpty())
        TellArrived(std::string_view(bytes.constData(), static_cast<std::size_t>(bytes.size())));
}

SocketState QtTcpSocket::State() const {
    if (server_) return SocketState::Listening;
    if (!socket_) return SocketState::Closed;
    if (socket_->state() == QAbstractSocket::ConnectedState) return SocketState::Connected;
    const bool closed = socket_->error() == QAbstractSocket::RemoteHostClosedError;
    return closed ? SocketState::Closing : SocketState::Error;
}

void QtTcpSocket::Send(std::string_view bytes) {
    if (State() == SocketState::Connected) socket_->write(bytes.data(), static_cast<qint64>(bytes.size()));
}

void QtTcpSocket::Close() {
    server_.reset();
    socket_.reset();
}

int QtTcpSocket::LocalPort() const {
    return server_ ? server_->serverPort() : 0;
}

}  // namespace counter
