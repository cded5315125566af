// Processes that this one starts and holds: it hears what they say, and they end with it.
#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "platform/status.h"

namespace counter {

class ChildProcess {
  public:
    ChildProcess() = default;
    // Kills one that still runs.
    virtual ~ChildProcess() = default;
    ChildProcess(const ChildProcess&) = delete;
    ChildProcess& operator=(const ChildProcess&) = delete;

    // The whole lines on its standard output since the last call, without their ends. They come while a wait
    // of the pump runs, and wake it.
    virtual std::vector<std::string> TakeLines() = 0;
    // It has ended, and TakeLines has given all that there was.
    virtual bool Ended() const = 0;
    // How it ended: "status 2", "signal 9"; empty for status 0.
    virtual std::string HowEnded() const = 0;
    // As Ctrl-C does: it may put in order what it is at.
    virtual void Interrupt() = 0;
    virtual void Kill() = 0;
};

class ChildProcesses {
  public:
    virtual ~ChildProcesses() = default;
    // Starts this program once more with other arguments and `input` as its standard input; standard error is
    // shared. When this process goes, however it goes, the child is interrupted.
    virtual Status StartSelf(const std::vector<std::string>& arguments, std::string_view input,
                             std::unique_ptr<ChildProcess>& child) = 0;
};

// For those who start nothing.
class NoChildProcesses : public ChildProcesses {
  public:
    Status StartSelf(const std::vector<std::string>&, std::string_view,
                     std::unique_ptr<ChildProcess>&) override {
        return {StatusKind::Illegal, "child process", "this program starts none"};
    }
};

}  // namespace counter
