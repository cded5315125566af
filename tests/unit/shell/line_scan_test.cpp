#include "shell/line_scan.h"

#include <gtest/gtest.h>

#include "link/modbus_frame.h"
#include "meter/meter_words.h"
#include "settings/settings.h"
#include "sim/bus.h"
#include "support/virtual_pump.h"

namespace counter {

using test::VirtualPump;

// Meters on one line, on the virtual clock; what is sent at another speed than theirs they don't hear.
class BusLine : public SerialPort {
  public:
    BusLine(VirtualPump& pump, const std::vector<sim::BusMeter>& meters) : Meters(meters), pump_(pump) {
        pump_.AddSource({[this] { return Meters.NextDueMs().value_or(Pump::kForever); },
                         [this](double nowMs) { input_ += Meters.TakeDue(nowMs); }});
    }
    sim::Bus Meters;
    bool Echoes = false;
    std::string Server;  // that sets the speed, 9600 baud
    std::vector<std::string> Sent;

    void SetCommPort(int) override {}
    Status SetSettings(std::string_view text) override {
        baud_ = std::atoi(std::string(text).c_str());
        return {};
    }
    Status Open() override { return open_ = true, Status{}; }
    void Close() override { open_ = false; }
    bool PortOpen() const override { return open_; }
    void SetDtrEnable(bool) override {}
    void SetRtsEnable(bool) override {}
    void SetHandshaking(int) override {}
    std::size_t InBufferCount() override { return input_.size(); }
    std::string Input() override { return std::exchange(input_, {}); }
    void Output(std::string_view bytes) override {
        Sent.emplace_back(bytes);
        if (Echoes) input_ += bytes;
        Meters.Receive(bytes, Server.empty() ? baud_ : 9600, pump_.NowMs());
    }
    std::size_t OutBufferCount() override { return 0; }
    bool Faulted() const override { return !open_ || Meters.LineGone(); }
    std::string SpeedSetBy() const override { return Server; }

  private:
    VirtualPump& pump_;
    int baud_ = 0;
    bool open_ = false;
    std::string input_;
};

sim::BusMeter MeterAt(int address, sim::LineProtocol protocol, int baud, const char* fault = nullptr) {
    sim::BusMeter meter;
    meter.Options.Shared = true;
    meter.Options.Protocol = protocol;
    meter.Options.BaudIndex = sim::BaudIndexOf(baud);
    (protocol == sim::LineProtocol::CustomAscii ? meter.Options.Address : meter.Options.ModbusAddress) =
        address;
    if (fault) {
        EXPECT_EQ(sim::ParseFault(fault, meter.Options.Faults.emplace_back()), "");
    }
    return meter;
}

constexpr auto kAscii = sim::LineProtocol::CustomAscii;
constexpr auto kRtu = sim::LineProtocol::ModbusRtu;
constexpr auto kModbusAscii = sim::LineProtocol::ModbusAscii;

class LineScanTest : public testing::Test {
  protected:
    // "protocol baud address" of what was found, a "?" in front of what makes no sense.
    std::string Scan(const std::vector<sim::BusMeter>& meters) {
        BusLine line(pump_, meters);
        line.Echoes = echoes_;
        line.Server = server_;
        std::vector<std::string> before, after;
        for (std::size_t i = 0; i < meters.size(); ++i) before.push_back(line.Meters.At(i).ImageText());
        std::string found;
        const auto tell = [&](const char* mark) {
            return [&found, mark](const ScanPlace& place) {
                found += mark + std::to_string(place.SerialProtocol) + " " +
                         std::string(place.BaudIndex ? BaudTable[static_cast<std::size_t>(*place.BaudIndex)]
                                                     : "-") +
                         " " + std::to_string(place.Address) + "\n";
            };
        };
        double lastRestMs = Pump::kForever;
        status_ = LineScan(pump_, line, choice_,
                           {tell(""), tell("?"),
                            [&](const ScanPlace&, int done, int all, double restMs) {
                                EXPECT_LT(done, all);
                                EXPECT_LT(restMs, lastRestMs);
                                lastRestMs = restMs;
                            }})
                      .Run();
        EXPECT_FALSE(line.PortOpen());
        for (std::size_t i = 0; i < meters.size(); ++i) after.push_back(line.Meters.At(i).ImageText());
        EXPECT_EQ(before, after);
        // After a scan the first command of every meter is understood.
        for (std::size_t i = 0; i < meters.size() && status_.Ok(); ++i) {
            sim::Meter& meter = line.Meters.At(i);
            if (meter.ActiveLine().Protocol != kAscii) continue;
            meter.ClearCommands();
            meter.Receive("*0XR1AZ\r\n", pump_.NowMs());
            EXPECT_EQ(meter.Commands().back().substr(meter.Commands().back().size() - 7), "*0XR1AZ");
        }
        return found;
    }

    VirtualPump pump_;
    ScanChoice choice_{{0, 1, 2}, {5, 6}, {0, 1, 2, 3, 4, 5, 30, 31, 200, 255}};
    bool echoes_ = false;
    std::string server_;
    Status status_;
};

TEST_F(LineScanTest, FindsWhoAnswersAndWhere) {
    const std::vector<sim::BusMeter> meters = {
        MeterAt(0, kAscii, 9600),
        MeterAt(31, kAscii, 19200),
        MeterAt(2, kRtu, 9600),
        MeterAt(255, kRtu, 19200),
        MeterAt(3, kModbusAscii, 9600),
        MeterAt(1, kAscii, 4800),
        MeterAt(4, kAscii, 9600, "G130:late=400"),
    };
    const std::string all = "0 9600 0\n0 9600 4\n1 9600 2\n2 9600 3\n0 19200 31\n1 19200 255\n";
    EXPECT_EQ(Scan(meters), all);
    echoes_ = true;
    EXPECT_EQ(Scan(meters), all);
    echoes_ = false;
    server_ = "tcp://hall2:4001";
    EXPECT_EQ(Scan(meters), "0 - 0\n0 - 4\n1 - 2\n2 - 3\n");
    choice_.BaudIndexes = {5};
    EXPECT_EQ(Scan(meters), "0 9600 0\n0 9600 4\n1 9600 2\n2 9600 3\n");
}

TEST_F(LineScanTest, TwoAtOneAddressMakeNoSenseAndAMeterThatTakesTwoIsTwo) {
    sim::BusMeter twin = MeterAt(30, kRtu, 9600);
    twin.Options.Signal.Value = 5;
    EXPECT_EQ(Scan({MeterAt(30, kRtu, 9600), twin, MeterAt(1, kRtu, 9600, "04:alias=4")}),
              "1 9600 1\n1 9600 4\n?1 9600 30\n");
}

TEST_F(LineScanTest, OldMetersHaveAnotherCheck) {
    choice_.Protocols = {Protocol::ModbusRtu};
    for (int address = 1; address <= 255; ++address) {
        choice_.Addresses = {address};
        const ProbedAddress published{Protocol::ModbusRtu, address}, old{Protocol::ModbusRtu, address, true};
        if (ProbeFrame(published) == ProbeFrame(old)) continue;
        sim::BusMeter meter = MeterAt(address, kRtu, 9600);
        meter.Options.Crc = sim::CrcKind::C2;
        EXPECT_EQ(Scan({meter}), "1 9600 " + std::to_string(address) + "\n");
        return;
    }
    FAIL() << "no address whose question tells the checks apart";
}

TEST_F(LineScanTest, ALineThatGoesAwayEndsIt) {
    EXPECT_EQ(Scan({MeterAt(1, kAscii, 9600), MeterAt(2, kAscii, 9600, "G130:gone=1")}), "0 9600 1\n");
    EXPECT_EQ(status_.Kind, StatusKind::Gone);
}

}  // namespace counter
