// StreamFiles: files among which "-" is standard input and standard output.
#pragma once

#include "cli/cli_world.h"
#include "platform/files.h"

namespace counter {

// What a failed write to standard output is told as.
Status OutputFailed(const CliWorld& world);

// A file that is really called "-" is reached as "./-". Everything else goes through.
class StreamFiles : public Files {
  public:
    explicit StreamFiles(const CliWorld& world) : world_(world), inner_(world.Store) {}

    // Standard input to its end. Nothing at all is refused: what should have come out of a pipe has failed,
    // and an empty setup would be one of zeros.
    Status Read(const std::string& path, std::string& content) const override;
    Status Write(const std::string& path, std::string_view content) override;
    Status Append(const std::string& path, std::string_view content) override;
    bool Exists(const std::string& path) const override { return inner_.Exists(path); }
    Status Remove(const std::string& path) override { return inner_.Remove(path); }
    Status MakeFolder(const std::string& path) override { return inner_.MakeFolder(path); }
    Status List(const std::string& path, std::vector<std::string>& names) const override {
        return inner_.List(path, names);
    }
    Status MakeLink(const std::string& path, const std::string& target) override {
        return inner_.MakeLink(path, target);
    }
    std::string LinkTarget(const std::string& path) const override { return inner_.LinkTarget(path); }

  private:
    Status Send(std::string_view content);

    const CliWorld& world_;
    Files& inner_;
};

}  // namespace counter
