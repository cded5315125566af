#include "cli/command_table.h"

#include <algorithm>

#include "cli/edit_script.h"

namespace counter {

namespace {

// More than a setup has fields.
constexpr int kManyWords = 1000;

constexpr auto kRead = FileUse::Read;
constexpr auto kWritten = FileUse::Written;
constexpr auto kEdited = FileUse::Edited;

constexpr const char* kOut = "writes to FILE2 and leaves FILE as it is";

// clang-format off
const std::vector<CommandRow>& Table() {
    static const std::vector<CommandRow> rows = {
        {"settings", "[init|set] [KEY=VALUE...] [--force]", "prints Settings.SSS, writes a new one, changes it",
         0, kManyWords, {}, {{"--force", "", "init replaces a file that is there already"}}, SettingsCommand,
         "init writes a new file, set changes the one there is. An illegal value changes nothing.\n"
         "The keys are those that it prints.\n",
         "counterctl settings init BaudIndex=5 MeterAddressValue=1\n"},
        {"ports", "[map N DEVICE]", "lists the serial ports; gives port number N to DEVICE",
         0, 3, {}, {}, PortsCommand,
         "N is 1 to 99. If the device has a name under /dev/serial/by-id, that name is used.\n"
         "tcp://HOST:PORT is a serial line that a server on the network hands on as raw bytes,\n"
         "such as ser2net. The server sets its speed and form, and has to be set anew when a\n"
         "Put gives the meter others.\n",
         "counterctl ports map 1 /dev/ttyUSB0\n"
         "counterctl ports map 2 tcp://hall2.plant:4001\n"},
        {"scan", "LINE... [--protocol P] [--baud B] [--address A] [--all]", "asks a line which addresses answer",
         1, kManyWords, {},
         {{"--protocol", "P", "ascii, rtu, modbus-ascii, with commas between; ascii,rtu without it"},
          {"--baud", "B", "speeds, with commas between; 9600,19200 without it"},
          {"--address", "A", "numbers and ranges, such as 1-31,40; 1-31 without it"},
          {"--all", "", "every protocol, speed and address that isn't chosen"},
          {"--wait", "MS", "time for the first character of a reply; 250 without it"}}, ScanCommand,
         "LINE is a port number, a device, its name by id, or tcp://HOST:PORT. Prints rows\n"
         "that begin a table of meters. Sends only what reads: G130 in Custom ASCII, behind a\n"
         "wake-up string, and Modbus function 04. Over tcp:// the server has set the speed:\n"
         "each protocol is asked once, and one --baud alone is believed. Parity is none.\n",
         "counterctl scan /dev/ttyUSB0 --address 1-8 >meters.csv\n"},
        {"default", "FILE", "writes the default setup",
         1, 1, {kWritten}, {}, DefaultCommand,
         "",
         "counterctl default new.CT2\n"},
        {"get", "FILE", "reads the meter's setup into FILE",
         1, 1, {kWritten}, {}, GetCommand,
         "A copy goes to backups/ in the program folder.\n",
         "counterctl get press4.CT2\n"
         "counterctl get - | counterctl fields -\n"},
        {"put", "FILE [--backup OLD] [--verify] [--force]", "writes FILE into the meter",
         1, 1, {kRead},
         {{"--backup", "OLD", "reads the meter into OLD first; writes nothing to the meter when that fails", kWritten},
          {"--verify", "", "reads the meter back and compares"},
          {"--force", "", "puts a FILE that is not 260 hexadecimal digits: filled with 0 or cut"}}, PutCommand,
         "A FILE that is no whole setup is refused, and so is a backup onto FILE itself.\n",
         "counterctl put press4.CT2 --backup before.CT2 --verify\n"},
        {"verify", "FILE", "reads the meter and compares with FILE",
         1, 1, {kRead}, {}, VerifyCommand,
         "Ends with 4 and a line for each field that differs. What belongs to the meter's\n"
         "hardware, and what no write over this link could change, does not count.\n",
         "counterctl verify press4.CT2\n"},
        {"show", "FILE [--as fields|menu|setup]", "shows a setup as fields, front-panel menu or Setup view",
         1, 1, {kRead}, {{"--as", "FORM", "fields (the default), menu or setup"}}, ShowCommand,
         "",
         "counterctl show press4.CT2 --as menu\n"},
        {"fields", "FILE [FIELD...]", "the fields of a setup, or the values of some",
         1, kManyWords, {kRead}, {}, FieldsCommand,
         "With FIELDs, prints only their values, a line each. Names are those of\n"
         "counterctl fields FILE; capitals do not matter.\n",
         "counterctl fields press4.CT2 \"Setpoint 1\" \"Baud Rate\"\n"},
        {"diff", "A B", "the fields in which two setup files differ",
         2, 2, {kRead, kRead}, {}, DiffCommand,
         "Ends with 4 if there is one.\n",
         "counterctl diff press4.CT2 press5.CT2\n"},
        {"set", "FILE FIELD=VALUE... [--out FILE2]", "changes fields of a setup by name, by the Setup view's rules",
         2, kManyWords, {kEdited}, {{"--out", "FILE2", kOut, kWritten}}, SetCommand,
         "FIELD is a name of counterctl fields, or a control of the Setup view. VALUE is the\n"
         "text of a list's entry, a number (12.5, -3, for a clock 1.30.00), or 0 or 1 for a box.\n"
         "Done from left to right, all or nothing; what a user could not reach then is\n"
         "refused. Other fields that changed with it are told on standard error.\n",
         "counterctl set press4.CT2 \"Setpoint 1\"=10000 \"Baud Rate\"=19200\n"},
        {"edit", "FILE [--script SCRIPT] [--out FILE2] [--from-meter]", "edits FILE by the actions of SCRIPT, or by hand",
         1, 1, {kEdited},
         {{"--script", "SCRIPT", "the actions; without it standard input", FileUse::Script},
          {"--out", "FILE2", kOut, kWritten},
          {"--from-meter", "", "FILE counts as the result of a good Get Setup"}}, EditCommand,
         std::string("Actions, one in each line; # begins a comment:\n") + kActionsHelp +
         "At a terminal there is a prompt, and help, list, show CONTROL, undo and quit as well.\n",
         "echo 'select cboBaudRate 19200' | counterctl edit press4.CT2 --out fast.CT2\n"},
        {"sheet", "FILE [FILE2] --html OUT|--pdf OUT", "a setup as a sheet for the files of a plant",
         1, 2, {kRead, kRead},
         {{"--html", "OUT", "writes the sheet as one HTML document that prints as it reads", kWritten},
          {"--pdf", "OUT", "writes the same sheet as PDF", kWritten}}, SheetCommand,
         "Meter, line and file, all fields by page with the captions of the Setup view, and the\n"
         "front-panel menu. With FILE2 also the fields that differ from it.\n",
         "counterctl sheet press4.CT2 golden.CT2 --html press4.html\n"},
        {"read", "item1|item2|item3|peak|valley|all|all+", "one reading, or one line of them",
         1, 1, {}, {}, ReadCommand,
         "all and all+ exist in Custom ASCII only.\n",
         "counterctl read item1\n"},
        {"reset", "meter|function|alarms|peak|valley|display", "one reset command",
         1, 1, {}, {}, ResetCommand,
         "",
         "counterctl reset peak\n"},
        {"remote", "display|item3|both|c TEXT", "a value for the meter's display",
         2, 2, {}, {}, RemoteCommand,
         "c exists in Custom ASCII only.\n",
         "counterctl remote display 12.34\n"},
        {"stream", "[--count N] [--seconds S] [--csv FILE]", "the reading stream, one reading in each line",
         0, 0, {},
         {{"--count", "N", "ends after N readings"},
          {"--seconds", "S", "ends S seconds after the first moment at which a reading can come"},
          {"--csv", "FILE", "writes time and items to FILE while it runs; - instead of the plain lines", kWritten}}, StreamCommand,
         "An interrupt or a hang-up ends it. With --json each reading is an object on a line. Exists in Custom ASCII over a serial line only.\n",
         "counterctl stream --seconds 60 --csv run.csv\n"},
        {"record", "[--db FILE] [--mqtt URL] [--name NAME] [--count N] [--seconds S]", "the reading stream into a store, and to a broker",
         0, 0, {},
         {{"--db", "FILE", "the store, an SQLite file; readings.db in the program folder without it"},
          {"--mqtt", "URL", "sends each reading to a broker: mqtt://[USER:PASSWORD@]HOST[:PORT]/PREFIX, or mqtts://"},
          {"--name", "NAME", "what the meter is called in store and topics; its address without it"},
          {"--note", "TEXT", "is kept with the run"},
          {"--count", "N", "ends behind N readings"},
          {"--seconds", "S", "ends S seconds after the first moment at which a reading can come"},
          {"--cafile", "FILE", "of mqtts://: the authorities that the broker is judged by; the system's without it"},
          {"--cert", "FILE", "of mqtts://: a certificate to show, with --key"},
          {"--key", "FILE", "its key"}}, RecordCommand,
         "Reads the setup first, which is kept with the run. An interrupt or a hang-up ends\n"
         "it. What a broker has not taken stays in the store, and goes there in order when it\n"
         "is back. Exists in Custom ASCII over a serial line only.\n",
         "counterctl record --db press4.db --mqtt mqtt://broker.plant/hall2 --name press4\n"},
        {"readings", "[RUN] [--db FILE] [--csv FILE|--ndjson FILE]", "lists the runs of a store, or exports one",
         0, 1, {},
         {{"--db", "FILE", "the store; readings.db in the program folder without it"},
          {"--csv", "FILE", "writes the run as stream --csv does; the default, on standard output", kWritten},
          {"--ndjson", "FILE", "writes the run as stream --json does, an object a line", kWritten}}, ReadingsCommand,
         "",
         "counterctl readings --db press4.db 3 --csv run3.csv\n"},
        {"curve", "FILE.PRM [--board 1|2]", "sends a custom curve and verifies it",
         1, 1, {kRead}, {{"--board", "BOARD", "1, the main board (the default), or 2, the V-F board"}}, CurveCommand,
         "",
         "counterctl curve tank.PRM\n"},
        {"calibrate", "HERTZ [--force]", "runs the calibration procedure",
         1, 1, {}, {{"--force", "", "goes on with a reading that is no measurement, or a scale that did not come whole"}},
         CalibrateCommand,
         "HERTZ is the frequency at the input. Exists in Custom ASCII only. What the meter has\n"
         "kept is read back. An interrupt puts its scale and calibration factor back first,\n"
         "or finishes what was measured, and says which.\n",
         "counterctl calibrate 1000\n"},
        {"fleet", "check|put|get|read TABLE [FOLDER|ITEM]", "many meters, as a table says what each should hold",
         1, 3, {FileUse::None, kRead},
         {{"--junit", "FILE", "writes a report for test benches, JUnit XML", kWritten},
          {"--html", "FILE", "writes a report for people: a page that stands alone, for screen and paper", kWritten},
          {"--jobs", "N", "works N lines at once; all of them without it"}}, FleetCommand,
         "TABLE is CSV, a row a meter: name, line, protocol, baud, address, setup; further\n"
         "columns are named as fields, and their values replace those of the setup file.\n"
         "check reads all and compares. put writes those that differ, each with a backup\n"
         "before and a comparison after. get reads all into FOLDER. read takes one reading\n"
         "of each, item1 or ITEM. Lines run side by side, and a meter that fails stops no\n"
         "other; the exit status is the worst, 2 before 3 before 4. Settings and backups of\n"
         "each meter are in fleet/NAME beside TABLE, or in the folder of --dir.\n",
         "counterctl fleet check meters.csv\n"
         "counterctl fleet put meters.csv --html report.html\n"},
        {"help", "[COMMAND]", "tells about a command, with an example",
         0, 1, {}, {}, HelpCommand,
         "",
         "counterctl help set\n"},
    };
    return rows;
}

constexpr OptionRow kCommon[] = {
    {"--dir",   "FOLDER", "the program folder, where Settings.SSS lies"},
    {"--json",  "",       "one JSON document on standard output"},
    {"--trace", "",       "every frame on standard error"},
};
// clang-format on

}  // namespace

std::span<const CommandRow> Commands() {
    return Table();
}

std::span<const OptionRow> CommonOptions() {
    return kCommon;
}

const CommandRow* FindCommand(std::string_view name) {
    const auto found =
        std::find_if(Table().begin(), Table().end(), [&](const CommandRow& row) { return row.Name == name; });
    return found == Table().end() ? nullptr : &*found;
}

std::vector<std::string> CommandNames() {
    std::vector<std::string> names;
    for (const CommandRow& row : Commands()) names.emplace_back(row.Name);
    return names;
}

std::string UsageOf(const CommandRow& row) {
    return std::string("counterctl ") + row.Name + " " + row.Arguments;
}

std::string UsageOfAll() {
    std::string text = "counterctl [--dir FOLDER] [--json] [--trace] COMMAND [ARGUMENT...], COMMAND one of";
    for (const std::string& name : CommandNames()) text += " " + name;
    return text;
}

}  // namespace counter
