// The setup files that were opened or saved last, kept over the end of the program in a small file of its
// folder.
#pragma once

#include <string>
#include <vector>

#include "platform/program_folder.h"

namespace counter {

inline constexpr const char* kRecentFile = "recent-files.txt";
inline constexpr std::size_t kMostRecentFiles = 8;

// Paths, the last one first; at most 8, whether or not they are still there.
std::vector<std::string> RecentFiles(const ProgramFolder& folder);
// Puts a path at the front, absolute. A folder that can't be written keeps nothing, which is no failure of
// what was done with the file.
void KeepRecentFile(const ProgramFolder& folder, const std::string& path);

}  // namespace counter
