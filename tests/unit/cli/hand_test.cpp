// read, reset, remote, curve and calibrate from the outside: what goes out, exit statuses, both streams.
#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

#include "run_line.h"
#include "support/hand_bench.h"

namespace counter::test {
namespace {

using Json = nlohmann::json;

constexpr const char* kModbus = "3501200100100831010000\r\n2711000000000000F6CB00000000\r\n";

std::string Item(std::size_t digits, char digit) {
    return std::string(digits, digit) + "\n";
}

// A command on a line whose far end the test plays.
struct HandCli : CliBench {
    VirtualPump Clock;
    ScriptedPort Line{Clock};

    explicit HandCli(const char* answer = "-") {
        Store.Contents = {{"home/Settings.SSS", kAsciiSettings},
                          {"/c/any", Item(84, '5') + Item(84, 'A')},
                          {"/c/one", "55"},
                          {"/c/83", Item(84, '5') + Item(83, 'A')},
                          {"/c/85", Item(85, '5') + Item(84, 'A')},
                          {"/c/small", Item(84, 'a') + Item(84, 'A')},
                          {"/c/mark", "\xEF\xBB\xBF" + Item(84, '5') + Item(84, 'A')}};
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
        {kAsciiSettings,  {"curve", "/c/83"},                  "each of 84 hexadecimal digits in capitals", 2},
        {kAsciiSettings,  {"curve", "/c/85"},                  "each of 84 hexadecimal digits in capitals", 2},
        {kAsciiSettings,  {"curve", "/c/small"},               "each of 84 hexadecimal digits in capitals", 2},
        {kAsciiSettings,  {"curve", "/c/mark"},                "each of 84 hexadecimal digits in capitals", 2},
        {kAsciiSettings,  {"calibrate", "0"},                  "HERTZ is a positive number"},
        {kAsciiSettings,  {"calibrate", "1,000"},              "HERTZ is a positive number"},
        {kAsciiSettings,  {"calibrate", "inf"},                "HERTZ is a positive number"},
        {kAsciiSettings,  {"calibrate", "9"},                  "At 9 Hertz the meter's scale has no room for the exponent"},
        {kModbus, {"read", "all"},                     "'all' does not exist over Modbus"},
        {kModbus, {"read", "all+"},                    "'all+' does not exist over Modbus"},
        {kModbus, {"remote", "c", "1"},                "'c' does not exist over Modbus"},
        {kModbus, {"remote", "display", "9e9"},        "-2147483648 to 2147483647"},
        {kModbus, {"curve", "/c/any"},                 "Cannot send the custom curve file"},
        {kModbus, {"calibrate", "1000"},               "Calibration needs Custom ASCII"},
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
    const std::string verify = " VERIFY FAILED.  DATA MOST LIKELY NOT RECEIVED BY METER. ";
    const struct {
        Words Line;
        const char *Answer, *Sent;
        std::string LastLine;
        int LinkError;
    } cases[] = {
        // clang-format off
        {{"read", "item1"},                   "-",  "*1B1",  "Communications failure.  Program may have to be re-started. (21)", 21},
        {{"curve", "/c/any"},                 "00", "*1WL6", verify + "(1)",  1},
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

// No half of a curve, no test scale.
TEST(HandWork, AnInterruptLeavesTheMeterWhole) {
    const struct {
        const char* Command;
        double Ms;
        int Status;
        const char *EndsWith, *Says;
    } cases[] = {
        // clang-format off
        {"curve",     400,   130, "*1WL54", "both items were sent and not verified"},
        {"curve",     1000,  130, "*1XL69Z", "both items were sent and not verified"},
        {"calibrate", 100,   130, "*1A1", "Nothing was written"},
        {"calibrate", 9000,  130, "*1W12B8064; 1300 *1X311Z; 571 *1X124Z; 571 *1X12BZ", "back."},
        {"calibrate", 1e9,   0,   "*1W3110000000186A0Z; 1300 *1W1240500Z; 1300 *1W12B801E; 1300 *1X311Z; 571 *1X124Z; 571 *1X12BZ", ""},
        // clang-format on
    };
    for (const auto& c : cases) {
        HandCli cli;
        std::string factor = "8064";
        cli.Line.Answer = [&factor](const std::string& frame) -> std::string {
            if (frame.starts_with("*1W12B")) factor = frame.substr(6, 4);
            if (frame == "*1X311Z") return "0000000186A0";
            return frame == "*1X124Z"   ? "0500"
                   : frame == "*1X12BZ" ? factor
                   : frame == "*1B1"    ? " 900027"
                                        : "-";
        };
        cli.Clock.After(c.Ms, [&] { cli.Clock.RequestInterrupt(); });
        const std::string word = c.Command == std::string("curve") ? "/c/any" : "1e3";
        EXPECT_EQ(cli.Run({c.Command, word, "--json"}), c.Status) << c.Says;
        const std::string story = cli.Line.Story(), ending = c.EndsWith;
        const std::string last = ending == "*1WL54" ? story.substr(story.rfind(' ') + 1, 6) : story;
        EXPECT_TRUE(last.ends_with(ending)) << story;
        EXPECT_NE(cli.Err.find(c.Says), std::string::npos) << cli.Err;
        if (c.Status == 0) {
            EXPECT_EQ(
                Json::parse(cli.Out).dump(),
                R"({"LinkError":0,"limited":false,"messages":[],"ppm":-30,"status":"Done.","written":true})");
        }
    }
}

TEST(HandWork, ADoubtfulCalibrationNeedsForce) {
    for (const bool force : {false, true}) {
        HandCli cli;
        cli.Line.Answer = [](const std::string& frame) {
            if (frame == "*1X311Z") return "0000000186A0";
            return frame == "*1X124Z"   ? "0500"
                   : frame == "*1X12BZ" ? "752F"
                   : frame == "*1B1"    ? " 000000"
                                        : "-";
        };
        EXPECT_EQ(cli.Run(force ? Words{"calibrate", "1000", "--force"} : Words{"calibrate", "1000"}),
                  force ? 0 : 3);
        EXPECT_NE(cli.Err.find("is the frequency at the input?"), std::string::npos);
        EXPECT_EQ(cli.Line.Story().find("*1W") != std::string::npos, force);
    }
}

}  // namespace
}  // namespace counter::test
