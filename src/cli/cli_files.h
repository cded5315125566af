// Files as counterctl sees them: "-" for a standard stream, writes that wait for the end of a run, what
// Settings.SSS says, and the stream onto standard output itself.
#pragma once

#include <array>
#include <cstdio>
#include <map>
#include <optional>
#include <streambuf>
#include <string>

#include "cli/cli.h"
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

  private:
    Status Send(std::string_view content);

    const CliWorld& world_;
};

// Files whose writes wait until the whole run is known to be good. Reads see what was written and is still
// held. Everything else goes through at once.
class HeldFiles : public PassingFiles {
  public:
    explicit HeldFiles(Files& behind) : PassingFiles(behind) {}

    // Writes what is held, each file whole or not at all; the first that fails ends it.
    Status Flush();

    Status Read(const std::string& path, std::string& content) const override;
    Status Write(const std::string& path, std::string_view content) override;
    bool Exists(const std::string& path) const override {
        return held_.count(path) > 0 || PassingFiles::Exists(path);
    }

  private:
    std::map<std::string, std::string> held_;
};

// A stream onto standard output that remembers why the system took no more.
class FileOutput : public std::streambuf {
  public:
    explicit FileOutput(std::FILE* file);

    // The system's words for the first write that failed; empty where none did.
    std::string WhyFailed() const;

  protected:
    int_type overflow(int_type character) override;
    int sync() override;

  private:
    bool Send();

    std::FILE* file_;
    int error_ = 0;
    std::array<char, 1 << 14> waiting_;  // a setup as JSON in few writes
};

// Settings.SSS in the program folder.
std::string SettingsPath(const CommandCall& call);

// What it says, for what must be known before a port is opened or a node called, and without either.
// Nothing where the file can't be read.
std::optional<Settings> ReadStoredSettings(const CommandCall& call);

// Of a file that can't be read, settings of a Custom ASCII line. Whoever opens the link tells what is wrong
// with the file.
Settings StoredSettings(const CommandCall& call);

}  // namespace counter
