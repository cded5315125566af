// LineSettings: "baud,parity,databits,stopbits" as the values that are set on a serial line.
#pragma once

#include <QSerialPort>
#include <optional>
#include <string_view>

namespace counter {

struct LineSettings {
    int Baud = 9600;  // bits a second, one of the seven that the meter knows, 300 to 19200
    QSerialPort::Parity Parity = QSerialPort::NoParity;
    QSerialPort::DataBits DataBits = QSerialPort::Data8;  // or 7
    QSerialPort::StopBits StopBits = QSerialPort::OneStop;
    QSerialPort::FlowControl Handshake = QSerialPort::NoFlowControl;  // whatever the text
    // Both are up on opening, as the system itself sets them, until the link says otherwise.
    bool Dtr = true;
    bool Rts = true;

    bool operator==(const LineSettings&) const = default;
};

// Nothing where the text is not of that form or asks for what the meter can't do.
std::optional<LineSettings> ParseLineSettings(std::string_view text);

// What the port of this name ("ttyUSB0", "pts/3") is asked for. A pseudo terminal has no wire: it carries
// bytes whole and refuses 7 data bits and parity.
LineSettings SettingsFor(std::string_view portName, const LineSettings& settings);

}  // namespace counter
