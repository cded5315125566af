// The program folder: where Settings.SSS, ports/ and backups/ lie.
#pragma once

#include <string>

namespace counter {

// The folder of the executable where it holds Settings.SSS (portable use), otherwise counter-setup in the
// user's application data folder, which need not exist yet. Needs an application object.
std::string DefaultProgramFolder();

// The same choice for given folders, neither ending in "/".
std::string ChooseProgramFolder(const std::string& executableFolder, const std::string& dataFolder);

}  // namespace counter
