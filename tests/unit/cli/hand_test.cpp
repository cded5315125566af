// read, reset, remote, curve and calibrate from the outside: what goes out, exit statuses, both streams.
#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

#include "run_line.h"
#include "support/hand_bench.h"

namespace counter::test {
namespace {

using Json = nlohmann::json;

constexpr const char* kModbus = "3501200100100831010000\r\n2711000000000000F6CB00000000\r\n";

// A command on a line whose far end the test plays.
struct HandCli : CliBench {
    VirtualPump Clock;
    ScriptedPort Line{Clock};

    explicit HandCli(const char* answer = "-") {
        Store.Contents = {{"home/Settings.SSS", kAsciiSettings}, {"/c/any", "55\nAA\n"}, {"/c/one", "55"}};
        Line.Answer = [answer](const std::string&) { return answer; };
        Make = [this] { return std::make_unique<BorrowedMachine>(Clock, Line); };
    }
};

TEST(HandWork, OneActionIsOneFrame) {
    const std::pair<Words, const char*> cases[] = {
        // clang-format off
        {{"read", "item1"},              "300 *1B1"},     {{"read", "item2"},         "300 *1B2"},  {{"read", "item3"},      "300 *1B3"},
        {{"read", "peak"},               "300 *1B4"},     {{"read", "valley"},        "300 *1B6"},  {{"read", "all"},        "300 *1B0"},
        {{"reset", "meter"},             "300 *1C0"},     {{"reset", "function"},     "300 *1C1"},  {{"reset", "alarms"},    "300 *1C2"},
        {{"reset", "peak"},              "300 *1C3"},     {{"reset", "valley"},       "300 *1C9"},  {{"reset", "display"},   "300 *1C4"},
        {{"remote", "display", "-12.5"}, "300 *1H-12.5"}, {{"remote", "item3", " 7"}, "300 *1K 7"}, {{"remote", "both", ""}, "300 *1L"},
        {{"remote", "c", "*1'0D"},       "300 *1'0D"},    {{"remote", "item3", "\u00B5\u00FF5"}, "300 *1K\xB5\xFF" "5"},
        // clang-format on
    };
    for (const auto& [line, story] : cases) {
        HandCli cli("1");
        EXPECT_EQ(cli.Run(line), 0) << story << cli.Err;
        EXPECT_EQ(cli.Line.Story(), story);
    }
}

TEST(HandWork, WhatIsPrinted) {
    const std::pair<Words, const char*> cases[] = {
        // clang-format off
        {{"read", "peak"},            "12345.67 99999.99-00000.01\n"},
        {{"read", "all+"},            "Item1  12345.67\nPeak  99999.99\nValley  -00000.01\n"},
        {{"reset", "peak"},           "Peak Reset Command sent.\n"},
        {{"read", "all+", "--json"},  R"({"LinkError":0,"messages":[],"status":"All Active Readings + Peak + Valley request sent.","values":[" 12345.67","",""," 99999.99","-00000.01"]})"},
        {{"reset", "peak", "--json"}, R"({"LinkError":0,"messages":[],"status":"Peak Reset Command sent."})"},
        // clang-format on
    };
    for (const auto& [line, wanted] : cases) {
        HandCli cli(" 12345.67 99999.99-00000.01");
        EXPECT_EQ(cli.Run(line), 0);
        EXPECT_EQ(line.back() == "--json" ? Json::parse(cli.Out).dump() : cli.Out, wanted);
    }
}

TEST(HandWork, RefusalsSendNothing) {
    const struct {
        const char* Settings;
        Words Line;
        const char* Says;
        int Status = 1;
    } cases[] = {
        // clang-format off
        {kAsciiSettings,  {"read", "item4"},                   "'item4' is none of item1|item2|item3|peak|valley|all|all+"},
        {kAsciiSettings,  {"reset", "item1"},                  "'item1' is none of meter|function|alarms|peak|valley|display"},
        {kAsciiSettings,  {"remote", "all", "1"},              "'all' is none of display|item3|both|c"},
        {kAsciiSettings,  {"remote", "display"},               "usage: counterctl remote display|item3|both|c TEXT"},
        {kAsciiSettings,  {"remote", "c", "5\u20AC"},          "'5\u20AC' has characters that the meter does not have"},
        {kAsciiSettings,  {"remote", "c", "\xB5"},             "has characters that the meter does not have"},
        {kAsciiSettings,  {"remote", "c", "5\xC2"},            "has characters that the meter does not have"},
        {kAsciiSettings,  {"curve", "/c/any", "--board", "3"}, "--board is 1"},
        {kAsciiSettings,  {"curve", "/c/none"},                "counterctl: /c/none: No such file or directory", 2},
        {kAsciiSettings,  {"curve", "/c/one"},                 "counterctl: /c/one: no curve: it has two items", 2},
        {kAsciiSettings,  {"calibrate", "0"},                  "HERTZ is a positive number"},
        {kAsciiSettings,  {"calibrate", "1,000"},              "HERTZ is a positive number"},
        {kAsciiSettings,  {"calibrate", "inf"},                "HERTZ is a positive number"},
        {kModbus, {"read", "all"},                     "'all' does not exist over Modbus"},
        {kModbus, {"read", "all+"},                    "'all+' does not exist over Modbus"},
        {kModbus, {"remote", "c", "1"},                "'c' does not exist over Modbus"},
        {kModbus, {"remote", "display", "9e9"},        "-2147483648 to 2147483647"},
        {kModbus, {"curve", "/c/any"},                 "Cannot send the custom curve file"},
        {kModbus, {"calibrate", "1000"},               "'calibrate' does not exist over Modbus"},
        // clang-format on
    };
    for (const auto& c : cases) {
        HandCli cli;
        cli.Line.NextOpen = {StatusKind::Busy, "port", "Device or resource busy"};  // and nothing is opened
        cli.Store.Contents["home/Settings.SSS"] = c.Settings;
        EXPECT_EQ(cli.Run(c.Line), c.Status) << c.Says;
        EXPECT_NE(cli.Err.find(c.Says), std::string::npos) << cli.Err;
        EXPECT_EQ(cli.Err.find('\n'), cli.Err.size() - 1) << "one line: " << cli.Err;
        EXPECT_EQ(cli.Out + cli.Line.Story(), "") << c.Says;
    }
}

// The table of faults has the rest, frame by frame.
TEST(HandWork, AFailedLinkIs3) {
    const std::string verify =
        " VERIFY FAILED.  DATA MOST LIKELY NOT RECEIVED BY METER."
        " CHECK THE METER COMMUNICATIONS SETTINGS AND THE CABLING AND TRY AGAIN. ";
    const struct {
        Words Line;
        const char *Answer, *Sent;
        std::string LastLine;
        int LinkError;
    } cases[] = {
        // clang-format off
        {{"read", "item1"},                   "-",  "*1B1",  "Communications failure.  Program may have to be re-started. (21)", 21},
        {{"curve", "/c/any"},                 "00", "*1WL6", verify + "(0)",  0},
        {{"curve", "/c/any", "--board", "2"}, "-",  "*1WLF", verify + "(21)", 21},
        // clang-format on
    };
    for (const auto& c : cases) {
        HandCli cli(c.Answer);
        Words line = c.Line;
        line.push_back("--json");
        EXPECT_EQ(cli.Run(line), 3) << c.Line[0];
        EXPECT_EQ(cli.LastErrLine(), c.LastLine);
        EXPECT_NE(cli.Line.Story().find(c.Sent), std::string::npos) << c.Sent;
        EXPECT_EQ(Json::parse(cli.Out)["LinkError"], c.LinkError) << c.Line[0];
        EXPECT_EQ(Json::parse(cli.Out)["status"], c.LastLine);
    }
}

TEST(HandWork, AnInterruptEndsACurveButNotACalibration) {
    HandCli curve;
    curve.Clock.After(1000, [&] { curve.Clock.RequestInterrupt(); });
    EXPECT_EQ(curve.Run({"curve", "/c/any"}), 130);
    EXPECT_TRUE(curve.Line.Story().ends_with("*1XL69Z"));
    for (const double ms : {1e9, 100.0, 9000.0}) {
        HandCli cli;
        cli.Line.Answer = [](const std::string& frame) {
            if (frame == "*1X311Z") return "0000000186A0";
            return frame == "*1X124Z" ? "0500" : frame == "*1B1" ? " 900027" : "-";
        };
        cli.Clock.After(ms, [&] { cli.Clock.RequestInterrupt(); });
        EXPECT_EQ(cli.Run({"calibrate", "1e3", "--json"}), ms < 1e9 ? 130 : 0) << ms;
        EXPECT_TRUE(cli.Line.Story().ends_with("*1W3110000000186A0Z; 1300 *1W1240500Z; 1300 *1W12B801E"));
        if (ms < 1e9) continue;
        EXPECT_EQ(Json::parse(cli.Out).dump(),
                  R"({"LinkError":0,"limited":false,"messages":[],"ppm":-30,"status":"Done."})");
    }
}

}  // namespace
}  // namespace counter::test
