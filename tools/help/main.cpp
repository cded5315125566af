// help-files FOLDER SOURCE...: makes the help files in FOLDER out of the sources.
//
// Tells every fault of every source with file and line, and then makes nothing. Exit status 1 for that and
// for a file that can't be read or written, 2 for a wrong call.
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>

#include "tools/help/help_pairs.h"

namespace {

bool ReadFile(const std::string& path, std::string& content) {
    std::ifstream file(path, std::ios::binary);
    content.assign(std::istreambuf_iterator<char>(file), {});
    return file.good() || file.eof();
}

bool WriteFile(const std::filesystem::path& path, const std::string& content) {
    std::ofstream file(path, std::ios::binary);
    file << content;
    file.close();
    if (!file) std::cerr << path.string() << ": can't be written\n";
    return file.good();
}

std::vector<help_tool::Entry> ReadSources(int count, char** paths, std::vector<help_tool::Fault>& faults) {
    std::vector<help_tool::Entry> entries;
    for (int i = 0; i < count; ++i) {
        const std::string path = paths[i];
        std::string content;
        if (ReadFile(path, content)) {
            help_tool::ReadHelpSource(path, content, entries, faults);
        } else {
            faults.push_back({path, 1, "can't be read"});
        }
    }
    return entries;
}

}  // namespace

int main(int argc, char** argv) {
    if (argc < 3) {
        std::cerr << "help-files FOLDER SOURCE...\n";
        return 2;
    }
    std::vector<help_tool::Fault> faults;
    const auto entries = ReadSources(argc - 2, argv + 2, faults);
    const auto pairs = help_tool::MakePairs(entries, faults);
    for (const auto& fault : faults) std::cerr << fault.Text() << "\n";
    if (!faults.empty()) return 1;

    const std::filesystem::path folder = argv[1];
    std::error_code error;
    std::filesystem::create_directories(folder, error);
    bool written = true;
    for (const auto& [n, pair] : pairs) {
        const std::string name = help_tool::PairName(n);
        written = WriteFile(folder / (name + ".R10"), pair.Index) &&
                  WriteFile(folder / (name + ".S10"), pair.Texts) && written;
    }
    return written ? 0 : 1;
}
