#include "system/qt_serial_port.h"

#include <fcntl.h>
#include <poll.h>
#include <termios.h>
#include <unistd.h>

#include <cerrno>

#include "system/links.h"
#include "system/port_refusal.h"
#include "system/system_status.h"

namespace counter {

namespace {

bool Apply(const LineSettings& settings, QSerialPort& port) {
    const LineSettings line = SettingsFor(port.portName().toStdString(), settings);
    return port.setBaudRate(line.Baud) && port.setStopBits(line.StopBits) && port.setParity(line.Parity) &&
           port.setDataBits(line.DataBits) && port.setFlowControl(line.Handshake);
}

// Why the system refuses `device`; 0 where it doesn't.
int WhyNotOpen(const std::string& device) {
    const int descriptor = open(device.c_str(), O_RDWR | O_NOCTTY | O_NONBLOCK | O_CLOEXEC);
    if (descriptor < 0) return errno;
    termios line = {};
    const int error = tcgetattr(descriptor, &line) == 0 ? 0 : errno;
    close(descriptor);
    return error;
}

// The port object tells a lock and a refused permission by one error, so the system is asked again.
Status OpenFailure(const std::string& named, const std::string& device, const QSerialPort& port) {
    const std::string path = named == device ? named : named + " (" + device + ")";
    const int error = WhyNotOpen(device);
    if (error != 0) {
        Status status = SystemStatus(path, error);
        if (error == EACCES) status.Reason += RefusalAdvice(GroupAccessTo(device));
        return status;
    }
    if (port.error() == QSerialPort::PermissionError) {
        Status status = SystemStatus(path, EBUSY);
        status.Reason += LockAdvice(device);
        return status;
    }
    return {StatusKind::Other, path, port.errorString().toStdString()};
}

bool LineIsGone(int descriptor) {
    pollfd line = {descriptor, 0, 0};
    return poll(&line, 1, 0) > 0;  // asked for nothing, it tells hang-up and error alone
}

}  // namespace

QtSerialPort::QtSerialPort(const PortCatalog& catalog) : catalog_(catalog) {}

QtSerialPort::~QtSerialPort() = default;

Status QtSerialPort::SetSettings(std::string_view text) {
    auto settings = ParseLineSettings(text);
    if (!settings) return {StatusKind::Illegal, std::string(text), "no line settings of the meter"};
    if (!Faulted() && !Apply(*settings, *port_)) {
        const std::string reason = port_->errorString().toStdString();
        Apply(settings_, *port_);
        return {StatusKind::Illegal, port_->portName().toStdString(), reason};
    }
    settings->Dtr = settings_.Dtr;
    settings->Rts = settings_.Rts;
    settings_ = *settings;
    return {};
}

Status QtSerialPort::Open() {
    Close();
    const std::string named = catalog_.DeviceOf(number_);
    const std::string device = FollowLinks(named);
    auto port = std::make_unique<QSerialPort>(QString::fromStdString(device));
    Apply(settings_, *port);
    if (!port->open(QIODevice::ReadWrite)) return OpenFailure(named, device, *port);
    port_ = std::move(port);
    QObject::connect(port_.get(), &QSerialPort::errorOccurred, port_.get(), [this] { CheckLine(); });
    QObject::connect(port_.get(), &QSerialPort::readyRead, port_.get(), [this] { TellArrived(); });
    SetDtrEnable(settings_.Dtr);
    SetRtsEnable(settings_.Rts);
    return {};
}

void QtSerialPort::Close() {
    port_.reset();
    lineGone_ = false;
    kept_.clear();
}

void QtSerialPort::SetDtrEnable(bool on) {
    settings_.Dtr = on;
    if (!Faulted()) port_->setDataTerminalReady(on);
}

void QtSerialPort::SetRtsEnable(bool on) {
    settings_.Rts = on;
    if (!Faulted()) port_->setRequestToSend(on);
}

std::size_t QtSerialPort::InBufferCount() {
    return kept_.size() + (port_ ? static_cast<std::size_t>(port_->bytesAvailable()) : 0);
}

std::string QtSerialPort::Input() {
    std::string bytes;
    bytes.swap(kept_);
    if (port_ && port_->isOpen()) bytes += port_->readAll().toStdString();
    return bytes;
}

void QtSerialPort::Output(std::string_view bytes) {
    if (!Faulted()) port_->write(bytes.data(), static_cast<qint64>(bytes.size()));
}

std::size_t QtSerialPort::OutBufferCount() {
    return Faulted() ? 0 : static_cast<std::size_t>(port_->bytesToWrite());
}

// Not every error is a fault: a port without modem lines says ENOTTY each time one is set. So the line itself
// is asked.
void QtSerialPort::CheckLine() {
    if (lineGone_ || !LineIsGone(port_->handle())) return;
    lineGone_ = true;
    // Not from within its own signal, but before it can be woken again: a line that hung up is always ready.
    QMetaObject::invokeMethod(
        port_.get(), [this] { GiveUpLine(); }, Qt::QueuedConnection);
}

void QtSerialPort::GiveUpLine() {
    kept_ += port_->readAll().toStdString();
    port_->close();
}

}  // namespace counter
