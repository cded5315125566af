// The program folder: where Settings.SSS, ports/ and backups/ lie.
#pragma once

#include <string>
#include <vector>

class QCoreApplication;

namespace counter {

// The folder of the executable where it holds Settings.SSS (portable use), otherwise counter-setup in the
// user's application data folder, which need not exist yet. Needs an application object.
std::string DefaultProgramFolder();

// The same choice for given folders, neither ending in "/".
std::string ChooseProgramFolder(const std::string& executableFolder, const std::string& dataFolder);

// The one argument of the programs with a window: the folder that --dir names, else the default one. --help
// ends the program.
std::string FolderArgument(const QCoreApplication& application, const char* description);

struct FolderAndFile {
    std::string Folder;
    std::string File;  // absolute; empty where none was named
};

// The same for the program that opens a setup file: the first name behind the options, from the folder that
// the program was started in.
FolderAndFile FolderAndFileArguments(const QCoreApplication& application, const char* description);

// Whether --help is among the words. Then the two above want a QCoreApplication, which needs no display.
bool HelpIsAsked(int argc, char** argv);

// Where data that comes with the program may lie ("help", "boards"), best first: in the program folder, where
// the program was installed, beside the build.
std::vector<std::string> DataFolders(const std::string& programFolder, const std::string& name);

}  // namespace counter
