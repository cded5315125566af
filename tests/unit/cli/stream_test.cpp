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
        const char *Frame, *Line, *Number;
    } cases[] = {
        {"+  12.50", "+  12.50", "12.50"}, {"-   5.0 ", "-   5.0", "-5.0"}, {"  123.  ", "123.", "123"}, {"-.5", "-.5", "-0.5"},
        {"+000001",  "+000001",  "000001"}, {"7 kg", "7 kg", "7"},          {"------", "------", ""},    {"A12.5", "A12.5", "12.5"}};
    // clang-format on
    for (const auto& c : cases) {
        StreamCli cli;
        cli.Line.Unplug();  // the frames are the test's own; the answers are zeros
        cli.FeedEvery(250, "00\r");
        cli.Clock.After(7000, [&] { cli.FeedEvery(50, c.Frame + std::string("\r")); });
        cli.Run({"stream", "--count", "200", "--csv", "/a.csv"});
        EXPECT_NE(cli.Out.find(std::string("\n") + c.Line + "\n"), std::string::npos) << cli.Out << cli.Err;
        const std::string row = std::string("\n2026-03-04T05:06:07.089,") + c.Number + "\n";
        EXPECT_NE(cli.Store.Contents["/a.csv"].find(row), std::string::npos) << c.Frame;
    }
}

TEST(Stream, CsvGrowsWhileItRunsAndJsonIsOneDocument) {
    StreamCli cli;
    cli.Store.Contents["/a.csv"] = "old";
    long midway = 0;
    cli.Clock.After(8000, [&] { midway = LinesOf(cli.Store.Contents["/a.csv"]); });
    EXPECT_EQ(cli.Run({"--json", "stream", "--count", "150", "--csv", "/a.csv"}), 0);
    EXPECT_TRUE(cli.Store.Contents["/a.csv"].starts_with("time,reading\n2026-"));
    EXPECT_EQ(LinesOf(cli.Store.Contents["/a.csv"]), 151);
    EXPECT_GT(midway, 20);
    EXPECT_LT(midway, 151);
    const auto list = nlohmann::json::parse(cli.Out);
    ASSERT_EQ(list.size(), 150U);
    EXPECT_EQ(list[0]["time"], "2026-03-04T05:06:07.089");
    EXPECT_TRUE(list[149]["reading"].is_string());
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
    EXPECT_EQ(cli.Out.find("time,reading\n2026-03-04T05:06:07.089,"), 0U);
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
