// counterctl: the command line companion. What needs more than files and a line is a program of its own,
// which takes the same arguments: counter-record for stores of readings, counter-sheet for PDF. So no other
// command pays for SQLite, a broker's client, or letters and paper.
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <filesystem>
#include <string>

#include "apps/command_line.h"
#include "cli/cli.h"
#include "cli/cli_output.h"

namespace {

// The one beside this program, else the one on PATH. Returns only where there is none.
int Become(const char* program, const counter::CommandCall& call, char** argv) {
    std::error_code ignored;
    const std::filesystem::path self = std::filesystem::read_symlink("/proc/self/exe", ignored);
    const std::string beside = (self.parent_path() / program).string();
    call.World.Out << std::flush;
    execv(beside.c_str(), argv);
    int error = errno;
    if (error == ENOENT) {
        execvp(program, argv);
        error = errno;
    }
    return counter::RefuseStatus(call, {counter::StatusKind::Other, beside, std::strerror(error)});
}

}  // namespace

int main(int argc, char** argv) {
    const auto become = [argv](const char* program) {
        return [argv, program](const counter::CommandCall& call) { return Become(program, call, argv); };
    };
    const auto recorder = become("counter-record");
    return counter::RunCommandLine(argc, argv, {recorder, recorder}, {nullptr, become("counter-sheet")});
}
