// ProgramFolder: the folder that holds Settings.SSS, ports/ and backups/, and the files in it.
#pragma once

#include <string>

#include "platform/files.h"

namespace counter {

struct ProgramFolder {
    Files& Store;
    std::string Path;

    // The path of a file whose name is relative to the folder.
    std::string At(const std::string& name) const { return Path + "/" + name; }
};

}  // namespace counter
