#include "sim/node.h"

#include <algorithm>
#include <utility>

#include "sim/hex.h"
#include "sim/node_login.h"

namespace sim {

namespace {

// Address and token, then what it is about.
constexpr std::size_t kHeadSize = 12;
constexpr std::size_t kKeepAliveSize = 16;
constexpr std::size_t kCommandSize = 19;
// Transaction, zeros, length.
constexpr std::size_t kModbusHeader = 6;
// Longer than any frame: what a tool sends that makes none is thrown away.
constexpr std::size_t kLongestFromTool = 600;

constexpr std::string_view kLogin = "login";

// Those of logins, or the others: what strikes every command strikes no login.
std::vector<Fault> FaultsOf(const MeterOptions& options, bool logins) {
    std::vector<Fault> faults = options.Faults;
    std::erase_if(faults, [&](const Fault& fault) { return (fault.Command == kLogin) != logins; });
    return faults;
}

std::string Word(std::size_t value) {
    return {static_cast<char>(value >> 8), static_cast<char>(value)};
}

std::string BehindHead(const std::string& line) {
    const std::size_t star = line.find('*');
    return star == std::string::npos || line.size() < star + 2 ? line : line.substr(star + 2);
}

}  // namespace

Node::Node(const std::string& address, const MeterOptions& options)
    : address_(BytesOfHex(address).value_or(std::string(6, '\0'))),
      meter_(options),
      crc_(options.Crc),
      faults_(FaultsOf(options, false)),
      loginFaults_(FaultsOf(options, true)) {}

void Node::Datagram(std::string_view bytes, const std::string& host, double nowMs) {
    const std::optional<int> port = ParseNodeLogin(bytes, address_);
    if (!port) {
        told_.push_back("bad datagram");
        return;
    }
    told_.push_back("login " + host + " " + std::to_string(*port));
    if (connected_) Put(nowMs, "", true);
    const Strike strike = loginFaults_.Next(kLogin);
    if (strike.NoReply) return;
    for (int calls = strike.Twice ? 2 : 1; calls > 0; --calls)
        calls_.push_back({nowMs + strike.LateMs, {host, *port}});
}

std::vector<NodeCall> Node::TakeCalls(double nowMs) {
    std::vector<NodeCall> due;
    std::erase_if(calls_, [&](const DueCall& call) {
        if (call.AtMs <= nowMs) due.push_back(call.Call);
        return call.AtMs <= nowMs;
    });
    return due;
}

// Whoever has called has no more to ask for.
void Node::Connected() {
    connected_ = true;
    calls_.clear();
    fromTool_.clear();
    gathered_.clear();
    packMs_.reset();
    output_.clear();
}

void Node::Disconnected() {
    connected_ = false;
    output_.clear();
}

void Node::Receive(std::string_view bytes, double nowMs) {
    fromTool_ += bytes;
    const bool ascii = meter_.ActiveLine().Protocol == LineProtocol::CustomAscii;
    while (TakeNodeFrame(nowMs) || (ascii ? TakeAscii(nowMs) : TakeModbus(nowMs))) {
    }
    if (fromTool_.size() > kLongestFromTool) fromTool_.clear();
}

// Each is answered by a status frame.
bool Node::TakeNodeFrame(double nowMs) {
    if (!fromTool_.starts_with(address_ + NodeToken()) || fromTool_.size() < kKeepAliveSize) return false;
    const bool command = fromTool_[kHeadSize] == '\x57';
    if (command && fromTool_.size() < kCommandSize) return false;
    told_.push_back(!command ? "keep-alive" : fromTool_[kHeadSize + 2] != '\0' ? "on" : "off");
    fromTool_.erase(0, command ? kCommandSize : kKeepAliveSize);
    PutStatus(nowMs);
    return true;
}

bool Node::TakeAscii(double nowMs) {
    const std::size_t end = fromTool_.find('\n');
    if (end == std::string::npos || fromTool_.starts_with(address_ + NodeToken())) return false;
    const std::string line = fromTool_.substr(0, end + 1);
    fromTool_.erase(0, end + 1);
    strike_ = faults_.Next(BehindHead(line.substr(0, line.find_first_of("\r\n"))));
    meter_.Receive(line, nowMs);
    return true;
}

bool Node::TakeModbus(double nowMs) {
    if (fromTool_.size() < kModbusHeader || fromTool_.starts_with(address_ + NodeToken())) return false;
    const auto length = static_cast<std::size_t>(static_cast<unsigned char>(fromTool_[4]) << 8 |
                                                 static_cast<unsigned char>(fromTool_[5]));
    if (fromTool_.substr(2, 2) != std::string(2, '\0') || length < 2 || length > kLongestFromTool) {
        fromTool_.clear();
        return false;
    }
    if (fromTool_.size() < kModbusHeader + length) return false;
    transaction_ = fromTool_.substr(0, 2);
    const ModbusFrame frame{static_cast<unsigned char>(fromTool_[kModbusHeader]),
                            fromTool_.substr(kModbusHeader + 1, length - 1)};
    fromTool_.erase(0, kModbusHeader + length);
    strike_ = faults_.Next(HexOfBytes(frame.Pdu));
    const bool rtu = meter_.ActiveLine().Protocol == LineProtocol::ModbusRtu;
    meter_.Receive(rtu ? RtuFrame(frame, crc_) : ModbusAsciiFrame(frame), nowMs);
    return true;
}

std::vector<NodeSegment> Node::TakeDue(double nowMs) {
    Gather(nowMs);
    std::vector<NodeSegment> due;
    while (!output_.empty() && output_.front().AtMs <= nowMs) {
        due.push_back(std::move(output_.front().Segment));
        output_.pop_front();
        if (!due.back().Close) continue;
        Disconnected();
    }
    return due;
}

std::optional<double> Node::NextDueMs() const {
    std::optional<double> next = meter_.NextDueMs();
    const auto sooner = [&](double atMs) { next = std::min(next.value_or(atMs), atMs); };
    if (packMs_) sooner(*packMs_);
    if (!output_.empty()) sooner(output_.front().AtMs);
    for (const DueCall& call : calls_) sooner(call.AtMs);
    return next;
}

// A silence on the meter's line ends a reply.
void Node::Gather(double nowMs) {
    if (packMs_ && *packMs_ <= nowMs) Pack(*packMs_);
    const std::string bytes = meter_.TakeDue(nowMs);
    if (meter_.LineGone()) meter_.LineBack();
    if (bytes.empty()) return;
    gathered_ += bytes;
    packMs_ = nowMs + SilenceMs();
}

void Node::Pack(double nowMs) {
    packMs_.reset();
    std::string reply = Packed();
    gathered_.clear();
    const Strike strike = std::exchange(strike_, {});
    if (reply.empty() || !connected_) return;
    if (strike.WrongId) reply[1] = static_cast<char>(reply[1] ^ 1);
    if (strike.Status) PutStatus(nowMs);
    constexpr double kBehindStatusMs = 50;  // so that they don't arrive as one
    const double atMs = nowMs + (strike.Status ? kBehindStatusMs : 0);
    if (strike.Close) {
        Put(atMs, reply.substr(0, std::min(reply.size(), static_cast<std::size_t>(*strike.Close))), true);
    } else if (strike.PiecesMs) {
        const std::size_t first = std::min(reply.size(), static_cast<std::size_t>(strike.PiecesAt));
        Put(atMs, reply.substr(0, first));
        Put(atMs + *strike.PiecesMs, reply.substr(first));
    } else {
        Put(atMs, std::move(reply));
    }
}

// The reply as the tool gets it; empty where the meter's frame was damaged.
std::string Node::Packed() const {
    const LineProtocol protocol = meter_.ActiveLine().Protocol;
    if (protocol == LineProtocol::CustomAscii) return gathered_;
    std::optional<ModbusFrame> frame;
    if (protocol == LineProtocol::ModbusRtu)
        frame = ParseRtu(gathered_, crc_);
    else if (gathered_.starts_with(':') && gathered_.ends_with("\r\n"))
        frame = ParseModbusAscii(std::string_view(gathered_).substr(1, gathered_.size() - 3));
    if (!frame) return "";
    const std::string body = static_cast<char>(frame->Address) + frame->Pdu;
    return transaction_ + Word(0) + Word(body.size()) + body;
}

void Node::Put(double atMs, std::string bytes, bool close) {
    output_.push_back({atMs, {std::move(bytes), close}});
}

void Node::PutStatus(double nowMs) {
    Put(nowMs, NodeToken() + address_ + "\x05\x04" + std::string(5, '\0'));
}

// As on a Modbus line, in every protocol: three and a half characters of eleven bits.
double Node::SilenceMs() const {
    return 3.5 * 11000.0 / meter_.ActiveLine().Baud;
}

}  // namespace sim
