// Node: the Ethernet node with the simulated meter on its serial side, seen from the network.
//
// A state machine on its caller's clock, in milliseconds, as the meter is; it knows no sockets. A login
// datagram makes it call the tool back; on that connection Custom ASCII passes as it is, Modbus with the
// header of its TCP form, whose requests and answers the node frames for the meter's line.
#pragma once

#include <deque>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "sim/fault.h"
#include "sim/meter.h"

namespace sim {

// A tool that is to be called.
struct NodeCall {
    std::string Host;  // where its login came from
    int Port = 0;

    bool operator==(const NodeCall&) const = default;
};

// What goes out on the connection in one segment. Close: the node ends the connection after it.
struct NodeSegment {
    std::string Bytes;
    bool Close = false;
};

class Node {
  public:
    // `address` is 12 upper-case hexadecimal digits. The faults of `options` strike in the node and in the
    // meter, each where they belong; logins are the command "login".
    Node(const std::string& address, const MeterOptions& options);

    // A datagram from `host`. A good login of whoever it is makes the node drop a connection that is up: a
    // tool that logs in has none.
    void Datagram(std::string_view bytes, const std::string& host, double nowMs);
    // The calls that are due. Whoever makes them says Connected once one is up.
    std::vector<NodeCall> TakeCalls(double nowMs);
    void Connected();
    void Disconnected();

    // Bytes from the tool, over the connection.
    void Receive(std::string_view bytes, double nowMs);
    std::vector<NodeSegment> TakeDue(double nowMs);
    // When TakeCalls or TakeDue has something to do next; nothing when all is quiet.
    std::optional<double> NextDueMs() const;

    Meter& Behind() { return meter_; }
    const Meter& Behind() const { return meter_; }
    // What the node itself was told, in order: "login HOST PORT", "bad datagram", "keep-alive", "on", "off".
    const std::vector<std::string>& Told() const { return told_; }
    void ClearTold() { told_.clear(); }

  private:
    struct DueCall {
        double AtMs = 0;
        NodeCall Call;
    };
    struct DueSegment {
        double AtMs = 0;
        NodeSegment Segment;
    };

    bool TakeNodeFrame(double nowMs);
    bool TakeAscii(double nowMs);
    bool TakeModbus(double nowMs);
    void Gather(double nowMs);
    void Pack(double nowMs);
    std::string Packed() const;
    void Put(double atMs, std::string bytes, bool close = false);
    void PutStatus(double nowMs);
    double SilenceMs() const;

    std::string address_;  // 6 bytes
    Meter meter_;
    CrcTables crc_;
    FaultList faults_, loginFaults_;
    std::vector<DueCall> calls_;
    bool connected_ = false;
    std::string fromTool_;
    std::string gathered_;          // of the meter's reply
    std::optional<double> packMs_;  // when silence ends it
    std::string transaction_;       // two bytes, of the last request
    Strike strike_;                 // of the last command
    std::deque<DueSegment> output_;
    std::vector<std::string> told_;
};

}  // namespace sim
