// StreamFiles: files among which "-" is standard input and standard output.
#pragma once

#include "cli/cli_world.h"
#include "platform/passing_files.h"

namespace counter {

// What a failed write to standard output is told as.
Status OutputFailed(const CliWorld& world);

// A file that is really called "-" is reached as "./-". Everything else goes through.
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

}  // namespace counter
