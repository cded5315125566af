// The commands of counterctl: one table, from which parsing, refusals and help are made.
#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "cli/cli.h"

namespace counter {

// What is done with the file that an argument names, where "-" may mean a standard stream.
enum class FileUse {
    None,  // no file
    Read,
    Written,  //
    Edited,   // read, and written over unless --out names another
    Script,   // read; without the option it is standard input
};

struct OptionRow {
    const char* Name;
    const char* Value;  // what comes after it; empty for a flag
    const char* Help;
    FileUse Use = FileUse::None;
};

struct CommandRow {
    const char* Name;
    const char* Arguments;  // as a usage line shows them
    const char* Help;
    int LeastWords;
    int MostWords;
    std::vector<FileUse> Files;  // what the first words name; words after these are no files
    std::vector<OptionRow> Options;
    int (*Run)(const CommandCall&);
    std::string More;     // further lines of its help, each ended by "\n"
    const char* Example;  // lines of a shell
};

std::span<const CommandRow> Commands();
// Those that come before or after every command.
std::span<const OptionRow> CommonOptions();
// Null where there is none.
const CommandRow* FindCommand(std::string_view name);
std::vector<std::string> CommandNames();

// "counterctl get FILE"
std::string UsageOf(const CommandRow& row);
std::string UsageOfAll();

}  // namespace counter
