#include "cli/setup_reading.h"

#include "cli/cli_output.h"
#include "cli/cli_world.h"
#include "shell/setup_files.h"

namespace counter {

Status LoadAndTell(const CommandCall& call, const std::string& path, SetupImage& image) {
    std::string text;
    if (Status status = call.World.Store.Read(path, text); !status.Ok()) return status;
    image = ImageOfText(text);
    const std::string why = WhyNoWholeSetup(text.substr(0, text.find_first_of("\r\n")));
    const std::string name = path == kStandardStream ? "standard input" : path;
    if (!why.empty()) Complain(call.World) << OneLine(name) << ": no whole setup: " << why << "\n";
    return {};
}

}  // namespace counter
