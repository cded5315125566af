// counterctl: the command line companion. Its commands on stores of readings are a program of their own,
// counter-record, which takes the same arguments: so no other command pays for SQLite and a broker's client.
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <filesystem>
#include <string>

#include "apps/command_line.h"
#include "cli/cli.h"
#include "cli/cli_output.h"

namespace {

constexpr const char* kRecorder = "counter-record";

// The one beside this program, else the one on PATH. Returns only where there is none.
int BecomeRecorder(const counter::CommandCall& call, char** argv) {
    std::error_code ignored;
    const std::filesystem::path self = std::filesystem::read_symlink("/proc/self/exe", ignored);
    const std::string beside = (self.parent_path() / kRecorder).string();
    call.World.Out << std::flush;
    execv(beside.c_str(), argv);
    int error = errno;
    if (error == ENOENT) {
        execvp(kRecorder, argv);
        error = errno;
    }
    return counter::RefuseStatus(call, {counter::StatusKind::Other, beside, std::strerror(error)});
}

}  // namespace

int main(int argc, char** argv) {
    const auto recorder = [argv](const counter::CommandCall& call) { return BecomeRecorder(call, argv); };
    return counter::RunCommandLine(argc, argv, {recorder, recorder});
}
