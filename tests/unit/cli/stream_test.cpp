// stream from the outside: readings a line, CSV and JSON, and every way in which it ends.
#include <gtest/gtest.h>

#include <algorithm>
#include <nlohmann/json.hpp>

#include "run_line.h"
#include "support/meter_line.h"

namespace counter::test {
namespace {

long LinesOf(const std::string& text) {
    return std::count(text.begin(), text.end(), '\n');
}

struct StreamCli : CliBench {
    VirtualPump Clock;
    MeterLine Line{Clock, {}};

    explicit StreamCli(const char* settings = kAsciiSettings) {
        Store.Contents["home/Settings.SSS"] = settings;
        Make = [this] { return std::make_unique<BorrowedMachine>(Clock, Line); };
    }
    void FeedEvery(double ms, const std::string& frames) {
        Clock.After(ms, [this, ms, frames] { Line.Inject(frames), FeedEvery(ms, frames); });
    }
    void WhenSent(const std::string& frame, std::function<void()> act) {
        Clock.After(1, [this, frame, act = std::move(act)] {
            const bool sent = !Line.Sent().empty() && Line.Sent().back() == frame;
            sent ? act() : WhenSent(frame, act);
        });
    }
    std::string LastOfTheStream() const {
        std::string last;
        for (const std::string& frame : Line.Sent()) last = frame.starts_with("*1A") ? frame : last;
        return last;
    }
};

TEST(Stream, EndsAndAlwaysStopsTheMeter) {
    // clang-format off
    const auto interrupt = [](double ms) { return [ms](StreamCli& c) { c.Clock.After(ms, [&c] { c.Clock.RequestInterrupt(); }); }; };
    const auto lineGoes = [](double ms) { return [ms](StreamCli& c) { c.Clock.After(ms, [&c] { c.Line.GoAway(); }); }; };
    const struct {
        const char* Name;
        Words Options;
        std::function<void(StreamCli&)> Happens;
        int Status;
        long LeastLines, MostLines;
        const char* LastError;
    } cases[] = {
        {"count",       {"--count", "40"},    [](StreamCli&) {}, 0, 40, 40, ""},
        {"seconds",     {"--seconds", "2.5"}, [](StreamCli&) {}, 0, 35, 50, ""},
        {"the sooner",  {"--seconds", "1e3", "--count", "2"}, [](StreamCli&) {}, 0, 2, 2, ""},
        {"interrupt",   {},                   interrupt(9000),   0, 100, 200, ""},
        {"interrupted while it prepares", {}, interrupt(100),    0, 0, 0, ""},
        {"line away",   {},                   lineGoes(9000),    3, 100, 200, "Failed to read the stream, check connections, then try again.      ( 27)\n"},
        {"line away while it prepares", {},   lineGoes(1000),    3, 0, 0, "( 27)\n"},
        {"no answer",   {},                   [](StreamCli& c) { c.Line.Unplug(); }, 3, 0, 0, "( 21)\n"},
        {"full disk",   {"--csv", "/a.csv"},  [](StreamCli& c) { c.Store.AppendRoom = 400; }, 2, 8, 12, "counterctl: /a.csv: No space left on device\n"},
        {"closed pipe", {},                   [](StreamCli& c) { c.OutRoom = 40; }, 2, 2, 8, "counterctl: standard output: can't be written\n"},
    };
    // clang-format on
    for (const auto& c : cases) {
        StreamCli cli;
        c.Happens(cli);
        Words line = {"stream"};
        line.insert(line.end(), c.Options.begin(), c.Options.end());
        EXPECT_EQ(cli.Run(line), c.Status) << c.Name << cli.Err;
        EXPECT_GE(LinesOf(cli.Out), c.LeastLines) << c.Name;
        EXPECT_LE(LinesOf(cli.Out), c.MostLines) << c.Name;
        EXPECT_EQ(cli.LastOfTheStream(), "*1A1\r\n") << c.Name;
        EXPECT_TRUE(cli.Err.ends_with(c.LastError)) << c.Name << cli.Err;
        EXPECT_EQ(cli.Err.empty(), c.Status == 0) << c.Name << cli.Err;
    }
}

TEST(Stream, ReadingsAsTheMeterShowsThemAndAsNumbers) {
    // clang-format off
    const struct {
        const char *Frame, *Line, *Numbers, *Json;
    } cases[] = {
        {"+  12.50", "+  12.50", "12.50", "[12.5]"},   {"-   5.0 ", "-   5.0", "-5.0", "[-5.0]"}, {"  123.  ", "123.", "123", "[123.0]"},
        {"-.5", "-.5", "-0.5", "[-0.5]"},              {"+000001", "+000001", "000001", "[1.0]"}, {"7 kg", "7 kg", "7,", "[7.0,null]"},
        {"------", "------", "", "[null]"},            {"A12.5", "A12.5", "12.5", "[12.5]"},      {"+1.234E5", "+1.234E5", "1.234E5", "[123400.0]"},
        {" 1.5E+3-1.5e-3", "1.5E+3-1.5e-3", "1.5E3,-1.5E-3", "[1500.0,-0.0015]"},                 {"5E", "5E", "5", "[5.0]"},
        {" 000707. 000147.", "000707. 000147.", "000707,000147", "[707.0,147.0]"},
        {"+001.00-002.50+  3.", "+001.00-002.50+  3.", "001.00,-002.50,3", "[1.0,-2.5,3.0]"},
        {" 000707.A_",  "000707.A_", "000707", "[707.0]"}, {" 000707.-000147.AB__", "000707.-000147.AB__", "000707,-000147", "[707.0,-147.0]"},
        {" 12.5 ------ 13", "12.5 ------ 13", "12.5,,13", "[12.5,null,13.0]"},
        {"-\x1b[31m5\x07\x9b" "2", "-\\x1B[31m5\\x07\\x9B2", "", "[null]"}};
    // clang-format on
    for (const auto& c : cases) {
        StreamCli plain;
        StreamCli tables;
        for (StreamCli* cli : {&plain, &tables}) {
            cli->Line.Unplug();  // the frames are the test's own; the answers are zeros
            cli->FeedEvery(250, "00\r");
            cli->Clock.After(7000, [&, cli] { cli->FeedEvery(50, c.Frame + std::string("\r")); });
        }
        plain.Run({"stream", "--count", "200"});
        EXPECT_NE(plain.Out.find(std::string("\n") + c.Line + "\n"), std::string::npos) << plain.Out;
        tables.Run({"--json", "stream", "--count", "200", "--csv", "/a.csv"});
        EXPECT_NE(tables.Out.find(std::string(R"(,"items":)") + c.Json + "}\n"), std::string::npos)
            << tables.Out;
        const std::string row = std::string("\n2026-03-04T05:06:07.089-03:30,") + c.Numbers;
        EXPECT_NE(tables.Store.Contents["/a.csv"].find(row + "\n"), std::string::npos) << c.Frame;
    }
}

TEST(Stream, CsvAndJsonGrowWhileItRuns) {
    StreamCli cli;
    cli.Store.Contents["/a.csv"] = "old";
    long midway = 0;
    cli.Clock.After(8000, [&] { midway = LinesOf(cli.Store.Contents["/a.csv"]); });
    EXPECT_EQ(cli.Run({"--json", "stream", "--count", "150", "--csv", "/a.csv"}), 0);
    EXPECT_TRUE(cli.Store.Contents["/a.csv"].starts_with("time,item1\n2026-"));
    EXPECT_EQ(LinesOf(cli.Store.Contents["/a.csv"]), 151);
    EXPECT_GT(midway, 20);
    EXPECT_LT(midway, 151);
    EXPECT_EQ(LinesOf(cli.Out), 150);
    const auto first = nlohmann::json::parse(cli.Out.substr(0, cli.Out.find('\n')));
    EXPECT_EQ(first["time"], "2026-03-04T05:06:07.089-03:30");
    EXPECT_TRUE(first["reading"].is_string());
}

// The meter is silent until its stream begins, so its first frame is whole; on a line that was not, the first
// end is that of something else.
TEST(Stream, LosesNoReadingAtItsStart) {
    const struct {
        const char *Noise, *Frames, *Out;
    } cases[] = {{"", "+1.0\r+2.0\r", "+1.0\n+2.0\n"},
                 {"+0.", "0\r+1.0\r+2.0\r", "+1.0\n+2.0\n"},
                 {"", "*1A0\r\n+1.0\r+2.0\r", "+1.0\n+2.0\n"}};
    for (const auto& c : cases) {
        StreamCli cli;
        cli.WhenSent("*1G133\r\n", [&] { cli.Line.InjectAfter(500, c.Noise); });
        cli.WhenSent("*1A0\r\n", [&] { cli.Line.Inject(c.Frames); });
        EXPECT_EQ(cli.Run({"stream", "--count", "2"}), 0) << cli.Err;
        EXPECT_EQ(cli.Out, c.Out);
    }
}

// The time begins when the meter has been asked to send; the line stays as before the stream. Silence is told
// once, and is no failure.
TEST(Stream, CountsItsTimeFromTheFirstMomentAndTellsSilence) {
    StreamCli cli;
    double startMs = 0;
    double stopMs = 0;
    cli.WhenSent("*1G133\r\n", [&] { cli.Clock.After(500, [&] { cli.Line.Unplug(); }); });
    cli.WhenSent("*1A0\r\n", [&] {
        startMs = cli.Clock.NowMs();
        cli.WhenSent("*1A1\r\n", [&] { stopMs = cli.Clock.NowMs(); });
    });
    EXPECT_EQ(cli.Run({"stream", "--seconds", "25"}), 0);
    EXPECT_NEAR(stopMs - startMs, 25'300, 5) << "the pause in front of each command is 300 ms";
    EXPECT_EQ(cli.Out, "");
    EXPECT_EQ(LinesOf(cli.Err), 1) << cli.Err;
    EXPECT_NE(cli.Err.find("no reading for 10 seconds"), std::string::npos);
    const auto& calls = cli.Line.Calls();
    EXPECT_EQ(*std::find_if(calls.rbegin(), calls.rend(), [](auto& c) { return c.starts_with("RTS"); }),
              "RTS off");
}

TEST(Stream, ASilentMeterCostsNoFile) {
    for (const bool there : {true, false}) {
        StreamCli cli;
        if (there) cli.Store.Contents["/a.csv"] = "yesterday";
        cli.Line.Unplug();
        EXPECT_EQ(cli.Run({"stream", "--count", "3", "--csv", "/a.csv"}), 3);
        EXPECT_EQ(cli.Store.Contents.count("/a.csv"), there ? 1U : 0U);
        EXPECT_TRUE(!there || cli.Store.Contents["/a.csv"] == "yesterday");
    }
}

TEST(Stream, CsvMayGoToStandardOutput) {
    StreamCli cli;
    EXPECT_EQ(cli.Run({"stream", "--count", "3", "--csv", "-"}), 0);
    EXPECT_EQ(cli.Out.find("time,item1\n2026-03-04T05:06:07.089-03:30,"), 0U);
    EXPECT_EQ(LinesOf(cli.Out), 4) << "and nothing else";
    EXPECT_EQ(cli.Run({"stream", "--count", "3", "--csv", "-", "--json"}), 1);
}

TEST(Stream, IsRefusedBeforeAnythingIsSent) {
    // clang-format off
    constexpr const char* kRtu  = "3501100100100831010000\r\n2711000000000000F6CB00000000\r\n";
    constexpr const char* kNode = "3501000100100831010000\r\n27110080A3010203F6CBC0A80105\r\n";
    const struct {
        Words Line;
        const char* Settings;
        int Status;
        const char* Says;
    } cases[] = {
        {{"stream", "--count", "0"},     kAsciiSettings, 1, "--count is a whole number above 0"},
        {{"stream", "--count", "1.5"},   kAsciiSettings, 1, "--count is a whole number above 0"},
        {{"stream", "--count", "9999999999999999999"}, kAsciiSettings, 1, "--count is a whole number above 0"},
        {{"stream", "--seconds", "-1"},  kAsciiSettings, 1, "--seconds is a number above 0"},
        {{"stream", "--seconds", "nan"}, kAsciiSettings, 1, "--seconds is a number above 0"},
        {{"stream", "--seconds", "inf"}, kAsciiSettings, 1, "--seconds is a number above 0"},
        {{"stream"},                     kRtu,    1, "exists only in Custom ASCII over a serial line"},
        {{"stream"},                     kNode,   1, "exists only in Custom ASCII over a serial line"},
        {{"stream", "--csv", "/no.csv"}, kAsciiSettings, 2, "/no.csv: Permission denied"},
    };
    // clang-format on
    for (const auto& c : cases) {
        StreamCli cli(c.Settings);
        cli.Store.Refused.insert("/no.csv");
        EXPECT_EQ(cli.Run(c.Line), c.Status) << c.Says;
        EXPECT_NE(cli.Err.find(c.Says), std::string::npos) << cli.Err;
        EXPECT_TRUE(cli.Line.Sent().empty());
    }
}

}  // namespace
}  // namespace counter::test
