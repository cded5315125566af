// The line of a row: what a meter is reached over, as people write it into a table.
//
//   /dev/ttyUSB0, ttyUSB0, ./line      a device; a path is the table's own, a bare name is looked for in /dev
//   usb-FTDI_FT232R_A1B2-if00-port0    its name under /dev/serial/by-id
//   tcp://HOST:PORT                    a serial line that another machine exports
//   node://0080A3010203@192.168.1.50   an Ethernet node: its own address and its IP address; ":10001" behind
//                                      it is the TCP port of this machine that it calls
#pragma once

#include <string>
#include <string_view>

#include "platform/files.h"

namespace counter {

struct TableLine {
    std::string Text;  // as the table has it
    // A device's path from the root, or tcp://HOST:PORT; empty for a node.
    std::string Target;
    std::string NodeAddress, NodeIp;  // empty for any other line
    int NodeTcpPort = 10001;
    // Lines with one key are one line, whatever they are called.
    std::string Key;

    bool IsNode() const { return !NodeAddress.empty(); }
    bool IsTcp() const { return Target.starts_with("tcp://"); }
    // Rows with one process come one after the other: those of a line, and all at nodes, which call this
    // machine's one port.
    std::string Process() const { return IsNode() ? "node" : Key; }
};

// `folder` is that of the table, "" for the current one. Returns an empty text, or what is legal.
std::string ReadTableLine(std::string_view text, const std::string& folder, const FileReader& files,
                          TableLine& line);

}  // namespace counter
