#include "shell/kept_options.h"

#include <sstream>
#include <string>

namespace counter {

namespace {

bool IsFor(const std::string& line, std::string_view name) {
    return line.starts_with(name) && line.substr(name.size(), 1) == "\t";
}

std::string OptionLines(const ProgramFolder& folder) {
    std::string content;
    folder.Store.Read(folder.At(kOptionsFile), content);
    return content;
}

}  // namespace

bool KeptOption(const ProgramFolder& folder, std::string_view name) {
    std::istringstream lines(OptionLines(folder));
    for (std::string line; std::getline(lines, line);) {
        if (IsFor(line, name)) return line.substr(name.size() + 1) == "1";
    }
    return false;
}

void KeepOption(const ProgramFolder& folder, std::string_view name, bool on) {
    std::string content;
    std::istringstream lines(OptionLines(folder));
    for (std::string line; std::getline(lines, line);) {
        if (!IsFor(line, name)) content += line + "\n";
    }
    content.append(name).append(on ? "\t1\n" : "\t0\n");
    folder.Store.Write(folder.At(kOptionsFile), content);
}

}  // namespace counter
