// QtLine: the line to the meter, on a serial port of this machine or on the network, as its number means.
#pragma once

#include "system/qt_serial_port.h"
#include "system/qt_tcp_port.h"

namespace counter {

// Which of the two it is is asked of `catalog` at every opening; each class tells the rest.
class QtLine : public SerialPort {
  public:
    explicit QtLine(const PortCatalog& catalog);

    void SetCommPort(int number) override;
    Status SetSettings(std::string_view text) override;
    Status Open() override;
    void Close() override { used_->Close(); }
    bool PortOpen() const override { return used_->PortOpen(); }
    void SetDtrEnable(bool on) override;
    void SetRtsEnable(bool on) override;
    void SetHandshaking(int kind) override { used_->SetHandshaking(kind); }
    std::size_t InBufferCount() override { return used_->InBufferCount(); }
    std::string Input() override { return used_->Input(); }
    void Output(std::string_view bytes) override { used_->Output(bytes); }
    std::size_t OutBufferCount() override { return used_->OutBufferCount(); }
    bool Faulted() const override { return used_->Faulted(); }
    std::string SpeedSetBy() const override { return used_->SpeedSetBy(); }

  private:
    const PortCatalog& catalog_;
    int number_ = 1;
    QtSerialPort serial_;
    QtTcpPort tcp_;
    SerialPort* used_ = &serial_;
};

}  // namespace counter
