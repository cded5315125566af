#include "system/qt_line.h"

#include "platform/tcp_line.h"

namespace counter {

QtLine::QtLine(const PortCatalog& catalog) : catalog_(catalog), serial_(catalog), tcp_(catalog) {
    serial_.Arrived = tcp_.Arrived = [this] { TellArrived(); };
}

void QtLine::SetCommPort(int number) {
    number_ = number;
    serial_.SetCommPort(number);
    tcp_.SetCommPort(number);
}

// The one that is not in use keeps them for its opening.
Status QtLine::SetSettings(std::string_view text) {
    Status status = used_->SetSettings(text);
    if (status.Ok() && used_ != &serial_) return serial_.SetSettings(text);
    return status;
}

Status QtLine::Open() {
    used_->Close();
    if (NamesTcpLine(catalog_.DeviceOf(number_)))
        used_ = &tcp_;
    else
        used_ = &serial_;
    return used_->Open();
}

// A serial port remembers them while it is closed.
void QtLine::SetDtrEnable(bool on) {
    serial_.SetDtrEnable(on);
}

void QtLine::SetRtsEnable(bool on) {
    serial_.SetRtsEnable(on);
}

}  // namespace counter
