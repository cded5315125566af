// Files as counterctl sees them: "-" for a standard stream, writes that wait for the end of a run, and what
// Settings.SSS says.
#pragma once

#include <map>
#include <memory>
#include <optional>
#include <string>

#include "cli/cli.h"
#include "link/change_settings.h"
#include "platform/passing_files.h"
#include "settings/settings.h"

namespace counter {

// What a failed write to standard output is told as.
Status OutputFailed(const CliWorld& world);

// Files among which "-" is standard input and standard output. A file that is really called "-" is reached as
// "./-". Everything else goes through.
class StreamFiles : public PassingFiles {
  public:
    explicit StreamFiles(const CliWorld& world) : PassingFiles(world.Store), world_(world) {}

    // Standard input to its end. Nothing at all is refused: what should have come out of a pipe has failed,
    // and an empty setup would be one of zeros.
    Status Read(const std::string& path, std::string& content) const override;
    Status Write(const std::string& path, std::string_view content) override;
    Status Append(const std::string& path, std::string_view content) override;
    Status Grow(const std::string& path, std::unique_ptr<GrowingFile>& file) override {
        return path == kStandardStream ? Files::Grow(path, file) : PassingFiles::Grow(path, file);
    }

  private:
    Status Send(std::string_view content);

    const CliWorld& world_;
};

// How counterctl waits for another program that is changing Settings.SSS: told on standard error, ended by an
// interrupt. The machine whose clock it takes is made only when there is one to wait for.
class SettingsTurn {
  public:
    explicit SettingsTurn(const CommandCall& call) : call_(call) {}
    SettingsWait Wait();

  private:
    counter::Pump& Pump();

    const CommandCall& call_;
    std::unique_ptr<Machine> machine_;
};

// Files whose writes wait until the whole run is known to be good. Reads see what was written and is still
// held. Everything else goes through at once.
class HeldFiles : public PassingFiles {
  public:
    explicit HeldFiles(Files& behind) : PassingFiles(behind) {}

    // Writes what is held, each file whole or not at all; the first that fails ends it.
    Status Flush();
    // What is held for `path`, which is held no longer; nothing where nothing was written.
    std::optional<std::string> Take(const std::string& path);
    // Nothing is changed before the end, so nobody is kept from it before.
    Status Lock(const std::string&, std::unique_ptr<FileLock>& lock) override {
        lock.reset();
        return {};
    }

    Status Read(const std::string& path, std::string& content) const override;
    Status Write(const std::string& path, std::string_view content) override;
    bool Exists(const std::string& path) const override {
        return held_.count(path) > 0 || PassingFiles::Exists(path);
    }

  private:
    std::map<std::string, std::string> held_;
};

// The first FILE of a command that edits it. One that can be no setup at all is refused where it would be
// written over: a picture, a letter.
Status LoadToEdit(const CommandCall& call, SetupImage& image);

// Settings.SSS in the program folder, and that folder.
ProgramFolder FolderOf(const CommandCall& call);
std::string SettingsPath(const CommandCall& call);

// What it says, for what must be known before a port is opened or a node called, and without either.
// Nothing where the file can't be read.
std::optional<Settings> ReadStoredSettings(const CommandCall& call);

// Of a file that can't be read, settings of a Custom ASCII line. Whoever opens the link tells what is wrong
// with the file.
Settings StoredSettings(const CommandCall& call);

}  // namespace counter
