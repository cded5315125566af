#include "sim/bus.h"

#include <gtest/gtest.h>

#include "sim/bus_file.h"
#include "tool.h"

namespace sim {
namespace {

constexpr const char* kTable =
    "address,protocol,baud,set,fault\n"
    "1,,,55=000001,\n"
    "2,,,55=000002,X20D:alias=30 X20D#2:noreply\n"
    "3,rtu,,,030031:alias=9\n"
    "4,rtu,19200,,\n"
    "5,,,,X20D#1:cut=1\n";

class BusTest : public testing::Test {
  protected:
    BusTest() : bus_(Meters()) {}

    static std::vector<BusMeter> Meters() {
        std::vector<BusMeter> meters;
        EXPECT_EQ(ParseBusTable(kTable, "", {}, meters), std::vector<std::string>{});
        return meters;
    }
    std::string Ask(std::string_view bytes, int baud = 9600) {
        bus_.Receive(bytes, baud, nowMs_);
        std::string reply;
        while (const auto next = bus_.NextDueMs()) {
            nowMs_ = std::max(nowMs_, *next);
            reply += bus_.TakeDue(nowMs_);
        }
        return reply;
    }
    std::string AskRtu(std::string_view digits, int baud = 9600) {
        const std::string body = Bytes(digits);
        return HexOfBytes(Ask(body + CrcTables(CrcKind::Published).CheckOf(body), baud)).substr(0, 10);
    }

    Bus bus_;
    double nowMs_ = 1000;
};

TEST_F(BusTest, EachAnswersToItsOwnAddressAtItsOwnSpeed) {
    EXPECT_EQ(Ask("*1X20DZ\r\n") + Ask("*2X20DZ\r\n"), "20000001\r20000002\r");
    EXPECT_EQ(Ask("*6X20DZ\r\n") + Ask("|**|\r\n") + Ask("*1X20DZ\r\n", 4800), "");
    EXPECT_EQ(AskRtu("030300310001"), "030302000A");
    EXPECT_EQ(AskRtu("040300310001"), "");
    EXPECT_EQ(AskRtu("040300310001", 19200), "040302000A");
    EXPECT_EQ(AskRtu("000600310123"), "") << "a broadcast";
    EXPECT_EQ(AskRtu("030300310001"), "0303020123");
    EXPECT_EQ(AskRtu("040300310001", 19200), "040302000A");
}

TEST_F(BusTest, AMeterThatTakesAnAddressOfAnotherAnswersIt) {
    EXPECT_EQ(Ask("*UX20DZ\r\n"), "20000002\r");
    EXPECT_EQ(AskRtu("090300310001"), "090302000A");
    EXPECT_EQ(AskRtu("090300300001"), "") << "of that command alone";
    EXPECT_EQ(bus_.TakeCommands(), (std::vector<std::string>{"02 *UX20DZ", "03 0300310001"}));
}

TEST_F(BusTest, FaultsCountWhatIsForTheirMeter) {
    for (int i = 0; i < 3; ++i) Ask("*1X20DZ\r\n");
    EXPECT_EQ(Ask("*2X20DZ\r\n") + Ask("*2X20DZ\r\n"), "20000002\r");
    EXPECT_EQ(Ask("*5X20DZ\r\n"), "2");
}

TEST_F(BusTest, TwoThatTalkAtOnceAreNeither) {
    bus_.At(1).LoadImage(StartImage(Patched({{189, "01"}, {55, "000006"}})));  // a second meter at address 1
    EXPECT_EQ(Ask("*1X20DZ\r\n"), "20000000\r");
}

}  // namespace
}  // namespace sim
