#include "sim/modbus_server.h"

#include <gtest/gtest.h>

#include "tool.h"

namespace sim {
namespace {

TEST(ModbusServer, RequestsAndAnswers) {
    static constexpr struct {
        const char *Name, *Request, *Answer;
    } kCases[] = {
        // clang-format off
        {"diagnostics",                   "0800010000",                   "0800010000"},
        {"two registers",                 "0300010002",                   "030400002710"},
        {"identity",                      "0300640003",                   "0306000200030053"},
        {"Item 1",                        "0400030002",                   "040400002710"},
        {"Item 3, negative",              "04000B0002",                   "0404FFFFFF9C"},
        {"no such input register",        "0400010002",                   "8402"},
        {"no such register",              "0300000001",                   "8302"},
        {"runs into a gap",               "03005F0002",                   "8302"},
        {"no register at all",            "0300010000",                   "8303"},
        {"more than a frame holds",       "030001007E",                   "8303"},
        {"function not known",            "0100010001",                   "8101"},
        {"function alone",                "2B",                           "AB01"},
        {"write one",                     "0600310064",                   "0600310064"},
        {"write one that is read only",   "0600660064",                   "8602"},
        {"write two",                     "10000100020400001388",         "1000010002"},
        {"byte count does not fit",       "10000100010400001388",         "9003"},
        {"runs into the first gap",       "03003B0002",                   "8302"},
        {"behind the setup",              "0300400001",                   "8302"},
        {"before the identity",           "0300630001",                   "8302"},
        {"behind the identity",           "0300670001",                   "8302"},
        {"remote data is written only",   "0300690001",                   "8302"},
        {"write that runs into a gap",    "10003B00020400010002",         "9002"},
        {"remote data",                   "10006D000204000004D2",         "10006D0002"},
        {"more than Item 3",              "04000B0003",                   "8402"},
        {"data missing",                  "100001000204000013",           "9003"},
        {"no data",                       "100001000000",                 "9003"},
        {"write into a gap",              "10003C0001020001",             "9002"},
        {"display reset, the last coil",  "050006FF00",                   "050006FF00"},
        {"no such coil",                  "050007FF00",                   "8502"},
        {"coil with a value of its own",  "0500041234",                   "8503"},
        // clang-format on
    };
    for (const auto& c : kCases) {
        Device device{MeterOptions{}};
        EXPECT_EQ(HexOfBytes(AnswerModbus(device, Bytes(c.Request), 0)), c.Answer) << c.Name;
    }
}

}  // namespace
}  // namespace sim
