// Single readings in both protocols, and what is in RawReply when none comes.
#include "link/single_reading.h"

#include <gtest/gtest.h>

#include "support/hand_bench.h"

namespace counter::test {
namespace {

TEST(ReadSingle, LeavesTheTextInRawReply) {
    const struct {
        const char* Name;
        ReadingKind Kind;
        bool Modbus;
        const char *Answer, *RawReply;
        int LinkError = 0;
    } cases[] = {
        // clang-format off
        {"a value is trimmed",      ReadingKind::Item1,         false, "  12.5 ",           "12.5"},
        {"a line stays whole",      ReadingKind::AllActive,     false, " 123.45-678.90 ",   " 123.45-678.90 "},
        {"so does the other",       ReadingKind::AllActivePlus, false, " 123.45-678.90",    " 123.45-678.90"},
        {"nothing is no value",     ReadingKind::Item1,         false, "",                 "", 1},
        {"nor is the command",      ReadingKind::Item1,         false, "*1B1",             "*1B1", 1},
        {"late one and right one",  ReadingKind::Item2,         false, "  12.5\r  34.5",    "12.5", 1},
        {"all may be in lines",     ReadingKind::AllActive,     false, "  12.5\r  34.5",    "  12.5"},
        {"count",                   ReadingKind::Item1,         true,  ":0104040000006493", " 100"},
        {"negative count",          ReadingKind::Item2,         true,  ":010404FFFFFF8575", "-123"},
        {"least count",             ReadingKind::Peak,          true,  ":0104048000000077", "-2147483648"},
        {"largest count",           ReadingKind::Valley,        true,  ":0104047FFFFFFF7B", " 2147483647"},
        {"half a count",            ReadingKind::Item1,         true,  ":010402006495",     " 25749", 1},
        {"of another meter",        ReadingKind::Item1,         true,  ":0204040000006492", " 100", 1},
        {"of another function",     ReadingKind::Item1,         true,  ":0103040000006494", " 100", 1},
        {"other bytes are told",    ReadingKind::Item1,         true,  ":0104060000006491", " 100", 1},
        {"exception as long",       ReadingKind::Item1,         true,  ":0184100000006407", " 100", 1},
        {"another reply follows",   ReadingKind::Item1,         true,  ":0104040000006493\r\n:0104040000006592", " 100", 1},
        {"an exception, its check", ReadingKind::Item3,         true,  ":01840279",         " 121", 1},
        {"no such request",         ReadingKind::AllActive,     true,  ":0104040000006493", "before"},
        {"silent: the last reply",  ReadingKind::Item1,         false, "-",                 "04C1", 21},
        {"silent: none of a count", ReadingKind::Item1,         true,  "-",                 " 0", 21},
        // clang-format on
    };
    for (const auto& c : cases) {
        HandBench bench;
        if (c.Modbus) bench.UseModbusAscii();
        bench.State().RawReply = "before";
        bench.State().ReplyText = "04C1";
        bench.Port.Answer = [&](const std::string&) { return c.Answer; };
        ReadSingle(bench.Program.Link, c.Kind);
        EXPECT_EQ(bench.State().RawReply, c.RawReply) << c.Name;
        EXPECT_EQ(bench.State().LinkError, c.LinkError) << c.Name;
    }
}

}  // namespace
}  // namespace counter::test
