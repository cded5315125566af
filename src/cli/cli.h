// counterctl: one command a call.
#pragma once

#include <map>
#include <string>
#include <vector>

#include "cli/cli_world.h"
#include "meter/setup_image.h"

namespace counter {

// A command as it was called.
struct CommandCall {
    const CliWorld& World;
    std::string Folder;  // the program folder
    bool Json = false;
    bool Trace = false;
    bool OutIsFile = false;                      // "-" names standard output as a file to write
    std::vector<std::string> Words;              // arguments without "--"
    std::map<std::string, std::string> Options;  // "--as" -> "fields"; a flag that was given -> "1"
    bool FolderNamed = false;                    // by --dir

    bool Has(const std::string& option) const { return Options.count(option) != 0; }
    // Where an edited first FILE is written: over itself, or what --out names.
    std::string OutPath() const { return Has("--out") ? Options.at("--out") : Words[0]; }
    // Where text for people goes: never into a file.
    std::ostream& Text() const { return OutIsFile ? World.Err : World.Out; }
};

// Runs the command line and returns the exit status.
int RunCli(const CliWorld& world, int argc, const char* const* argv);

// The commands.
int SettingsCommand(const CommandCall& call);
int PortsCommand(const CommandCall& call);
int ScanCommand(const CommandCall& call);
int DefaultCommand(const CommandCall& call);
int ShowCommand(const CommandCall& call);
int FieldsCommand(const CommandCall& call);
int DiffCommand(const CommandCall& call);
int SetCommand(const CommandCall& call);
int HelpCommand(const CommandCall& call);
int GetCommand(const CommandCall& call);
int PutCommand(const CommandCall& call);
int VerifyCommand(const CommandCall& call);
int EditCommand(const CommandCall& call);
int StreamCommand(const CommandCall& call);
int RecordCommand(const CommandCall& call);
int ReadingsCommand(const CommandCall& call);
int SheetCommand(const CommandCall& call);
int ReadCommand(const CommandCall& call);
int ResetCommand(const CommandCall& call);
int RemoteCommand(const CommandCall& call);
int CurveCommand(const CommandCall& call);
int CalibrateCommand(const CommandCall& call);
int FleetCommand(const CommandCall& call);

// show --as menu. The image keeps what building the menu repairs.
int ShowMenu(const CommandCall& call, SetupImage& image);
// show --as setup. What opening the Setup view repairs is shown and not kept.
int ShowSetup(const CommandCall& call, const SetupImage& image);

}  // namespace counter
