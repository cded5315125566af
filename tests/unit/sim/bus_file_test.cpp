#include "sim/bus_file.h"

#include <gtest/gtest.h>

#include "sim/hex.h"

namespace sim {
namespace {

TEST(BusFile, CellsAreOptionsAndAnAddressIsThatOfTheProtocol) {
    std::vector<BusMeter> meters;
    BusMeter defaults;
    defaults.Options.Version = 78;
    const auto wrong = ParseBusTable(
        "\xEF\xBB\xBF"
        "address,protocol,name,fault,set,version,relay,fault\r\n"
        "31,,,,,,,\r\n\r\n"
        "200,rtu,\"a \"\"b\"\", c\",\"B1#2:pause=1,50 W1:late=7\",,,1,*:paced\r\n"
        "4,,,,55=0001F4 109=04,80\n",
        "", defaults, meters);
    ASSERT_TRUE(wrong.empty()) << wrong.front();
    ASSERT_EQ(meters.size(), 3u);
    EXPECT_EQ(meters[0].Name, "31");
    EXPECT_EQ(meters[0].Options.Address, 31);
    EXPECT_EQ(meters[0].Options.Version, 78);
    EXPECT_EQ(meters[1].Name, "a \"b\", c");
    EXPECT_EQ(meters[1].Options.ModbusAddress, 200);
    EXPECT_EQ(meters[1].Options.RelayBoard, 1);
    EXPECT_EQ(meters[1].Options.Faults, (std::vector<Fault>{{"B1", 2, FaultKind::Pause, 1, 50},
                                                            {"W1", 0, FaultKind::Late, 7},
                                                            {"*", 0, FaultKind::Paced}}));
    EXPECT_EQ(meters[2].Name, "04");
    EXPECT_EQ(meters[2].Options.ModbusAddress, 4) << "its image speaks Modbus";
    EXPECT_EQ(meters[2].Options.Version, 80);
    EXPECT_EQ(StartImage(meters[2].Options).substr(54, 6), "0001F4");
}

TEST(BusFile, EveryFaultIsToldWithLineAndColumn) {
    static constexpr struct {
        const char *Text, *Wrong;  // beginnings, one a line
    } kCases[] = {
        {"", "line 1: "},
        {"address\n", "line 1: "},
        {"name;adress\n;1\n", "line 1, column 2 (adress): no column"},
        {"address;fault\n32;x\n1;\n2;B1:silence\n",
         "line 2, column 1 (address): \nline 2, column 2 (fault): illegal\nline 4, column 2 (fault): "},
        {"address,protocol\n0,rtu\n256,rtu\n1,rtus\n",
         "line 3, column 1 (address): \nline 4, column 2 (protocol): "},
        {"name,address\n\"a\nb\",1\n\"c\"d,2\n", "line 4, column 1: a quote"},
        {"name,address\n\"a,1\n", "line 2, column 1: a quote"},
        {"address\n1,2\n", "line 2, column 2: more cells"},
        {"address,name\n1,\n1,\n2,a/b\n",
         "line 3, column 2 (name): another\nline 4, column 2 (name): a name"},
        {"address,image\n1,none\n", "line 2, column 2 (image): nowhere/none: No such file"},
        {"analog,protocol,version\n3,rtu,75\n", "line 2, column 1 (analog): over Modbus"},
    };
    for (const auto& c : kCases) {
        std::vector<BusMeter> meters;
        const auto wrong = ParseBusTable(c.Text, "nowhere", {}, meters);
        std::string_view rest = c.Wrong;
        for (const std::string& line : wrong) EXPECT_TRUE(line.starts_with(CutAt(rest, '\n'))) << line;
        EXPECT_EQ(rest, "") << c.Text;
    }
}

}  // namespace
}  // namespace sim
