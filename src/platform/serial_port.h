// SerialPort: the one serial line to the meter.
#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/status.h"

namespace counter {

class SerialPort {
  public:
    virtual ~SerialPort() = default;

    // Port number 1..99; takes effect at the next opening.
    virtual void SetCommPort(int number) = 0;
    // "baud,parity,databits,stopbits", such as "9600,n,8,1"; takes effect at once on an open port.
    virtual Status SetSettings(std::string_view text) = 0;
    // An opening that fails says why; the port is then closed.
    virtual Status Open() = 0;
    virtual void Close() = 0;
    virtual bool PortOpen() const = 0;

    // Modem lines; a port that has none takes them without an error.
    virtual void SetDtrEnable(bool on) = 0;
    virtual void SetRtsEnable(bool on) = 0;
    virtual void SetHandshaking(int kind) = 0;  // 0 none, the only kind in use

    // Characters that have arrived and were not yet read.
    virtual std::size_t InBufferCount() = 0;
    // All of them, one byte a character.
    virtual std::string Input() = 0;
    virtual void Output(std::string_view bytes) = 0;
    // Characters given to Output that have not gone out yet.
    virtual std::size_t OutBufferCount() = 0;

    // True once the port is not open or its line went away; stays so until the next opening.
    virtual bool Faulted() const = 0;

    // The name of an open line whose speed and form are another machine's, whatever SetSettings says; empty
    // for a line of this machine.
    virtual std::string SpeedSetBy() const { return {}; }

    // Told from the event loop that input has arrived; may be empty. It must not wait.
    std::function<void()> Arrived;

  protected:
    // A copy is called, so that who is told may hand Arrived on to somebody else.
    void TellArrived() const {
        if (const std::function<void()> arrived = Arrived) arrived();
    }
};

// A serial port of the machine, as lists show it.
struct PortDescription {
    std::string Device;       // "/dev/ttyUSB0"
    std::string Description;  // the system's words, may be empty
    std::string ById;         // its name under /dev/serial/by-id, may be empty
};

class PortCatalog {
  public:
    virtual ~PortCatalog() = default;
    // The machine's serial ports in the system's order: the Nth is port number N where no link says other.
    virtual std::vector<PortDescription> Ports() const = 0;
    // The device that `number` means: the target of ports/comN in the program folder, else the Nth port of
    // the machine, else the path of the missing link.
    virtual std::string DeviceOf(int number) const = 0;
};

}  // namespace counter
