// QtSerialPort: the serial line to the meter, on a port of the system.
#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>

#include "platform/serial_port.h"
#include "system/line_settings.h"

namespace counter {

// Sends and receives while the event loop runs; needs an application object.
//
// A line that goes away (a pulled cable, the far end of a pseudo terminal closed) is one fault: Faulted() is
// true from then on, what had arrived can still be read, what had not gone out is dropped, and nothing opens
// it again but Open. PortOpen() stays true until Close.
class QtSerialPort : public SerialPort {
  public:
    // `catalog` says which device a port number means, again at every opening.
    explicit QtSerialPort(const PortCatalog& catalog);
    ~QtSerialPort() override;

    void SetCommPort(int number) override { number_ = number; }
    // Illegal where the meter knows no such line or an open port refuses it; what was set before stays.
    Status SetSettings(std::string_view text) override;
    // NotFound; NoPermission, with what to do about it; Busy where another program (or another port object)
    // holds the device under whatever name; Illegal where it is no serial port.
    Status Open() override;
    void Close() override;
    bool PortOpen() const override { return port_ != nullptr; }

    // Remembered while the port is closed.
    void SetDtrEnable(bool on) override;
    void SetRtsEnable(bool on) override;
    void SetHandshaking(int) override {}  // always none

    std::size_t InBufferCount() override;
    std::string Input() override;
    // Dropped where the port is faulted: nobody is told but by Faulted().
    void Output(std::string_view bytes) override;
    // What the system's own send buffer has not taken yet; 0 where the port is faulted.
    std::size_t OutBufferCount() override;

    bool Faulted() const override { return port_ == nullptr || lineGone_; }

  private:
    void CheckLine();
    void GiveUpLine();

    const PortCatalog& catalog_;
    int number_ = 1;
    LineSettings settings_;              // DTR and RTS as they were last set
    std::unique_ptr<QSerialPort> port_;  // one for each opening
    bool lineGone_ = false;
    std::string kept_;  // arrived before the line went away
};

}  // namespace counter
