// edit and show --as setup: the Setup view on a setup file, without a screen.
#include <iterator>

#include "cli/cli.h"
#include "cli/cli_output.h"
#include "cli/setup_output.h"
#include "cli/setup_run.h"
#include "shell/setup_files.h"

namespace counter {

namespace {

// The script's text, from a file or standard input.
Status ReadScript(const CommandCall& call, std::string& script) {
    const auto path = call.Options.find("--script");
    if (path != call.Options.end() && path->second != "-") return call.World.Store.Read(path->second, script);
    script.assign(std::istreambuf_iterator<char>(call.World.In), {});
    return {};
}

std::string OutPath(const CommandCall& call) {
    const auto path = call.Options.find("--out");
    return path == call.Options.end() ? call.Words[0] : path->second;
}

// A refused script writes nothing. A program that a message ended has no setup to keep: its view was never
// whole.
int FinishEdit(const CommandCall& call, SetupRun& run) {
    if (!run.Wrong().empty()) return RefuseCall(call, run.Wrong());
    if (!run.Ended()) {
        if (Status status = SaveSetupFile(call.World.Store, OutPath(call), run.Program().Image); !status.Ok())
            return RefuseStatus(call, status);
        if (Status status = run.WriteHeld(); !status.Ok()) return RefuseStatus(call, status);
    }
    if (call.Json) WriteJson(call, SetupJson(run));
    return kDone;
}

int FinishShow(const CommandCall& call, SetupRun& run) {
    if (call.Json) {
        WriteJson(call, SetupJson(run));
    } else {
        call.World.Out << SetupText(run);
    }
    return kDone;
}

}  // namespace

int EditCommand(const CommandCall& call) {
    SetupImage image;
    std::string script;
    if (Status status = LoadSetupFile(call.World.Store, call.Words[0], image); !status.Ok())
        return RefuseStatus(call, status);
    if (Status status = ReadScript(call, script); !status.Ok()) return RefuseStatus(call, status);
    SetupRun run(call, [&call](SetupRun& done) { return FinishEdit(call, done); });
    return run.Execute(image, call.Has("--from-meter"), script);
}

int ShowSetup(const CommandCall& call, const SetupImage& image) {
    SetupRun run(call, [&call](SetupRun& done) { return FinishShow(call, done); });
    return run.Execute(image, false, "");
}

}  // namespace counter
