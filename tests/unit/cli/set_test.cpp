// set: fields by name through the rules of the Setup view.
#include "edit_bench.h"

namespace counter::test {
namespace {

TEST(Set, WritesWhatAUserWouldHaveTyped) {
    const struct {
        const char* Name;
        Words Assignments;
        int Pos;
        const char* Digits;
    } cases[] = {
        // clang-format off
        {"number",                    {"Setpoint 1=12345"},                                      55, "003039"},
        {"negative, by control",      {"txtSetpt[2]=-7"},                                        49, "FFFFF9"},
        {"zeros do not matter",       {"Setpoint 1=+007.00"},                                    55, "000007"},
        {"decimals filled up",        {"Gate Time=1.5"},                                        177, "0096"},
        {"fixed point of six",        {"Scale 1=-.25"},                                          43, "8061A8"},
        {"free point",                {"Group 1 entry form=coordinates", "Low In 1=-12.5"},     103, "A0007D"},
        {"free point, none",          {"Group 1 entry form=Coordinates", "High In 1=999999"},    91, "1F423F"},
        {"a sign and 16 bits",        {"Calibration, Parts per Million=-50"},                   137, "8032"},
        {"entry, blanks ignored",     {"Decimal Point 1=1111.11"},                              151, "13"},
        {"point first",               {"Decimal Point 1=1111.11", "Setpoint 1=1234.5"},          55, "01E23A"},
        {"capitals ignored",          {"baud rate=19200"},                                      191, "60"},
        {"box by field",              {"Include LF=1"},                                         189, "A1"},
        {"box by control",            {"chkLock[12]=1"},                                        181, "80"},
        {"option by control",         {"optCoord1[0]=1"},                                       197, "20"},
        {"byte",                      {"Serial Protocol=Modbus RTU", "Modbus Address=247"},     111, "F7"},
        {"shown on its page alone",   {"Special Start Char=65"},                                239, "41"},
        {"clock value",               {"Display Type=Clock hhmmss", "Offset 1=1:30:00"},         37, "0032C8"},
        {"seconds as a clock",        {"Mode=Stopwatch", "Display Type=Clock hhmmss", "Offset 1=1.30.00"}, 37, "001518"},
        // clang-format on
    };
    for (const auto& c : cases) {
        EditBench bench;
        Words line = {"set", "d", "--out", "e"};
        line.insert(line.end(), c.Assignments.begin(), c.Assignments.end());
        EXPECT_EQ(bench.Run(line), 0) << c.Name << bench.Err;
        EXPECT_EQ(bench.Digits(c.Pos, static_cast<int>(std::string(c.Digits).size())), c.Digits) << c.Name;
        EXPECT_EQ(bench.Out, "") << c.Name;
    }
}

TEST(Set, RefusalsSayWhatIsLegalAndWriteNothing) {
    const struct {
        Words Assignments;
        const char* Line;
    } cases[] = {
        // clang-format off
        {{"Setpoint 1"},                   "'Setpoint 1' is not FIELD=VALUE"},
        {{"Setpont 1=5"},                  "'Setpont 1=5': no field or control 'Setpont 1'; did you mean 'Setpoint 1'?"},
        {{"Setpoint 1=12a"},               "'Setpoint 1=12a': takes -999999 to 999999, with no decimals"},
        {{"Setpoint 1="},                  "'Setpoint 1=': takes -999999 to 999999, with no decimals"},
        {{"Setpoint 1=1.5"},               "'Setpoint 1=1.5': takes -999999 to 999999, with no decimals"},
        {{"Setpoint 1=1000000"},           "'Setpoint 1=1000000': takes -999999 to 999999, with no decimals"},
        {{"Gate Time=200"},                "'Gate Time=200': takes 0 to 199.99, with at most 2 decimals"},
        {{"Gate Time=-1"},                 "'Gate Time=-1': takes 0 to 199.99, with at most 2 decimals"},
        {{"txtCal=30000"},                 "'txtCal=30000': takes -29999 to 29999, with no decimals"},
        {{"Group 1 entry form=Coordinates", "Low In 1=1234567"}, "'Low In 1=1234567': takes a number of at most 6 digits, with a point anywhere"},
        {{"Display Type=Clock hhmmss", "Offset 1=90"}, "'Offset 1=90': takes hours, minutes and seconds up to 99.59.59, as 1.30.00"},
        {{"Display Type=Clock hhmmss", "Offset 1=1.60.00"}, "'Offset 1=1.60.00': takes hours, minutes and seconds up to 99.59.59, as 1.30.00"},
        {{"Serial Protocol=Modbus RTU", "Modbus Address=256"}, "'Modbus Address=256': takes a whole number 0 to 255"},
        {{"Serial Protocol=Modbus RTU", "Modbus Address=0"},   "'Modbus Address=0': becomes 1 by the rules of the Setup view"},
        {{"Modbus Address=5"},             "'Modbus Address=5': txtMBAddr is hidden"},
        {{"Low In 1=5"},                   "'Low In 1=5': txtLoIn1[0] is disabled. The scale or a curve is in force."},
        {{"Relay Option=None", "Setpoint 1=5"}, "'Setpoint 1=5': txtSetpt[1] is on a tab that is not offered. There is no relay board."},
        {{"Preset=5"},                     "'Preset=5': txtTimeOut shows another field now"},
        {{"Duplex=Half"},                  "'Duplex=Half': cboDuplex has no entry 'Half'; entries are #0 'Full Duplex' #1 'Half Duplex'"},
        {{"Include LF=2"},                 "'Include LF=2': chkLF is 0 or 1"},
        {{"Group 1 entry form=both"},      "'Group 1 entry form=both': is 'Scale and Offset' or 'Coordinates'"},
        {{"optScale1[0]=0"},               "'optScale1[0]=0': optScale1[0] is 1, or another option of its group is set instead"},
        {{"FirmwareVersion=84"},           "'FirmwareVersion=84': is the meter's own, or decided by several controls; see counterctl help edit"},
        {{"cmdMainMenu=1"},                "'cmdMainMenu=1': has no value that can be set; see counterctl help edit"},
        {{"Setpoint 1=100", "Decimal Point 1=1111.11"}, "'Setpoint 1=100' becomes '+0001.00' by 'Decimal Point 1=1111.11' behind it; put that in front"},
        // clang-format on
    };
    for (const auto& c : cases) {
        EditBench bench;
        const auto before = bench.Store.Contents;
        Words line = {"set", "d", "Baud Rate=300"};
        line.insert(line.end(), c.Assignments.begin(), c.Assignments.end());
        EXPECT_EQ(bench.Run(line), 1) << c.Line;
        EXPECT_EQ(bench.Err, "counterctl: " + std::string(c.Line) + "\n");
        EXPECT_EQ(bench.Store.Contents, before) << c.Line;
    }
}

TEST(Set, TellsWhatElseChanged) {
    EditBench bench;
    EXPECT_EQ(bench.Run({"set", "d", "Mode=Total"}), 0);
    EXPECT_EQ(bench.Err,
              "Changed with it:\n"
              "  Analog Source 2  Filtered Item1   ->  Item 1\n"
              "  Analog Source    Item 1 (code 3)  ->  Item 1 (code 1)\n"
              "  Alarm 1 Source   Filtered Item1   ->  Item 1\n"
              "  Alarm 2 Source   Filtered Item1   ->  Item 1\n");
    EXPECT_EQ(bench.Run({"set", "d", "Setpoint 1=5", "--json"}), 0);
    EXPECT_EQ(bench.View(), Json::parse(R"({"changed":[{"field":"Setpoint 1","position":55,"a":"+010000.",
        "b":"+000005.","counts":true}],"consequences":[],"messages":[]})"));
    EXPECT_EQ(bench.Err, "");
}

}  // namespace
}  // namespace counter::test
