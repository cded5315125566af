// HandBench: a session on a line whose far end the test plays, for hand work on a live meter.
#pragma once

#include <functional>
#include <string>
#include <utility>

#include "support/bench_meter.h"

namespace counter::test {

class ScriptedPort : public MeterLine {
  public:
    explicit ScriptedPort(VirtualPump& pump) : MeterLine(pump, {}), pump_(pump) {}

    // What the far end answers to a frame without its line end, 10 ms later; its own line end is added.
    // "-": it stays silent.
    std::function<std::string(const std::string& frame)> Answer = [](const std::string&) { return "-"; };
    bool Gone = false;

    // The frames since the last call, each after the milliseconds that passed since the frame before it or
    // since the last call: "300 *1B1; 560 *1C0". A frame without CR LF ends in "(no line end)".
    std::string Story() {
        lastMs_ = pump_.NowMs();
        return std::exchange(story_, {});
    }

    bool Faulted() const override { return Gone; }
    void Output(std::string_view bytes) override {
        const bool ended = bytes.ends_with("\r\n");
        const std::string frame(bytes.substr(0, bytes.size() - (ended ? 2 : 0)));
        const int pauseMs = static_cast<int>(pump_.NowMs() - std::exchange(lastMs_, pump_.NowMs()));
        story_ += (story_.empty() ? "" : "; ") + std::to_string(pauseMs) + " " + frame;
        if (!ended) story_ += "(no line end)";
        const std::string answer = Answer(frame);
        if (answer != "-") pump_.After(10, [this, answer] { Inject(answer + "\r\n"); });
    }

  private:
    VirtualPump& pump_;
    std::string story_;
    double lastMs_ = pump_.NowMs();
};

// A meter with address 1. The character time is 0, so that the silence after a reply is 50 ms and an
// exchange takes 560: pause 300, answer 10, first part 200, silence 50. Without an answer it takes 3300.
struct HandBench {
    VirtualPump Pump;
    MemoryFiles Store;
    RecordedDialogs Boxes;
    ScriptedPort Port{Pump};
    Session Program{Pump, Port, Boxes, {Store, "home"}};

    HandBench() { State().MeterAddressChar = '1'; }
    LinkState& State() { return Program.LinkState; }
    void UseModbusAscii() { State().ModbusLink = 1, State().SerialProtocol = 2; }
};

}  // namespace counter::test
