// counterctl from the outside: exit statuses, what goes to which stream, the JSON documents.
#include "cli/cli.h"

#include <gtest/gtest.h>

#include <cctype>
#include <fstream>
#include <nlohmann/json.hpp>
#include <optional>
#include <set>

#include "cli/command_table.h"
#include "cli/failure_page.h"
#include "run_line.h"
#include "support/bench_meter.h"
#include "support/meter_kinds.h"

namespace counter::test {
namespace {

using Json = nlohmann::json;

const std::string kDefaultSetup = std::string(sim::kDefaultImage) + "\r\n";

// The default setup with 12345 as Setpoint 1.
std::string ChangedSetup() {
    return std::string(kDefaultSetup).replace(54, 6, "003039");
}

// Each command has a new machine, with a line to a simulated meter.
struct MeterCli : CliBench {
    sim::MeterOptions Meter;
    Status PortOpening;
    double InterruptAfterMs = -1;

    MeterCli() {
        Store.Contents = {{"home/Settings.SSS", kAsciiSettings}, {"/dev/ttyUSB0", ""}};
        Make = [this] {
            line_.reset();
            line_.emplace(clock_.emplace(), Meter).NextOpen = PortOpening;
            if (InterruptAfterMs >= 0)
                clock_->After(InterruptAfterMs, [this] { clock_->RequestInterrupt(); });
            return std::make_unique<BorrowedMachine>(*clock_, *line_);
        };
    }
    // As "XR35:noreply"; beside earlier faults.
    void Fail(const char* fault) { Meter = WithFaults(Meter, {fault}); }

  private:
    std::optional<VirtualPump> clock_;
    std::optional<MeterLine> line_;
};

TEST(Usage, IsOneLineThatSaysWhatIsLegal) {
    const struct {
        Words Line;
        const char* Says;
    } cases[] = {
        {{}, "COMMAND one of settings ports scan"},
        {{"frob"}, "COMMAND one of settings"},
        {{"get", "a", "b"}, "usage: counterctl get FILE"},
        {{"diff", "a"}, "usage: counterctl diff A B"},
        {{"show", "a", "--frob"}, "usage: counterctl show FILE [--as fields|menu|setup]"},
        {{"show", "a", "--as", "table"}, "--as is fields, menu or setup"},
        {{"settings", "set"}, "usage: counterctl settings set KEY=VALUE..."},
        {{"settings", "set", "Baud=1"}, "keys are MeterType BaudIndex"},
        {{"settings", "set", "BaudIndex"}, "'BaudIndex' is not KEY=VALUE"},
        {{"settings", "show"}, "usage: counterctl settings"},
        {{"ports", "map", "0", "/dev/ttyUSB0"}, "a port number is 1 to 99"},
        {{"ports", "map", "1"}, "usage: counterctl ports [map N DEVICE]"},
        {{"put", "a", "--backup", ""}, "--backup needs a value"},
        {{"get", "a", "--dir", ""}, "--dir needs a value"},
        {{"put", "a", "--verify=no"}, "usage: counterctl put FILE"},
        {{"read"}, "usage: counterctl read item1|item2"},
    };
    for (const auto& c : cases) {
        MeterCli bench;
        const auto before = bench.Store.Contents;
        EXPECT_EQ(bench.Run(c.Line), 1) << c.Says;
        EXPECT_NE(bench.Err.find(c.Says), std::string::npos) << bench.Err;
        EXPECT_EQ(bench.Err.find('\n'), bench.Err.size() - 1) << "one line: " << bench.Err;
        EXPECT_EQ(bench.Out, "");
        EXPECT_EQ(bench.Store.Contents, before) << "nothing was done";
    }
}

TEST(Usage, HelpAndVersionAreNoFailure) {
    MeterCli bench;
    EXPECT_EQ(bench.Run({"--version"}), 0);
    EXPECT_EQ(bench.Out, "counterctl 0.1.0\n");
    EXPECT_EQ(bench.Run({"--help"}), 0);
    const std::string all = bench.Out;
    for (const std::string& name : CommandNames()) {
        EXPECT_NE(all.find("\n  " + name + " "), std::string::npos) << name;
        EXPECT_EQ(bench.Run({name, "--help"}), 0);
        const std::string text = bench.Out;
        EXPECT_EQ(text.find("counterctl " + name + " "), 0U);
        EXPECT_NE(text.rfind("\nExample\n  "), std::string::npos) << name;
        EXPECT_EQ(bench.Run({"help", name}), 0);
        EXPECT_EQ(bench.Out, text);
    }
}

TEST(Usage, SuggestsTheNameThatWasMeant) {
    const struct {
        Words Line;
        const char* Ends;
    } cases[] = {
        {{"verfy", "a"}, "; did you mean 'verify'?\n"},
        {{"--dir", "sow", "sohw", "a"}, "; did you mean 'show'?\n"},
        {{"frob"}, "calibrate fleet help\n"},
        {{"help", "strem"}, "; did you mean 'stream'?\n"},
        {{"put", "a", "--back=x"}, "; did you mean '--backup'?\n"},
        {{"show", "a", "--jason"}, "; did you mean '--json'?\n"},
        {{"settings", "set", "baudindx=1"}, "; did you mean 'BaudIndex'?\n"},
        {{"read", "item"}, "; did you mean 'item1', 'item2' or 'item3'?\n"},
        {{"fields", "a", "Alarm 1\nSorce"}, "; did you mean 'Alarm 1 Source'?\n"},
    };
    for (const auto& c : cases) {
        MeterCli bench;
        EXPECT_EQ(bench.Run(c.Line), 1);
        EXPECT_TRUE(bench.Err.ends_with(c.Ends)) << bench.Err;
        EXPECT_EQ(bench.Err.find('\n'), bench.Err.size() - 1) << "one line: " << bench.Err;
    }
}

TEST(Settings, OptionsStandBeforeAndBehindTheCommand) {
    MeterCli bench;
    bench.Store.Contents["other/Settings.SSS"] = "3101000100100831010000\r\n2711000000000000F6CB00000000\r\n";
    for (const Words& line :
         {Words{"--dir", "other", "--json", "settings"}, {"settings", "--json", "--dir", "other"}}) {
        EXPECT_EQ(bench.Run(line), 0);
        EXPECT_EQ(Json::parse(bench.Out)["BaudIndex"], 1);
    }
}

TEST(Settings, JsonHasEveryKeyAndTheLinesAsTheyStand) {
    MeterCli bench;
    bench.Store.Contents["home/Settings.SSS"] = "3512210K2471079251\r\n27110080A3010203F6CBC0A80105\r\n";
    EXPECT_EQ(bench.Run({"settings", "--json"}), 0);
    EXPECT_EQ(Json::parse(bench.Out), Json::parse(R"({"MeterType":3,"BaudIndex":5,"CommPortNumber":12,
        "SerialProtocol":2,"ParityIndex":1,"MeterAddressValue":20,"ModbusAddress":247,"LongWakeUp":1,
        "FirmwareVersion":79,"CommsEnabled":2,"ProgramKind":5,"TcpPort":10001,"NodeAddress":"0080A3010203",
        "NodeUdpPort":63179,"NodeIp":"192.168.1.5","SettingsLine1":"3512210K2471079251",
        "SettingsLine2":"27110080A3010203F6CBC0A80105","EthernetMode":1})"));
}

TEST(Settings, InitAndSetWriteWholeLines) {
    MeterCli bench;
    EXPECT_EQ(bench.Run({"settings", "set", "BaudIndex=2", "MeterAddressValue=16"}), 0);
    EXPECT_EQ(bench.Store.Contents["home/Settings.SSS"],
              "3201000G00100831010000\r\n2711000000000000F6CB00000000\r\n");
    EXPECT_EQ(bench.Run({"settings", "init"}), 2) << "a file stands there";
    EXPECT_EQ(bench.Run({"settings", "init", "--force", "SerialProtocol=1"}), 0);
    EXPECT_EQ(bench.Store.Contents["home/Settings.SSS"],
              "3501100100100831010000\r\n2711000000000000F6CB00000000\r\n");
    EXPECT_EQ(bench.Run({"settings", "init", "--dir", "new"}), 0);
    EXPECT_EQ(bench.Store.Folders.count("new"), 1U);
}

TEST(Settings, AStrangeBaudDigitIsShownAndWarnedOf) {
    MeterCli bench;
    bench.Store.Contents["home/Settings.SSS"] = "3x01000100100831010000\r\n\r\n";
    EXPECT_EQ(bench.Run({"settings", "--json"}), 0);
    EXPECT_EQ(Json::parse(bench.Out)["BaudIndex"], -1);
    EXPECT_NE(bench.Err.find("none of 0 to 6"), std::string::npos);
    EXPECT_EQ(bench.Run({"settings", "set", "BaudIndex=5"}), 0);
    EXPECT_EQ(bench.Run({"settings"}), 0);
}

TEST(Ports, AreListedWithTheNumbersThatMeanThem) {
    MeterCli bench;
    bench.Store.Links["home/ports/com1"] = "/dev/pts/4";
    bench.Store.Links["home/ports/com7"] = "/dev/serial/by-id/usb-1";
    EXPECT_EQ(bench.Run({"ports", "--json"}), 0);
    EXPECT_EQ(Json::parse(bench.Out), Json::parse(R"([
        {"device":"/dev/ttyS0","description":"16550A","byId":"","numbers":[]},
        {"device":"/dev/ttyUSB0","description":"Converter","byId":"/dev/serial/by-id/usb-1","numbers":[2,7]},
        {"device":"/dev/pts/4","description":"","byId":"","numbers":[1]}])"));
}

TEST(Ports, MapLinksByTheLastingName) {
    MeterCli bench;
    EXPECT_EQ(bench.Run({"ports", "map", "3", "ttyUSB0"}), 0);
    EXPECT_EQ(bench.Store.Links["home/ports/com3"], "/dev/serial/by-id/usb-1");
    EXPECT_EQ(bench.Run({"ports", "map", "3", "/dev/none"}), 2);
    EXPECT_EQ(bench.Err, "counterctl: /dev/none: No such file or directory\n");
}

TEST(Show, ByteSoupIsShownAndStaysJson) {
    MeterCli bench;
    std::string soup;
    for (int i = 0; i < 300; ++i) soup += static_cast<char>(i * 37 % 256);
    bench.Store.Contents["soup"] = soup;
    EXPECT_EQ(bench.Run({"show", "soup"}), 0);
    EXPECT_EQ(bench.Run({"show", "soup", "--json"}), 0);
    EXPECT_TRUE(Json::accept(bench.Out));
    EXPECT_EQ(bench.Run({"edit", "soup", "--out", "e", "--json"}), 0) << bench.Err;
    EXPECT_TRUE(Json::accept(bench.Out));
    EXPECT_EQ(bench.Store.Contents["e"].size(), 262U) << "what is written is whole";
    EXPECT_EQ(bench.Run({"edit", "soup"}), 2) << "but a picture is not written over";
    EXPECT_EQ(bench.Store.Contents["soup"], soup);
    EXPECT_EQ(bench.Run({"show", "none"}), 2);
    EXPECT_EQ(bench.Err, "counterctl: none: No such file or directory\n");
}

TEST(Diff, TellsTheFieldsThatDiffer) {
    MeterCli bench;
    bench.Run({"default", "a"});
    std::string text = bench.Store.Contents["a"];
    EXPECT_EQ(bench.Run({"diff", "a", "a"}), 0);
    text.replace(54, 6, "004E20");  // Setpoint 1
    text.replace(154, 2, "0F");     // Resolution 15 is shown as 10
    text.replace(190, 2, "60");     // Baud Rate
    bench.Store.Contents["b"] = text.substr(0, 260) + "77";
    EXPECT_EQ(bench.Run({"diff", "a", "b", "--json"}), 4);
    EXPECT_EQ(Json::parse(bench.Out), Json::parse(R"([
        {"field":"Setpoint 1","position":55,"a":"+010000.","b":"+020000.","counts":true},
        {"field":"Resolution","position":155,"a":"1","b":"100000","counts":true},
        {"field":"Baud Rate","position":191,"a":"9600","b":"19200","counts":true},
        {"field":"Digits behind the setup","position":261,"a":"","b":"77","counts":true}])"));
    EXPECT_EQ(bench.Run({"diff", "a", "none"}), 2);
}

// A damaged file is no setup of zeros, and is looked at all the same.
TEST(Diff, WhatIsNoDigitDiffersAndIsTold) {
    const struct {
        std::string Text;
        const char *Row, *Error;
    } cases[] = {
        {std::string(258, '0') + "0G\r\n", "255       Analog 2 Lo Range Reading  +000000.  00000G",
         "x: no whole setup: character 260 is 'G' and no hexadecimal digit"},
        {std::string(258, '0') + "\x1b\xff\r\n", "+000000.  0000\\x1B\u00FF", "character 259 is '\\x1B'"},
        {"", nullptr, "0 characters instead of 260"},
        {"%PDF-1.4\n%x", "%PDF-1", "8 characters instead of 260 hexadecimal digits; character 1 is '%'"},
        {std::string(261, '0'), "261       Digits behind the setup", "261 characters"},
    };
    for (const auto& c : cases) {
        MeterCli bench;
        bench.Store.Contents["zeros"] = std::string(260, '0');
        bench.Store.Contents["x"] = c.Text;
        EXPECT_EQ(bench.Run({"diff", "zeros", "x"}), c.Row ? 4 : 0) << c.Error;
        EXPECT_NE(bench.Out.find(c.Row ? c.Row : "No field"), std::string::npos) << bench.Out;
        for (const Words& line :
             {Words{"diff", "zeros", "x"}, {"show", "x"}, {"show", "x", "--as", "menu"}, {"verify", "x"}}) {
            bench.Run(line);
            EXPECT_NE(bench.Err.find(c.Error), std::string::npos) << line[0] << bench.Err;
            EXPECT_EQ(std::count(bench.Err.begin(), bench.Err.end(), '\n'), 1) << bench.Err;
            EXPECT_EQ(bench.Out.find('\x1b'), std::string::npos) << bench.Out;
        }
    }
}

TEST(Diff, WhatReadsAlikeIsToldWithItsCode) {
    MeterCli bench;
    bench.Run({"default", "a"});
    std::string text = bench.Store.Contents["a"];
    bench.Store.Contents["a"] = text.replace(202, 2, "02");
    bench.Store.Contents["b"] = text.replace(202, 2, "03");
    EXPECT_EQ(bench.Run({"diff", "a", "b", "--json"}), 4);
    const Json row = Json::parse(bench.Out).at(0);
    EXPECT_EQ(row["a"], "Disabled (code 2)");
    EXPECT_EQ(row["b"], "Disabled (code 3)");
}

TEST(Get, WritesTheFileAndTellsTheStatus) {
    MeterCli bench;
    EXPECT_EQ(bench.Run({"get", "m.CT2"}), 0);
    EXPECT_EQ(bench.Out, "Getting data from the Counter.  Data received OK.\n");
    EXPECT_EQ(bench.Store.Contents["m.CT2"], kDefaultSetup);
    EXPECT_EQ(bench.Run({"get", "m.CT2", "--json"}), 0);
    EXPECT_EQ(Json::parse(bench.Out),
              Json::parse(R"({"status":"Getting data from the Counter.  Data received OK.",
        "LinkError":0,"FirmwareVersion":83,"MeterType":3,"messages":[]})"));
}

TEST(Get, AFailureSaysItsNumberInWords) {
    MeterCli bench;
    bench.Fail("XB74:echo");
    EXPECT_EQ(bench.Run({"get", "m.CT2", "--json"}), 3);
    EXPECT_EQ(Json::parse(bench.Out)["LinkErrorText"], "third block: wrong length");
    EXPECT_EQ(bench.Err,
              "counterctl: third block: wrong length\n"
              "counterctl: see docs/when-something-fails.md#1-to-16\n"
              "Failed to Get data, check connections, then try again.      ( 7)\n");
}

// The end of a link for each heading of the page, as browsers make it.
std::set<std::string> SectionsOfThePage() {
    std::set<std::string> sections;
    std::ifstream page(SOURCE_FOLDER "/docs/when-something-fails.md");
    for (std::string line, section; std::getline(page, line); section.clear()) {
        if (!line.starts_with("### ")) continue;
        for (char c : line.substr(4)) section += c == ' ' ? '-' : static_cast<char>(std::tolower(c));
        sections.insert(section);
    }
    return sections;
}

TEST(FailurePage, HasASectionForEachFailure) {
    const std::set<std::string> sections = SectionsOfThePage();
    std::ifstream file(SOURCE_FOLDER "/docs/when-something-fails.md");
    std::string page{std::istreambuf_iterator<char>(file), {}};
    std::ranges::replace(page, '\n', ' ');
    for (int number = 1; number <= LinkErrors::kPortFault; ++number) {
        for (const ErrorSource source : {ErrorSource::GetAscii, ErrorSource::Refusal})
            EXPECT_TRUE(sections.contains(FailureSection(number, source))) << number;
        const std::size_t section =
            page.find(number < LinkErrors::kNodeNoReply ? "### 1 to 16" : "### " + std::to_string(number));
        const std::size_t first = page.find("First: ", section);
        EXPECT_EQ(page.compare(first + 7, FirstToTry(number).size(), FirstToTry(number)), 0) << number;
    }
    EXPECT_TRUE(sections.contains(kDoubtSection));
    EXPECT_TRUE(sections.contains(kNodeSection));
    const struct {
        Status Refused;
        const char* Section;
    } cases[] = {
        {{StatusKind::NotFound, "home/Settings.SSS", ""}, "no-settings"},
        {{StatusKind::NotFound, "/dev/ttyUSB0", ""}, "no-adaptor-is-listed"},
        {{StatusKind::NoPermission, "/dev/ttyUSB0", ""}, "permission-denied"},
        {{StatusKind::Busy, "/dev/ttyUSB0", ""}, "the-port-is-busy"},
        {{StatusKind::NoPermission, "home/Settings.SSS", ""}, ""},
        {{StatusKind::Ok, "", ""}, ""},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(FailureSection(c.Refused), c.Section);
        EXPECT_TRUE(*c.Section == '\0' || sections.contains(c.Section)) << c.Section;
    }
}

TEST(Get, FilesAndPortsThatCannotBeUsedAre2) {
    MeterCli bench;
    bench.Store.Refused.insert("m.CT2");
    EXPECT_EQ(bench.Run({"get", "m.CT2"}), 2);
    EXPECT_EQ(bench.LastErrLine(), "counterctl: m.CT2: Permission denied");
    bench.PortOpening = {StatusKind::Busy, "home/ports/com1", "Device or resource busy"};
    EXPECT_EQ(bench.Run({"get", "n.CT2"}), 2);
    EXPECT_EQ(bench.Err,
              "counterctl: see docs/when-something-fails.md#the-port-is-busy\n"
              "counterctl: home/ports/com1: Device or resource busy\n");
    bench.Store.Contents["home/Settings.SSS"] = "3501000100100830010000\r\n\r\n";
    EXPECT_EQ(bench.Run({"get", "n.CT2"}), 2) << "settings without a link";
    bench.Store.Contents.erase("home/Settings.SSS");
    EXPECT_EQ(bench.Run({"get", "n.CT2"}), 2);
    EXPECT_EQ(bench.LastErrLine(), "counterctl: home/Settings.SSS: No such file or directory");
}

TEST(Get, AnInterruptEndsItAtTheNextWait) {
    MeterCli bench;
    for (const double ms : {1500.0, 4000.0}) {  // in an exchange, and while the port is being closed
        bench.InterruptAfterMs = ms;
        EXPECT_EQ(bench.Run({"get", "m.CT2"}), 130);
        EXPECT_EQ(bench.LastErrLine(), "counterctl: interrupted");
        EXPECT_EQ(bench.Store.Contents.count("m.CT2"), 0U);
    }
}

TEST(Get, RepliesThatCantBeRightAreNotSaved) {
    MeterCli bench;
    bench.Meter = WithFaults(bench.Meter, {"XR35Z:extra"});
    EXPECT_EQ(bench.Run({"get", "m.CT2", "--json"}), 3);
    EXPECT_EQ(bench.Store.Contents.count("m.CT2"), 0U);
    EXPECT_EQ(Json::parse(bench.Out)["doubt"],
              "Not all of what came can be right, second block: a digit too many came.");
    EXPECT_EQ(bench.Run({"verify", "m.CT2"}), 2);
}

TEST(Get, MessagesGoToStandardErrorAndJson) {
    MeterCli bench;
    bench.Meter.Patches = {{185, "64"}};
    EXPECT_EQ(bench.Run({"get", "m.CT2", "--json"}), 0);
    const Json messages = Json::parse(bench.Out)["messages"];
    ASSERT_EQ(messages.size(), 1U);
    EXPECT_EQ(messages[0]["title"], "Note:");
    EXPECT_EQ(bench.Err.find("Note: The Data Type shows as 'Remote A.'  It is possible"), 0U);
}

TEST(Get, LeavesABackup) {
    MeterCli bench;
    EXPECT_EQ(bench.Run({"get", "m.CT2"}), 0);
    EXPECT_EQ(bench.Store.Contents["home/backups/2026-03-04_05-06-07-089_address-01.CT2"], kDefaultSetup);
    bench.Store.Refused.insert("home/backups/2026-03-04_05-06-07-089_address-01.CT2");
    EXPECT_EQ(bench.Run({"get", "m.CT2"}), 0) << "the Get itself is good";
    EXPECT_NE(bench.Err.find("no backup: home/backups/"), std::string::npos) << bench.Err;
}

TEST(Put, WritesAndVerifies) {
    MeterCli bench;
    bench.Store.Contents["new.CT2"] = ChangedSetup();
    EXPECT_EQ(bench.Run({"put", "new.CT2", "--verify", "--json", "--backup", "old.CT2"}), 0) << bench.Err;
    EXPECT_EQ(Json::parse(bench.Out),
              Json::parse(R"({"status":"Putting data to the Counter.  Data appears to have Transferred O.K.",
                              "LinkError":0,"differences":[],"messages":[]})"));
    EXPECT_EQ(bench.Store.Contents["old.CT2"], kDefaultSetup);
    EXPECT_EQ(bench.Run({"put", "new.CT2"}), 0);
    EXPECT_EQ(bench.Out, "Putting data to the Counter.  Data appears to have Transferred O.K.\n");
}

// "-" in the place of a file; the texts for people then go to standard error.
TEST(StandardStreams, StandForFilesOfTheMeter) {
    MeterCli bench;
    EXPECT_EQ(bench.Run({"get", "-"}), 0);
    EXPECT_EQ(bench.Out, kDefaultSetup);
    EXPECT_EQ(bench.LastErrLine(), "Getting data from the Counter.  Data received OK.");
    EXPECT_EQ(bench.Run({"put", "-", "--backup", "-", "--verify"}, ChangedSetup()), 0);
    EXPECT_EQ(bench.Out, kDefaultSetup) << "the backup";
    EXPECT_EQ(bench.LastErrLine(), "No field differs.");
    EXPECT_EQ(bench.Run({"verify", "-"}, ChangedSetup()), 4);
    EXPECT_NE(bench.Out.find("Setpoint 1"), std::string::npos);
    EXPECT_EQ(bench.Run({"put", "-", "--trace"}), 2) << "the pipe in front has failed";
    EXPECT_EQ(bench.Err, "counterctl: standard input: is empty\n");
    EXPECT_EQ(bench.Run({"get", "-", "--json"}), 1);
    EXPECT_EQ(bench.Run({"put", "-", "--backup", "-", "--json"}), 1);
    EXPECT_EQ(bench.Out, "");
}

TEST(Put, NothingIsSentWithoutItsBackup) {
    MeterCli bench;
    bench.Store.Contents["new.CT2"] = ChangedSetup();
    bench.Store.Refused.insert("old.CT2");
    EXPECT_EQ(bench.Run({"put", "new.CT2", "--backup", "old.CT2", "--trace"}), 2);
    EXPECT_EQ(bench.Err.find("WR1A"), std::string::npos);
    EXPECT_EQ(bench.LastErrLine(), "counterctl: old.CT2: Permission denied");
    EXPECT_EQ(bench.Run({"put", "none.CT2"}), 2);
}

// What would leave the meter, or the only copy, as nobody wants it.
TEST(Put, WhatIsNoSetupOrItsOwnBackupIsRefused) {
    const struct {
        const char* Name;
        std::string File;
        std::vector<std::string> Call;
        int Status;
        const char* Says;
    } cases[] = {
        {"empty", "", {}, 2, "new.CT2: is no setup: 0 characters instead of 260"},
        {"a letter", "%PDF-1.4\n", {}, 2, "character 1 is '%'"},
        {"two lines", ChangedSetup() + "00\r\n", {}, 2, "more than one line"},
        {"forced", "%PDF-1.4\n", {"--force"}, 0, ""},
        {"small letters", ChangedSetup().replace(258, 2, "ab"), {}, 0, ""},
        {"onto itself",
         ChangedSetup(),
         {"--backup", "new.CT2"},
         1,
         "--backup new.CT2 would write over new.CT2"},
        {"by a link", ChangedSetup(), {"--backup", "link"}, 1, "--backup link would write over new.CT2"},
        {"onto the settings", ChangedSetup(), {"--backup", "home/Settings.SSS"}, 1, "is the program's own"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.Name);
        MeterCli bench;
        bench.Store.Contents["new.CT2"] = c.File;
        bench.Store.Links["link"] = "new.CT2";
        std::vector<std::string> call = {"put", "new.CT2", "--trace"};
        call.insert(call.end(), c.Call.begin(), c.Call.end());
        EXPECT_EQ(bench.Run(call), c.Status) << bench.Err;
        EXPECT_NE(bench.Err.find(c.Says), std::string::npos) << bench.Err;
        EXPECT_EQ(bench.Err.find("WR1A") != std::string::npos, c.Status == 0);
        EXPECT_EQ(bench.Store.Contents["new.CT2"], c.File);
    }
}

TEST(Put, MessagesGoToStandardError) {
    MeterCli bench;
    bench.Store.Contents["new.CT2"] = ChangedSetup();
    bench.Meter.Patches = {{199, "C0"}};
    EXPECT_EQ(bench.Run({"put", "new.CT2"}), 0);
    EXPECT_EQ(bench.Err, "Put Data You cannot write Dual Signal Conditioner data to a Quadrature Meter.\n");
}

TEST(Put, AnInterruptTellsWhatHasGoneOut) {
    MeterCli bench;
    bench.Store.Contents["new.CT2"] = ChangedSetup();
    bench.InterruptAfterMs = 2500;
    EXPECT_EQ(bench.Run({"put", "new.CT2"}), 130);
    EXPECT_EQ(bench.LastErrLine(), "counterctl: interrupted; sent so far: WR1A W435 WG2A");
    bench.InterruptAfterMs = 100;
    EXPECT_EQ(bench.Run({"put", "new.CT2"}), 130);
    EXPECT_EQ(bench.LastErrLine(), "counterctl: interrupted; nothing was written");
}

TEST(Put, SettingsThatCannotFollowAre2) {
    MeterCli bench;
    bench.Store.Contents["new.CT2"] = ChangedSetup().replace(190, 2, "60");
    bench.Store.ReadOnly.insert("home/Settings.SSS");
    EXPECT_EQ(bench.Run({"put", "new.CT2"}), 2);
    EXPECT_EQ(bench.LastErrLine(), "counterctl: home/Settings.SSS: Permission denied");
    EXPECT_EQ(bench.Out, "Putting data to the Counter.  Data appears to have Transferred O.K.\n");
}

TEST(Verify, OverModbusLeavesAloneWhatNoRegisterBrings) {
    MeterCli bench;
    bench.Store.Contents["home/Settings.SSS"] = "3501100100100831010000\r\n\r\n";
    bench.Meter.Protocol = sim::LineProtocol::ModbusRtu;
    bench.Store.Contents["new.CT2"] = ChangedSetup().replace(54, 6, "002710").replace(108, 2, "04");
    EXPECT_EQ(bench.Run({"verify", "new.CT2", "--json"}), 0) << bench.Err;
    EXPECT_EQ(bench.Out, "[]\n");
}

TEST(Verify, TheClassOfTheMeterIsItsHardware) {
    MeterCli bench;
    bench.Meter.Extended = false;
    bench.Store.Contents["new.CT2"] = ChangedSetup().replace(54, 6, "002710");
    EXPECT_EQ(bench.Run({"verify", "new.CT2", "--json"}), 0) << bench.Out;
    EXPECT_EQ(Json::parse(bench.Out)[0]["counts"], false);
}

TEST(Verify, CountsWhatAPutWrites) {
    MeterCli bench;
    bench.Store.Contents["new.CT2"] = ChangedSetup().replace(232, 2, "52").replace(136, 4, "0064");
    EXPECT_EQ(bench.Run({"verify", "new.CT2", "--json"}), 4);
    EXPECT_EQ(Json::parse(bench.Out), Json::parse(R"([
        {"field":"Setpoint 1","position":55,"a":"+012345.","b":"+010000.","counts":true},
        {"field":"Calibration, Parts per Million","position":137,"a":"+00100.","b":"-00100.","counts":false},
        {"field":"FirmwareVersion","position":233,"a":82,"b":83,"counts":false}])"));
    bench.Store.Contents["new.CT2"].replace(54, 6, "002710");
    EXPECT_EQ(bench.Run({"verify", "new.CT2"}), 0) << "what no Put changes is told, but does not count";
    EXPECT_NE(bench.Out.find("Not counted"), std::string::npos);
    bench.Fail("*:noreply");
    EXPECT_EQ(bench.Run({"verify", "new.CT2", "--json"}), 3);
    EXPECT_EQ(Json::parse(bench.Out)["LinkError"], 21);
}

TEST(Get, TraceAndProgressGoToStandardError) {
    MeterCli bench;
    EXPECT_EQ(bench.Run({"get", "m.CT2", "--trace"}), 0);
    EXPECT_NE(bench.Err.find(" > 2A 31 47 31 33 30 0D 0A  *1G130..\n"), std::string::npos) << bench.Err;
    EXPECT_NE(bench.Err.find(" < 34 39 0D  49.\n"), std::string::npos) << bench.Err;
    bench.Terminal = true;
    EXPECT_EQ(bench.Run({"get", "m.CT2"}), 0);
    EXPECT_NE(bench.Err.find("] 60 %"), std::string::npos);
}

}  // namespace
}  // namespace counter::test
