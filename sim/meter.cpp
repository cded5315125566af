#include "sim/meter.h"

#include <algorithm>
#include <utility>

#include "sim/custom_ascii.h"
#include "sim/hex.h"
#include "sim/modbus_server.h"
#include "sim/stream.h"

namespace sim {

namespace {

// Longer than any command; noise beyond it is thrown away.
constexpr std::size_t kLongestInput = 600;
// A meter that gets new line settings answers at the old ones first.
constexpr double kAdoptDelayMs = 50;
// As often as an eye follows.
constexpr double kLookMs = 100;
constexpr int kHighestAddress = 31;  // of Custom ASCII

std::string CommandPart(const std::string& line) {
    const std::size_t head = line.starts_with('|') ? 3 : 2;
    return IsWakeUp(line) || line.size() <= head ? line : line.substr(head);
}

// Noise of the same length: every byte differs from the right one, and none of it is a line end or a colon.
std::string Noise(std::string reply) {
    for (std::size_t i = 0; i < reply.size(); ++i) {
        const char noise = static_cast<char>(0x61 + i * 7 % 24);
        reply[i] = noise == reply[i] ? '~' : noise;
    }
    return reply;
}

// Nothing behind the end.
void SetByte(std::string& reply, int at, int value) {
    if (static_cast<std::size_t>(at) < reply.size())
        reply[static_cast<std::size_t>(at)] = static_cast<char>(value);
}

}  // namespace

Meter::Meter(MeterOptions options)
    : device_(options),
      crc_(options.Crc),
      turnaroundMs_(options.TurnaroundMs),
      strictBaud_(options.StrictBaud),
      shared_(options.Shared),
      faults_(std::move(options.Faults)),
      line_(LineSettingsOf(device_.Words())) {}

void Meter::Receive(std::string_view bytes, double nowMs) {
    Advance(nowMs);
    if (lineGone_) return;
    for (char byte : bytes) {
        switch (line_.Protocol) {
            case LineProtocol::CustomAscii:
                ReceiveAscii(byte, nowMs);
                break;
            case LineProtocol::ModbusAscii:
                ReceiveModbusAscii(byte, nowMs);
                break;
            case LineProtocol::ModbusRtu:
                input_ += byte;
                frameEndsMs_ = nowMs + SilenceMs();
                break;
        }
        if (input_.size() > kLongestInput) input_.clear();
    }
    LookAtFace(nowMs);
}

std::optional<double> Meter::NextDueMs() const {
    std::optional<double> next = frameEndsMs_;
    const auto sooner = [&](double atMs) { next = std::min(next.value_or(atMs), atMs); };
    if (adoptLineMs_) sooner(*adoptLineMs_);
    if (!output_.empty()) sooner(output_.front().AtMs);
    if (transmitMs_ && device_.Transmitting()) sooner(*transmitMs_);
    if (faceChanged_) sooner(lookMs_);
    return next;
}

std::string Meter::TakeDue(double nowMs) {
    Advance(nowMs);
    std::string bytes;
    while (!output_.empty() && output_.front().AtMs <= nowMs) {
        bytes += output_.front().Bytes;
        const bool gone = output_.front().Gone;
        output_.pop_front();
        if (gone) LoseLine();
    }
    LookAtFace(nowMs);
    return bytes;
}

void Meter::LineBack() {
    lineGone_ = false;
}

bool Meter::LoadImage(std::string_view text) {
    if (!device_.Words().LoadImage(text)) return false;
    AdoptLine();
    return true;
}

// What happens by the clock alone.
void Meter::Advance(double nowMs) {
    FollowTransmit(nowMs);
    while (transmitMs_ && *transmitMs_ <= nowMs) SendTransmission();
    device_.Follow(nowMs);
    if (frameEndsMs_ && *frameEndsMs_ <= nowMs) EndRtuFrame(*std::exchange(frameEndsMs_, std::nullopt));
    if (adoptLineMs_ && *adoptLineMs_ <= nowMs) AdoptLine();
}

void Meter::LoseLine() {
    lineGone_ = true;
    FarEndClosed();
    output_.clear();
    input_.clear();
    frameEndsMs_.reset();
}

void Meter::AdoptLine() {
    line_ = LineSettingsOf(device_.Words());
    if (line_.Protocol != LineProtocol::CustomAscii) device_.Transmit(false);  // Modbus has none
    adoptLineMs_.reset();
    input_.clear();
    frameEndsMs_.reset();
}

// A command acts at its CR; the LF after it means nothing.
void Meter::ReceiveAscii(char byte, double nowMs) {
    if (byte == '\n') return;
    if (byte != '\r') {
        input_ += byte;
        return;
    }
    const std::string line = std::exchange(input_, {});
    if (!line.empty()) CustomCommand(line, nowMs);
}

void Meter::ReceiveModbusAscii(char byte, double nowMs) {
    if (byte == ':') input_.clear();
    input_ += byte;
    if (byte != '\n') return;
    const std::string raw = std::exchange(input_, {});
    const bool framed = raw.starts_with(':') && raw.ends_with("\r\n");
    const auto frame =
        framed ? ParseModbusAscii(std::string_view(raw).substr(1, raw.size() - 3)) : std::nullopt;
    ModbusCommand(frame, raw, nowMs);
}

void Meter::EndRtuFrame(double nowMs) {
    const std::string raw = std::exchange(input_, {});
    if (!raw.empty()) ModbusCommand(ParseRtu(raw, crc_), raw, nowMs);
}

// A head names one address: the meter's own, or one that a fault makes it take.
std::optional<std::string> Meter::TakenCommand(const std::string& line) {
    for (int address = 0; address <= kHighestAddress; ++address) {
        auto command = CommandBehindHead(line, address);
        if (command && (address == line_.Address || faults_.Takes(address, *command))) return command;
    }
    return std::nullopt;
}

// A line that is the meter's alone is struck whatever it carries, so that it echoes all.
Strike Meter::StrikeOn(bool forMe, std::string_view command) {
    return forMe || !shared_ ? faults_.Next(command) : Strike{};
}

void Meter::CustomCommand(const std::string& line, double nowMs) {
    const auto command = TakenCommand(line);
    commands_.push_back(command || IsWakeUp(line) ? line : "?" + line);
    const Strike strike = StrikeOn(command.has_value(), CommandPart(line));
    Echo(line + "\r\n", strike, nowMs);
    if (!command) return;
    auto reply = Execute(device_, *command, nowMs);
    if (reply && strike.ByteValue) SetByte(*reply, strike.ByteAt, *strike.ByteValue);
    if (reply) *reply += (strike.Extra ? "0" : "") + device_.LineEnd();
    Send(reply.value_or(""), strike, nowMs);
    FollowTransmit(nowMs);
    FollowLineRequest(nowMs);
}

// Continuous output begins with the first reading after its command.
void Meter::FollowTransmit(double nowMs) {
    if (!device_.Transmitting())
        transmitMs_.reset();
    else if (!transmitMs_)
        transmitMs_ = LastDueMs(nowMs) + TransmissionIntervalMs(device_);
}

// While the line is busy it waits and then sends the latest reading; those in between are left out.
void Meter::SendTransmission() {
    const double nowMs = *transmitMs_, freeMs = LastDueMs(nowMs);
    if (freeMs > nowMs) {
        transmitMs_ = freeMs;
        return;
    }
    device_.Follow(nowMs);
    const std::string text = Transmission(device_);
    for (std::size_t i = 0; i < text.size(); ++i)
        Put(nowMs + (strictBaud_ ? static_cast<double>(i + 1) * CharMs() : 0), std::string(1, text[i]));
    transmitMs_ = nowMs + TransmissionIntervalMs(device_);
}

FaceState Meter::Face(double nowMs) {
    device_.Follow(nowMs);
    return FaceOf(device_);
}

void Meter::LookAtFace(double nowMs) {
    if (!faceChanged_ || nowMs < lookMs_) return;
    lookMs_ = nowMs + kLookMs;
    const FaceState face = Face(nowMs);
    if (face == toldFace_) return;
    toldFace_ = face;
    faceChanged_();
}

void Meter::ModbusCommand(const std::optional<ModbusFrame>& frame, std::string_view raw, double nowMs) {
    const std::string text = HexOfBytes(frame ? std::string_view(frame->Pdu) : raw);
    const bool forMe = frame && (frame->Address == 0 || frame->Address == line_.ModbusAddress ||
                                 faults_.Takes(frame->Address, text));
    commands_.push_back(forMe ? text : "?" + text);
    const Strike strike = StrikeOn(forMe, frame ? text : "");
    Echo(std::string(raw), strike, nowMs);
    if (!forMe) return;
    const std::string reply = ModbusReply(*frame, strike, nowMs);
    Send(frame->Address == 0 ? "" : reply, strike, nowMs);  // a broadcast is carried out in silence
    FollowLineRequest(nowMs);
}

std::string Meter::ModbusReply(const ModbusFrame& frame, const Strike& strike, double nowMs) {
    ModbusFrame answer{frame.Address, strike.Exception ? ExceptionPdu(frame.Pdu, *strike.Exception)
                                                       : AnswerModbus(device_, frame.Pdu, nowMs)};
    if (strike.Extra) answer.Pdu += '\0';
    if (strike.ByteValue && strike.ByteAt == 0)
        answer.Address = *strike.ByteValue;
    else if (strike.ByteValue)
        SetByte(answer.Pdu, strike.ByteAt - 1, *strike.ByteValue);
    const bool rtu = line_.Protocol == LineProtocol::ModbusRtu;
    std::string reply = rtu ? RtuFrame(answer, crc_) : ModbusAsciiFrame(answer);
    if (strike.BadCheck) {
        char& check = rtu ? reply.back() : reply[reply.size() - 3];  // CR LF come after the LRC
        check = rtu ? static_cast<char>(check ^ 1) : check == '0' ? '1' : '0';
    }
    return reply;
}

void Meter::Echo(std::string raw, const Strike& strike, double nowMs) {
    if (strike.BadEcho) raw[raw.size() / 2] ^= 1;
    if (strike.Echo || strike.BadEcho) Put(LastDueMs(nowMs), std::move(raw));
}

// An empty reply is none; the line can still go away.
void Meter::Send(std::string reply, const Strike& strike, double nowMs) {
    if (strike.NoReply) return;
    if (strike.Garbage) reply = Noise(std::move(reply));
    for (const auto& end : {strike.Cut, strike.Gone})
        if (end) reply.resize(std::min(reply.size(), static_cast<std::size_t>(*end)));
    const double startMs = LastDueMs(nowMs) + turnaroundMs_ + strike.LateMs;
    const auto timeOf = [&](std::size_t i) {
        const double paceMs = strike.Paced || strictBaud_ ? static_cast<double>(i + 1) * CharMs() : 0;
        return startMs + paceMs + (i >= static_cast<std::size_t>(strike.PauseAt) ? strike.PauseMs : 0);
    };
    for (std::size_t i = 0; i < reply.size(); ++i) Put(timeOf(i), std::string(1, reply[i]));
    if (strike.Gone) Put(LastDueMs(startMs), "", true);
}

// Bytes of one moment go out together.
void Meter::Put(double atMs, std::string bytes, bool gone) {
    if (!output_.empty() && output_.back().AtMs == atMs && !gone)
        output_.back().Bytes += bytes;
    else
        output_.push_back({atMs, std::move(bytes), gone});
}

// When the line is free: now, or after what is still to go out.
double Meter::LastDueMs(double nowMs) const {
    return output_.empty() ? nowMs : std::max(nowMs, output_.back().AtMs);
}

void Meter::FollowLineRequest(double nowMs) {
    if (device_.TakeLineRequest() && LineSettingsOf(device_.Words()) != line_)
        adoptLineMs_ = LastDueMs(nowMs) + kAdoptDelayMs;
}

// Eleven bits a character in Modbus RTU, ten in the other two.
double Meter::CharMs() const {
    return (line_.Protocol == LineProtocol::ModbusRtu ? 11000.0 : 10000.0) / line_.Baud;
}

// Three and a half characters end a frame: 2 ms at the highest speed.
double Meter::SilenceMs() const {
    return 3.5 * CharMs();
}

}  // namespace sim
