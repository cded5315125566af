// The one argument of the programs with a window.
#pragma once

#include <string>

class QCoreApplication;

namespace counter {

// The folder that --dir names, else the default program folder. --help ends the program.
std::string FolderArgument(const QCoreApplication& application, const char* description);

}  // namespace counter
