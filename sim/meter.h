// Meter: the simulated meter on a line, seen from the line.
//
// A state machine on its caller's clock, in milliseconds: bytes go in with Receive, what is due comes out of
// TakeDue, NextDueMs tells when that is worth calling. It never waits and knows no device.
#pragma once

#include <deque>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "sim/device.h"
#include "sim/face.h"
#include "sim/fault.h"
#include "sim/modbus_frame.h"
#include "sim/options.h"

namespace sim {

class Meter {
  public:
    explicit Meter(MeterOptions options = {});

    // Bytes arrive from the tool, all at `nowMs`. They have to be in the meter's speed and form, see
    // ActiveLine.
    void Receive(std::string_view bytes, double nowMs);
    // When TakeDue has something to do next: bytes of a reply, the silence that ends an RTU frame, new line
    // settings that take effect, the next transmission of continuous output, a look at the face when
    // somebody wants to know of its changes. Nothing when all is quiet.
    std::optional<double> NextDueMs() const;
    // Does what was due up to `nowMs` and returns the bytes that the meter has put on the line by then.
    std::string TakeDue(double nowMs);

    // The line went away, as a fault told it to: nothing is received or sent until LineBack.
    bool LineGone() const { return lineGone_; }
    void LineBack();
    // Nobody listens any more: continuous output ends.
    void FarEndClosed() { device_.Transmit(false); }

    // What the front shows at `nowMs`, which may be no earlier than what was told before.
    FaceState Face(double nowMs);
    // Calls `hook` from Receive or TakeDue whenever the face is another than at the last look, ten times a
    // second at most; the first look counts as a change. An empty hook ends it.
    void OnFaceChanged(std::function<void()> hook) { faceChanged_ = std::move(hook); }
    // What was sent to the display and to Item 3; nothing before, and after a reset.
    const std::optional<RemoteValue>& RemoteShown() const { return device_.RemoteShown(); }
    const std::optional<RemoteValue>& RemoteItem3() const { return device_.RemoteItem3(); }

    Memory& Words() { return device_.Words(); }
    const Memory& Words() const { return device_.Words(); }
    std::string ImageText() const { return device_.Words().ImageText(); }
    // Another image, as after a change at the front panel and a power cycle: its line settings are active at
    // once. False, with nothing changed, when the text is not 260 upper-case hexadecimal digits.
    bool LoadImage(std::string_view text);

    // What the meter listens to now. Memory may already hold other settings: they become active 50 ms after a
    // reset, or after the answer to a Modbus write that reaches the register of protocol and parity.
    const LineSettings& ActiveLine() const { return line_; }

    // The commands that arrived, in order. Custom ASCII: the line as sent, without its end ("*1XR1AZ");
    // Modbus: hexadecimal digits from the function on ("0300010010"). What was not for this meter, or arrived
    // damaged, is after a "?".
    const std::vector<std::string>& Commands() const { return commands_; }
    void ClearCommands() { commands_.clear(); }

    // For tests, in the middle of a run.
    void SetFaults(std::vector<Fault> faults) { faults_ = FaultList(std::move(faults)); }

  private:
    // Bytes on their way out, or the end of the line.
    struct Due {
        double AtMs = 0;
        std::string Bytes;
        bool Gone = false;
    };

    void Advance(double nowMs);
    void LoseLine();
    void AdoptLine();
    void FollowLineRequest(double nowMs);

    void ReceiveAscii(char byte, double nowMs);
    void ReceiveModbusAscii(char byte, double nowMs);
    void EndRtuFrame(double nowMs);
    std::optional<std::string> TakenCommand(const std::string& line);
    Strike StrikeOn(bool forMe, std::string_view command);
    void CustomCommand(const std::string& line, double nowMs);
    void ModbusCommand(const std::optional<ModbusFrame>& frame, std::string_view raw, double nowMs);
    std::string ModbusReply(const ModbusFrame& frame, const Strike& strike, double nowMs);

    void FollowTransmit(double nowMs);
    void SendTransmission();
    void LookAtFace(double nowMs);

    void Echo(std::string raw, const Strike& strike, double nowMs);
    void Send(std::string reply, const Strike& strike, double nowMs);
    void Put(double atMs, std::string bytes, bool gone = false);
    double LastDueMs(double nowMs) const;
    double CharMs() const;
    double SilenceMs() const;

    Device device_;
    CrcTables crc_;
    double turnaroundMs_;
    bool strictBaud_;
    bool shared_;
    FaultList faults_;
    LineSettings line_;
    std::string input_;                  // of the command that is arriving
    std::optional<double> frameEndsMs_;  // when silence ends the RTU frame in input_
    std::optional<double> adoptLineMs_;  // when the line settings of the memory become active
    std::optional<double> transmitMs_;   // when continuous output goes on
    std::deque<Due> output_;             // in the order of time
    std::function<void()> faceChanged_;
    std::optional<FaceState> toldFace_;
    double lookMs_ = 0;  // when the face is looked at again
    bool lineGone_ = false;
    std::vector<std::string> commands_;
};

}  // namespace sim
