// OwnProcesses: this program, started once more by fork and exec.
#pragma once

#include "platform/child_processes.h"

namespace counter {

// Needs an application object: what a child says comes through its event loop.
class OwnProcesses : public ChildProcesses {
  public:
    Status StartSelf(const std::vector<std::string>& arguments, std::string_view input,
                     std::unique_ptr<ChildProcess>& child) override;
};

}  // namespace counter
