// Setup files from the outside: standard streams in the place of files, single fields, output that fails.
#include "edit_bench.h"

namespace counter::test {
namespace {

TEST(StandardStreams, StandForSetupFiles) {
    EditBench bench;
    const std::string setup = bench.Store.Contents["d"];
    bench.Store.Contents["s"] = "select cboBaudRate 19200";
    const struct {
        Words Line;
        const char* Input;
        int Status;
        const char* Out;  // begins with
    } cases[] = {
        {{"default", "-"}, "", 0, "0027100000000000"},
        {{"show", "-"}, setup.c_str(), 0, "Position  Bits  Digits"},
        {{"fields", "-", "baud rate"}, setup.c_str(), 0, "9600\n"},
        {{"diff", "d", "-"}, setup.c_str(), 0, "No field differs.\n"},
        {{"diff", "-", "d"}, "00", 4, "Position  Field"},
        {{"edit", "d", "--out", "-"}, "", 0, "0027100000000000"},
        {{"edit", "-", "--script", "s"}, setup.c_str(), 0, "0027100000000000"},
        {{"edit", "-", "--script", "s", "--out", "e", "--json"}, setup.c_str(), 0, "{"},
        {{"set", "-", "Baud Rate=19200"}, setup.c_str(), 0, "0027100000000000"},
        {{"sheet", "-", "--html", "-"}, setup.c_str(), 0, "<!DOCTYPE html>"},
        {{"sheet", "d", "-", "--pdf", "-"}, setup.c_str(), 0, "PDF of <!DOCTYPE html>"},
        {{"sheet", "d"}, "", 1, ""},
        {{"sheet", "d", "--html", "a", "--pdf", "b"}, "", 1, ""},
        {{"show", "-"}, "", 2, ""},
        {{"diff", "-", "-"}, "", 1, ""},
        {{"edit", "-"}, "", 1, ""},
        {{"edit", "-", "--script", "-"}, "", 1, ""},
        {{"default", "-", "--json"}, "", 1, ""},
        {{"edit", "d", "--out", "-", "--json"}, "", 1, ""},
        {{"set", "-", "Baud Rate=300", "--json"}, "", 1, ""},
    };
    for (const auto& c : cases) {
        const std::string line = testing::PrintToString(c.Line);
        EXPECT_EQ(bench.Run(c.Line, c.Input), c.Status) << line << bench.Err;
        EXPECT_EQ(bench.Out.find(c.Out), 0U) << line << bench.Out;
        EXPECT_EQ(bench.Store.Contents.count("-"), 0U) << line;
        EXPECT_EQ(bench.Store.Contents["d"], setup) << line;
    }
    EXPECT_EQ(bench.Digits(191, 2), "60");
}

TEST(Fields, SomeOfThemAsLinesAndAsJson) {
    EditBench bench;
    EXPECT_EQ(bench.Run({"fields", "d"}), 0);
    const std::string all = bench.Out;
    EXPECT_EQ(bench.Run({"show", "d"}), 0);
    EXPECT_EQ(bench.Out, all);
    EXPECT_EQ(bench.Run({"fields", "d", "setpoint 1", "Front Pnl Func Resets", "Baud Rate"}), 0);
    EXPECT_EQ(bench.Out, "+010000.\n0\n9600\n");
    EXPECT_EQ(bench.Run({"fields", "d", "Setpoint 1", "Serial Protocol", "--json"}), 0);
    EXPECT_EQ(bench.View(),
              Json::parse(R"([{"position":55,"digits":"002710","field":"Setpoint 1","value":"+010000."},
        {"position":109,"digits":"00","bits":"3..2","field":"Serial Protocol","value":"Custom ASCII"}])"));
}

TEST(Output, ThatCannotBeWrittenIs2) {
    for (const Words& line : {Words{"show", "d"}, {"show", "d", "--json"}, {"default", "-"}, {"--help"}}) {
        EditBench bench;
        bench.OutRoom = 40;
        EXPECT_EQ(bench.Run(line), 2) << line[0];
        EXPECT_EQ(bench.Err, "counterctl: standard output: can't be written\n");
    }
}

}  // namespace
}  // namespace counter::test
