// Choices of the desktop tool that outlive it, in a small file of the program folder.
#pragma once

#include <string_view>

#include "platform/program_folder.h"

namespace counter {

inline constexpr const char* kOptionsFile = "desktop-options.txt";
inline constexpr std::string_view kVerifyAfterPut = "verify-after-put";

// Lines of "NAME<tab>0" or "NAME<tab>1". False where there is none, or no such file.
bool KeptOption(const ProgramFolder& folder, std::string_view name);
// Keeps the others. A folder that can't be written keeps nothing; the choice then ends with the program.
void KeepOption(const ProgramFolder& folder, std::string_view name, bool on);

}  // namespace counter
