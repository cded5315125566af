#include "cli/cli.h"

#include <CLI/CLI.hpp>
#include <array>

#include "cli/version.h"

namespace counter {

namespace {

struct OptionRow {
    const char* Name;
    bool TakesValue;
};

struct CommandRow {
    const char* Name;
    const char* Arguments;  // as the help shows them
    const char* Help;
    int LeastWords;
    int MostWords;
    std::vector<OptionRow> Options;
    int (*Run)(const CommandCall&);
};

constexpr int kManyWords = 100;

// clang-format off
const std::vector<CommandRow>& Commands() {
    static const std::vector<CommandRow> rows = {
        {"settings",  "[init|set] [KEY=VALUE...] [--force]", "prints Settings.SSS, lays it down, changes it",
         0, kManyWords, {{"--force", false}}, SettingsCommand},
        {"ports",     "[map N DEVICE]", "lists the serial ports; makes port number N mean DEVICE",
         0, 3, {}, PortsCommand},
        {"default",   "FILE", "writes the default setup",
         1, 1, {}, DefaultCommand},
        {"get",       "FILE", "reads the meter's setup into FILE",
         1, 1, {}, GetCommand},
        {"put",       "FILE [--backup OLD] [--verify]", "writes FILE into the meter",
         1, 1, {{"--backup", true}, {"--verify", false}}, PutCommand},
        {"verify",    "FILE", "reads the meter and compares with FILE",
         1, 1, {}, VerifyCommand},
        {"show",      "FILE [--as fields|menu|setup]", "shows a setup as fields, front-panel menu or Setup view",
         1, 1, {{"--as", true}}, ShowCommand},
        {"diff",      "A B", "the fields in which two setup files differ",
         2, 2, {}, DiffCommand},
        {"edit",      "FILE [--script SCRIPT] [--out FILE2] [--from-meter]", "edits FILE by the actions of SCRIPT",
         1, 1, {{"--script", true}, {"--out", true}, {"--from-meter", false}}, EditCommand},
        {"read",      "item1|item2|item3|peak|valley|all|all+", "one reading, or one line of them",
         1, 1, {}, ReadCommand},
        {"reset",     "meter|function|alarms|peak|valley|display", "one reset command",
         1, 1, {}, ResetCommand},
        {"remote",    "display|item3|both|c TEXT", "a value for the meter's display",
         2, 2, {}, RemoteCommand},
        {"stream",    "[--count N] [--seconds S] [--csv FILE]", "the reading stream, a reading a line",
         0, 0, {{"--count", true}, {"--seconds", true}, {"--csv", true}}, StreamCommand},
        {"curve",     "FILE.PRM [--board 1|2]", "sends a custom curve and verifies it",
         1, 1, {{"--board", true}}, CurveCommand},
        {"calibrate", "HERTZ", "runs the calibration procedure",
         1, 1, {}, CalibrateCommand},
    };
    return rows;
}
// clang-format on

// What one command line was parsed into.
struct Parsed {
    std::string Folder;
    bool Json = false;
    bool Trace = false;
    std::vector<std::string> Words;
    std::map<std::string, std::string> Values;
    std::map<std::string, bool> Flags;
};

std::string Usage(const CommandRow& row) {
    return std::string("counterctl ") + row.Name + " " + row.Arguments;
}

std::string AllUsage() {
    std::string text = "counterctl [--dir FOLDER] [--json] [--trace] COMMAND [ARGUMENT...], COMMAND one of";
    for (const CommandRow& row : Commands()) text += std::string(" ") + row.Name;
    return text;
}

void AddCommand(CLI::App& app, const CommandRow& row, Parsed& parsed) {
    CLI::App* command = app.add_subcommand(row.Name, row.Help);
    command->fallthrough();  // the common options stand before or behind the command
    command->footer("As a line: " + Usage(row));
    if (row.MostWords > 0) {
        command->add_option("arguments", parsed.Words, row.Arguments)
            ->expected(row.LeastWords, row.MostWords)
            ->required(row.LeastWords > 0);
    }
    for (const OptionRow& option : row.Options) {
        if (option.TakesValue) {
            command->add_option(option.Name, parsed.Values[option.Name]);
        } else {
            command->add_flag(option.Name, parsed.Flags[option.Name]);
        }
    }
}

void AddAll(CLI::App& app, Parsed& parsed) {
    app.add_option("--dir", parsed.Folder, "the program folder, where Settings.SSS lies");
    app.add_flag("--json", parsed.Json, "one JSON document on standard output");
    app.add_flag("--trace", parsed.Trace, "every frame on standard error");
    app.set_version_flag("--version", std::string("counterctl ") + kVersion);
    app.require_subcommand(1);
    for (const CommandRow& row : Commands()) AddCommand(app, row, parsed);
}

const CommandRow* CalledCommand(const CLI::App& app) {
    for (const CommandRow& row : Commands()) {
        if (app.got_subcommand(row.Name)) return &row;
    }
    return nullptr;
}

int RefuseUsage(const CliWorld& world, const CLI::App& app, const std::string& reason) {
    const CommandRow* row = CalledCommand(app);
    std::string line = "counterctl: " + reason + "; usage: " + (row == nullptr ? AllUsage() : Usage(*row));
    for (char& c : line) c = c == '\n' ? ' ' : c;
    world.Err << line << "\n";
    return kUsage;
}

// An option without a value would mean something else than what was asked for: a backup into nowhere.
std::string EmptyOption(const CLI::App& app, const CommandRow& row, const Parsed& parsed) {
    if (app.get_option("--dir")->count() > 0 && parsed.Folder.empty()) return "--dir";
    for (const OptionRow& option : row.Options) {
        const bool given = app.get_subcommand(row.Name)->get_option(option.Name)->count() > 0;
        if (given && option.TakesValue && parsed.Values.at(option.Name).empty()) return option.Name;
    }
    return {};
}

int RunCommand(const CliWorld& world, const CLI::App& app, const CommandRow& row, const Parsed& parsed) {
    if (const std::string empty = EmptyOption(app, row, parsed); !empty.empty()) {
        return RefuseUsage(world, app, empty + " needs a value");
    }
    CommandCall call{world, parsed.Folder, parsed.Json, parsed.Trace, parsed.Words, {}};
    if (call.Folder.empty()) call.Folder = world.DefaultFolder();
    for (const OptionRow& option : row.Options) {
        if (app.get_subcommand(row.Name)->get_option(option.Name)->count() == 0) continue;
        call.Options[option.Name] = option.TakesValue ? parsed.Values.at(option.Name) : "1";
    }
    return row.Run(call);
}

}  // namespace

int NotThereYet(const CommandCall& call) {
    call.World.Err << "counterctl: this command is not there yet\n";
    return kUsage;
}

int RunCli(const CliWorld& world, int argc, const char* const* argv) {
    CLI::App app("Works a panel counter/timer and its setup files from a shell or a script.", "counterctl");
    Parsed parsed;
    AddAll(app, parsed);
    try {
        app.parse(argc, argv);
    } catch (const CLI::Success&) {
        world.Out << (app.get_option("--version")->count() > 0 ? app.version() + "\n" : app.help());
        return kDone;
    } catch (const CLI::ParseError& error) {
        return RefuseUsage(world, app, error.what());
    }
    return RunCommand(world, app, *CalledCommand(app), parsed);
}

}  // namespace counter
