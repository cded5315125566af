#include "cli/cli.h"

#include <CLI/CLI.hpp>
#include <algorithm>

#include "cli/cli_files.h"
#include "cli/cli_output.h"
#include "cli/command_help.h"
#include "cli/command_table.h"
#include "cli/suggest.h"
#include "cli/version.h"

namespace counter {

namespace {

// What one command line was parsed into.
struct Parsed {
    std::string Folder;
    bool Json = false;
    bool Trace = false;
    std::vector<std::string> Words;
    std::map<std::string, std::string> Values;  // of all options that take one; empty where it was not given
};

bool TakesValue(const OptionRow& option) {
    return option.Value[0] != '\0';
}

void AddCommand(CLI::App& app, const CommandRow& row, Parsed& parsed) {
    CLI::App* command = app.add_subcommand(row.Name, row.Help);
    command->fallthrough();  // the common options come before or after the command
    if (row.MostWords > 0) {
        command->add_option("arguments", parsed.Words, row.Arguments)
            ->expected(row.LeastWords, row.MostWords)
            ->required(row.LeastWords > 0);
    }
    for (const OptionRow& option : row.Options) {
        if (TakesValue(option)) {
            command->add_option(option.Name, parsed.Values[option.Name]);
        } else {
            command->add_flag(option.Name)->disable_flag_override();  // "--verify=no" would count as given
        }
    }
}

void AddAll(CLI::App& app, Parsed& parsed) {
    app.add_option("--dir", parsed.Folder);
    app.add_flag("--json", parsed.Json)->disable_flag_override();
    app.add_flag("--trace", parsed.Trace)->disable_flag_override();
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

int RefuseUsage(const CliWorld& world, const CommandRow* row, const std::string& reason,
                const std::string& suggestion = {}) {
    const std::string usage = row == nullptr ? UsageOfAll() : UsageOf(*row);
    Complain(world) << OneLine(reason + "; usage: " + usage + suggestion) << "\n";
    return kUsage;
}

bool IsOption(const std::string& word) {
    return word.size() > 1 && word[0] == '-';
}

// The first word that is neither an option nor the folder of --dir; empty where there is none.
std::string CommandWord(std::span<const std::string> words) {
    for (std::size_t i = 0; i < words.size(); ++i) {
        if (words[i] == "--dir") {
            ++i;
        } else if (!IsOption(words[i])) {
            return words[i];
        }
    }
    return {};
}

std::vector<std::string> OptionNames(const CommandRow* row) {
    std::vector<std::string> names = {"--help", "--version"};
    for (const OptionRow& option : CommonOptions()) names.emplace_back(option.Name);
    for (std::size_t i = 0; row != nullptr && i < row->Options.size(); ++i)
        names.emplace_back(row->Options[i].Name);
    return names;
}

// A line that could not be parsed: a mistyped command or option is told by its name.
int RefuseLine(const CliWorld& world, const CommandRow* row, std::span<const std::string> words,
               const std::string& reason) {
    const std::string command = CommandWord(words);
    if (row == nullptr && !command.empty())
        return RefuseUsage(world, row, "no command '" + command + "'", DidYouMean(command, CommandNames()));
    const std::vector<std::string> names = OptionNames(row);
    for (const std::string& word : words) {
        const std::string name = word.substr(0, word.find('='));
        if (!word.starts_with("--") || std::find(names.begin(), names.end(), name) != names.end()) continue;
        return RefuseUsage(world, row, "no option '" + name + "'", DidYouMean(name, names));
    }
    return RefuseUsage(world, row, reason);
}

// Those of the command itself; a flag has "1".
std::map<std::string, std::string> GivenOptions(const CLI::App& app, const CommandRow& row,
                                                const Parsed& parsed) {
    std::map<std::string, std::string> given;
    for (const OptionRow& option : row.Options) {
        if (app.get_subcommand(row.Name)->get_option(option.Name)->count() == 0) continue;
        given[option.Name] = TakesValue(option) ? parsed.Values.at(option.Name) : "1";
    }
    return given;
}

// An option without a value would mean something else than what was asked for: a backup into nowhere.
std::string EmptyOption(const CLI::App& app, const CommandCall& call) {
    if (app.get_option("--dir")->count() > 0 && call.Folder.empty()) return "--dir";
    for (const auto& [name, value] : call.Options) {
        if (value.empty()) return name;
    }
    return {};
}

struct StreamUse {
    int Readers = 0;
    int Writers = 0;

    void Count(FileUse use, bool elsewhere) {
        Readers += use == FileUse::Read || use == FileUse::Edited || use == FileUse::Script ? 1 : 0;
        Writers += use == FileUse::Written || (use == FileUse::Edited && !elsewhere) ? 1 : 0;
    }
};

// How often the call names standard input and standard output in the place of a file.
StreamUse StreamsOf(const CommandRow& row, const CommandCall& call) {
    StreamUse streams;
    const bool elsewhere = call.Has("--out");
    for (std::size_t i = 0; i < std::min(row.Files.size(), call.Words.size()); ++i) {
        if (call.Words[i] == kStandardStream) streams.Count(row.Files[i], elsewhere);
    }
    for (const OptionRow& option : row.Options) {
        const bool named = call.Has(option.Name) && call.Options.at(option.Name) == kStandardStream;
        const bool byDefault = option.Use == FileUse::Script && !call.Has(option.Name);
        if (named || byDefault) streams.Count(option.Use, elsewhere);
    }
    return streams;
}

int RunOn(const CommandRow& row, CommandCall& call) {
    const StreamUse streams = StreamsOf(row, call);
    if (streams.Readers > 1) return RefuseUsage(call.World, &row, "standard input can be read only once");
    if (streams.Writers > 1) return RefuseUsage(call.World, &row, "standard output can hold only one file");
    if (streams.Writers > 0 && call.Json)
        return RefuseUsage(call.World, &row, "with --json standard output is one JSON document and no file");
    call.OutIsFile = streams.Writers > 0;
    return OutputStatus(call.World, row.Run(call));
}

int RunCommand(const CliWorld& world, const CLI::App& app, const CommandRow& row, const Parsed& parsed) {
    StreamFiles files(world);
    const CliWorld streamed = world.With(files);
    CommandCall call{streamed,
                     parsed.Folder,
                     parsed.Json,
                     parsed.Trace,
                     false,
                     parsed.Words,
                     GivenOptions(app, row, parsed),
                     !parsed.Folder.empty()};
    if (const std::string empty = EmptyOption(app, call); !empty.empty())
        return RefuseUsage(world, &row, empty + " needs a value");
    if (call.Folder.empty()) call.Folder = world.DefaultFolder();
    return RunOn(row, call);
}

}  // namespace

int RunCli(const CliWorld& world, int argc, const char* const* argv) {
    CLI::App app("", "counterctl");
    Parsed parsed;
    AddAll(app, parsed);
    try {
        app.parse(argc, argv);
    } catch (const CLI::Success&) {
        const CommandRow* row = CalledCommand(app);
        const bool version = app.get_option("--version")->count() > 0;
        world.Out << (version          ? app.version() + "\n"
                      : row == nullptr ? HelpOfAll(world.OutColors)
                                       : HelpOf(*row, world.OutColors));
        return OutputStatus(world, kDone);
    } catch (const CLI::ParseError& error) {
        const std::vector<std::string> words(argv + std::min(argc, 1), argv + argc);
        return RefuseLine(world, CalledCommand(app), words, error.what());
    }
    return RunCommand(world, app, *CalledCommand(app), parsed);
}

}  // namespace counter
