#include "sim/meter_cli.h"

#include <functional>
#include <map>
#include <string>
#include <vector>

#include "sim/hex.h"

namespace sim {

namespace {

// An option that may be given several times; `take` returns an empty text or what is wrong.
void AddRepeated(CLI::App& app, const std::string& name, const std::string& help,
                 const std::function<std::string(const std::string&)>& take) {
    const auto takeAll = [=](const std::vector<std::string>& texts) {
        for (const auto& text : texts)
            if (const auto wrong = take(text); !wrong.empty()) throw CLI::ValidationError(name, wrong);
    };
    app.add_option_function<std::vector<std::string>>(name, takeAll, help)->allow_extra_args(false);
}

void AddBoards(CLI::App& app, MeterOptions& meter) {
    const auto byte = CLI::Range(0, 255);
    app.add_option("--version", meter.Version, "firmware version")->check(byte);
    app.add_option("--type", meter.Type, "meter type")->check(byte);
    app.add_option("--board", meter.InputBoard, "input board: 0 none, 1 dual, 2 V-F, 3 quadrature")
        ->check(CLI::Range(0, 3));
    app.add_option("--comm", meter.CommBoard, "comm board: 0 none, 1 RS232, 2 RS485")
        ->check(CLI::Range(0, 3));
    app.add_option("--relay", meter.RelayBoard, "relay board code: 1 four relays, 2 or 3 two")
        ->check(CLI::Range(0, 3));
    app.add_option("--analog", meter.AnalogBoard, "analog option 0..4")->check(CLI::Range(0, 4));
    app.add_option("--extended", meter.Extended, "Extended option: 0 or 1");
    AddRepeated(app, "--live", "ADDRESS=BYTE: a byte that a G command reads, both hexadecimal",
                [&](const std::string& text) { return ParseLiveByte(text, meter.LiveBytes); });
    AddRepeated(app, "--set", "POSITION=DIGITS: digits of the image at start",
                [&](const std::string& text) { return ParsePatch(text, meter.Patches.emplace_back()); });
}

void AddLine(CLI::App& app, MeterOptions& meter) {
    const std::map<std::string, LineProtocol> protocols = {{"ascii", LineProtocol::CustomAscii},
                                                           {"rtu", LineProtocol::ModbusRtu},
                                                           {"modbus-ascii", LineProtocol::ModbusAscii}};
    const std::map<std::string, CrcKind> tables = {{"published", CrcKind::Published}, {"c2", CrcKind::C2}};
    const std::map<std::string, int> parities = {{"none", 0}, {"odd", 1}, {"even", 2}};
    const auto oneOf = [](const auto& names) { return CLI::CheckedTransformer(names).description(""); };
    app.add_option("--protocol", meter.Protocol, "ascii, rtu or modbus-ascii")->transform(oneOf(protocols));
    app.add_option_function<int>(
           "--baud", [&](int rate) { meter.BaudIndex = BaudIndexOf(rate); }, "speed of the line")
        ->check(CLI::IsMember({300, 600, 1200, 2400, 4800, 9600, 19200}));
    app.add_option("--parity", meter.Parity, "none, odd or even")->transform(oneOf(parities));
    app.add_option("--address", meter.Address, "Custom ASCII address")->check(CLI::Range(0, 31));
    app.add_option("--modbus-address", meter.ModbusAddress, "Modbus address")->check(CLI::Range(0, 255));
    app.add_option("--crc", meter.Crc, "table of the Modbus RTU check: published or c2")
        ->transform(oneOf(tables));
    app.add_option("--turnaround", meter.TurnaroundMs, "ms from the end of a command to the reply")
        ->check(CLI::Range(0, 60000));
    app.add_flag("--strict-baud", meter.StrictBaud, "bytes leave one by one at the speed of the line");
    AddRepeated(app, "--fault", "COMMAND[#N]:KIND, such as XR35:noreply",
                [&](const std::string& text) { return ParseFault(text, meter.Faults.emplace_back()); });
}

void AddSignal(CLI::App& app, MeterOptions& meter) {
    const std::map<std::string, SignalKind> kinds = {{"constant", SignalKind::Constant},
                                                     {"ramp", SignalKind::Ramp},
                                                     {"sine", SignalKind::Sine},
                                                     {"noise", SignalKind::Noise},
                                                     {"steps", SignalKind::Steps}};
    SignalOptions& signal = meter.Signal;
    app.add_option("--signal", signal.Kind, "what Item 1 follows: constant, ramp, sine, noise or steps")
        ->transform(CLI::CheckedTransformer(kinds).description(""));
    app.add_option("--value", signal.Value, "the signal's value, digits of the display without the point")
        ->check(CLI::Range(-999999.0, 999999.0));
    app.add_option("--amplitude", signal.Amplitude, "how far it moves, in the same digits")
        ->check(CLI::Range(0.0, 999999.0));
    app.add_option("--period", signal.PeriodS, "seconds until it repeats")->check(CLI::PositiveNumber);
    app.add_option("--seed", signal.Seed, "another number, another noise; the same, the same");
    AddRepeated(app, "--rate", "readings a second, 20 unless told, or max: as fast as the line takes them",
                [&](const std::string& text) { return ParseRate(text, meter.RateHz); });
    app.add_option("--frequency", meter.FrequencyHz,
                   "Hz at input A: a Mode that shows its rate scales it and follows no signal")
        ->check(CLI::NonNegativeNumber);
    app.add_option("--timebase-ppm", meter.TimebasePpm,
                   "how much too high the time base reads, without it what the calibration makes good")
        ->check(CLI::Range(-32767.0, 32767.0));
}

}  // namespace

void AddMeterOptions(CLI::App& app, MeterOptions& meter) {
    AddBoards(app, meter);
    AddLine(app, meter);
    AddSignal(app, meter);
}

}  // namespace sim
