#include "cli/command_help.h"

#include <algorithm>
#include <cctype>

#include "cli/cli_output.h"
#include "cli/suggest.h"

namespace counter {

namespace {

using Lines = std::vector<std::vector<std::string>>;

std::string Heading(const std::string& text, bool bold) {
    return bold ? "\n\x1b[1m" + text + "\x1b[0m\n" : "\n" + text + "\n";
}

// Each line two blanks further in.
std::string Indented(const std::string& lines) {
    std::string text;
    for (std::size_t start = 0; start < lines.size();) {
        const std::size_t end = lines.find('\n', start);
        text += "  " + lines.substr(start, end + 1 - start);
        start = end + 1;
    }
    return text;
}

std::string OptionsHelp(std::span<const OptionRow> options) {
    Lines lines;
    for (const OptionRow& option : options) {
        const std::string value = option.Value;
        lines.push_back({option.Name + (value.empty() ? "" : " " + value), option.Help});
    }
    return Indented(Columns(lines));
}

std::string Sentence(std::string text) {
    text[0] = static_cast<char>(std::toupper(static_cast<unsigned char>(text[0])));
    return text + ".\n";
}

bool NamesFiles(const CommandRow& row) {
    return !row.Files.empty() || std::any_of(row.Options.begin(), row.Options.end(),
                                             [](const OptionRow& o) { return o.Use != FileUse::None; });
}

constexpr const char* kExitStatuses =
    "0    done\n"
    "1    wrong usage: a line on standard error says what is legal; nothing was done\n"
    "2    a file, folder or port could not be opened, read or written\n"
    "3    the link to the meter failed\n"
    "4    verify or diff found differences\n"
    "130  interrupted\n";

}  // namespace

std::string HelpOfAll(bool bold) {
    Lines commands;
    for (const CommandRow& row : Commands()) commands.push_back({row.Name, row.Help});
    std::string text = "Works a panel counter/timer and its setup files from a shell or a script.\n";
    text += Heading("Usage", bold) + "  counterctl [--dir FOLDER] [--json] [--trace] COMMAND [ARGUMENT...]\n";
    text += Heading("Commands", bold) + Indented(Columns(commands));
    text += Heading("Options", bold) + OptionsHelp(CommonOptions());
    text += "  --help, --version\n";
    text += Heading("Exit status", bold) + Indented(kExitStatuses);
    return text + "\ncounterctl help COMMAND tells more about a command, with an example.\n";
}

std::string HelpOf(const CommandRow& row, bool bold) {
    std::string text = UsageOf(row) + "\n\n" + Sentence(row.Help) + row.More;
    if (NamesFiles(row)) text += "A file named - is standard input or standard output.\n";
    if (!row.Options.empty()) text += Heading("Options", bold) + OptionsHelp(row.Options);
    text += Heading("Options of every command", bold) + OptionsHelp(CommonOptions());
    return text + Heading("Example", bold) + Indented(row.Example);
}

int HelpCommand(const CommandCall& call) {
    const bool bold = call.World.OutColors;
    if (call.Words.empty()) {
        call.World.Out << HelpOfAll(bold);
        return kDone;
    }
    const CommandRow* row = FindCommand(call.Words[0]);
    if (row == nullptr) {
        return RefuseCall(call, "no command '" + call.Words[0] + "'; usage: " + UsageOfAll() +
                                    DidYouMean(call.Words[0], CommandNames()));
    }
    call.World.Out << HelpOf(*row, bold);
    return kDone;
}

}  // namespace counter
