// record and readings from the outside: what goes into a store comes out as stream would have written it.
#include <gtest/gtest.h>

#include <algorithm>
#include <nlohmann/json.hpp>

#include "cli/run_line.h"
#include "publishing/broker_address.h"
#include "record_cli/record_cli.h"
#include "support/meter_line.h"
#include "support/temp_folder.h"
#include "system/core_runtime.h"

namespace counter::test {
namespace {

struct RecordCli : CliBench {
    CoreRuntime Runtime;
    TempFolder Folder;
    VirtualPump Clock;
    MeterLine Line{Clock, {}};

    RecordCli() {
        Home = Folder.Path;
        Store.Contents[Home + "/Settings.SSS"] = kAsciiSettings;
        Make = [this] { return std::make_unique<BorrowedMachine>(Clock, Line); };
        Recording = {RunRecord, RunReadings};
    }
};

TEST(Record, WhatGoesInComesOutAsStreamWritesIt) {
    RecordCli cli;
    EXPECT_EQ(cli.Run({"record", "--count", "3", "--note", "a note"}), 0) << cli.Err;
    EXPECT_EQ(cli.Out, "run 1: 3 readings\n");
    EXPECT_EQ(cli.Run({"stream", "--count", "3", "--csv", "/s.csv", "--json"}), 0);
    const std::string lines = cli.Out;
    EXPECT_EQ(cli.Run({"readings", "1", "--csv", "/r.csv"}), 0) << cli.Err;
    // The signal has moved on; it is as long as it was.
    const auto columns = [&](const char* file) {
        const std::string& text = cli.Store.Contents[file];
        return std::pair(text.substr(0, 41), text.size());
    };
    EXPECT_EQ(columns("/r.csv"), columns("/s.csv"));
    EXPECT_EQ(cli.Run({"readings", "1", "--json"}), 0);
    EXPECT_EQ(std::count(cli.Out.begin(), cli.Out.end(), '\n'), 3);
    EXPECT_EQ(std::pair(cli.Out.substr(0, 51), cli.Out.size()), std::pair(lines.substr(0, 51), lines.size()));
    EXPECT_EQ(cli.Run({"readings", "--json"}), 0);
    const auto run = nlohmann::json::parse(cli.Out)[0];
    EXPECT_EQ(run["setup"].get<std::string>().size(), 260U);
    EXPECT_EQ(run["note"], "a note");
    EXPECT_EQ(run["baud"], 9600);
    EXPECT_EQ(run["start"], "2026-03-04T05:06:07.089-03:30");
}

TEST(Record, IsRefusedInWords) {
    const std::string broker = "a broker is mqtt://";
    const struct {
        Words Line;
        int Status;
        std::string Says;
    } cases[] = {{{"record", "--count", "0"}, 1, "--count is a whole number above 0"},
                 {{"record", "--mqtt", "http://b/x"}, 1, broker},
                 {{"record", "--mqtt", "mqtt://b"}, 1, broker},
                 {{"record", "--mqtt", "mqtt://b:0/x"}, 1, broker},
                 {{"record", "--mqtt", "mqtt://b/x/#"}, 1, broker},
                 {{"record", "--mqtt", "mqtt://b/x", "--cafile", "ca"}, 1, "are for a broker with TLS"},
                 {{"record", "--mqtt", "mqtts://b/x", "--key", "k"}, 1, "given together"},
                 {{"record", "--mqtt", "mqtts://b/x", "--cafile", "ca"}, 2, "ca: No such file or directory"},
                 {{"record", "--name", "a/b"}, 1, "--name is a level of a topic"},
                 {{"record", "--db", "/no/x.db"}, 2, "/no/x.db: No such file or directory"},
                 {{"readings", "--db", "/no/x.db"}, 2, "/no/x.db: No such file or directory"},
                 {{"readings", "--csv", "x"}, 1, "which RUN"},
                 {{"readings", "1", "--csv", "x", "--ndjson", "y"}, 1, "one form at a time"}};
    for (const auto& c : cases) {
        RecordCli cli;
        EXPECT_EQ(cli.Run(c.Line), c.Status) << c.Says;
        EXPECT_NE(cli.Err.find(c.Says), std::string::npos) << cli.Err;
        EXPECT_TRUE(cli.Line.Sent().empty());
    }
    RecordCli cli;
    EXPECT_EQ(cli.Run({"record", "--count", "1"}), 0);
    EXPECT_EQ(cli.Run({"readings", "7"}), 2);
    EXPECT_NE(cli.Err.find("has no run 7"), std::string::npos);
}

TEST(Record, ReadsABrokersUrl) {
    BrokerAddress address;
    EXPECT_EQ(ParseBrokerUrl("mqtts://me:p:w@[::1]:77/plant/hall/", address), "");
    EXPECT_TRUE(address.Tls);
    EXPECT_EQ(address.User + " " + address.Password, "me p:w");
    EXPECT_EQ(address.Name() + " " + address.Prefix, "::1:77 plant/hall");
    for (const auto& [url, port] : {std::pair("mqtt://b/x", 1883), std::pair("mqtts://b/x", 8883)}) {
        EXPECT_EQ(ParseBrokerUrl(url, address), "");
        EXPECT_EQ(address.Port, port);
    }
}

}  // namespace
}  // namespace counter::test
