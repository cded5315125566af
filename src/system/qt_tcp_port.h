// QtTcpPort: a serial line that a server on the network hands on, as raw bytes over TCP.
//
// The server has set the line's speed and form; what is set here reaches no wire. There are no modem lines. A
// connection that ends, or whose far end has answered nothing for some 15 seconds, is a line that went away.
#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "platform/serial_port.h"
#include "system/line_settings.h"

class QSocketNotifier;

namespace counter {

// Works while the event loop runs and needs an application object.
class QtTcpPort : public SerialPort {
  public:
    // `catalog` says which line a port number means, again at every opening.
    explicit QtTcpPort(const PortCatalog& catalog);
    ~QtTcpPort() override;
    QtTcpPort(const QtTcpPort&) = delete;
    QtTcpPort& operator=(const QtTcpPort&) = delete;

    void SetCommPort(int number) override { number_ = number; }
    // Illegal where the meter knows no such line.
    Status SetSettings(std::string_view text) override;
    // Waits, 5 seconds at most, and runs no events. NotFound for a host that nobody knows; Busy where the
    // server takes the call and ends it at once, as one does that serves somebody else; Illegal where the
    // number means no line on the network.
    Status Open() override;
    void Close() override;
    bool PortOpen() const override { return descriptor_ >= 0; }

    void SetDtrEnable(bool) override {}
    void SetRtsEnable(bool) override {}
    void SetHandshaking(int) override {}

    std::size_t InBufferCount() override { return received_.size(); }
    std::string Input() override;
    void Output(std::string_view bytes) override;
    // What the system has not taken yet.
    std::size_t OutBufferCount() override { return unsent_.size(); }
    bool Faulted() const override { return descriptor_ < 0 || lineGone_; }
    std::string SpeedSetBy() const override { return PortOpen() ? line_ : ""; }

  private:
    void Listen();
    void TakeIn();
    void SendOn();
    void LoseLine();

    const PortCatalog& catalog_;
    int number_ = 1;
    std::string line_;
    int descriptor_ = -1;
    std::unique_ptr<QSocketNotifier> reads_, writes_;  // both stay until Close
    bool lineGone_ = false;
    std::string received_, unsent_;
};

}  // namespace counter
