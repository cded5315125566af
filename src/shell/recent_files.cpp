#include "shell/recent_files.h"

#include <algorithm>
#include <sstream>

namespace counter {

std::vector<std::string> RecentFiles(const ProgramFolder& folder) {
    std::string content;
    folder.Store.Read(folder.At(kRecentFile), content);
    std::istringstream lines(content);
    std::vector<std::string> paths;
    for (std::string line; paths.size() < kMostRecentFiles && std::getline(lines, line);) {
        if (!line.empty()) paths.push_back(line);
    }
    return paths;
}

void KeepRecentFile(const ProgramFolder& folder, const std::string& path) {
    const std::string absolute = folder.Store.Absolute(path);
    std::vector<std::string> paths = RecentFiles(folder);
    const bool oneLine = absolute.find('\n') == std::string::npos;
    if (!oneLine || (!paths.empty() && paths.front() == absolute)) return;
    std::erase(paths, absolute);
    paths.insert(paths.begin(), absolute);
    paths.resize(std::min(paths.size(), kMostRecentFiles));
    std::string content;
    for (const std::string& kept : paths) content += kept + "\n";
    folder.Store.Write(folder.At(kRecentFile), content);
}

}  // namespace counter
