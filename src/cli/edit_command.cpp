// edit and show --as setup: the Setup view on a setup file, without a screen.
#include <iterator>

#include "cli/cli.h"
#include "cli/cli_files.h"
#include "cli/cli_output.h"
#include "cli/edit_console.h"
#include "cli/script_player.h"
#include "cli/setup_output.h"
#include "cli/setup_run.h"
#include "shell/setup_files.h"

namespace counter {

namespace {

// The script's text, from a file or standard input.
Status ReadScript(const CommandCall& call, std::string& script) {
    const auto path = call.Options.find("--script");
    if (path != call.Options.end() && path->second != kStandardStream)
        return call.World.Store.Read(path->second, script);
    script.assign(std::istreambuf_iterator<char>(call.World.In), {});  // may be empty
    return {};
}

// A program that a message ended has no setup to keep: its view was never whole. The document tells of it.
int FinishEnded(const CommandCall& call, SetupRun& run) {
    if (call.Json) WriteJson(call, SetupJson(run));
    return RefuseCall(call, "the program has ended");
}

// A refused script writes nothing.
int FinishScript(const CommandCall& call, const ScriptPlayer& player, SetupRun& run) {
    if (!player.Wrong().empty()) return RefuseCall(call, player.Wrong());
    if (run.Ended()) return FinishEnded(call, run);
    if (const int status = run.Save(); status != kDone) return status;
    if (call.Json) WriteJson(call, SetupJson(run));
    return kDone;
}

int FinishByHand(const CommandCall& call, const EditConsole& console, SetupRun& run) {
    if (run.Ended()) return FinishEnded(call, run);
    const bool keep = !console.Quit();
    if (const int status = keep ? run.Save() : kDone; status != kDone) return status;
    call.World.Err << (keep ? call.OutPath() + " is written\n" : "nothing is written\n");
    if (call.Json) WriteJson(call, SetupJson(run));
    return kDone;
}

int EditByHand(const CommandCall& call, const SetupImage& image) {
    EditConsole console(call.World);
    SetupRun run(call, console, [&](SetupRun& done) { return FinishByHand(call, console, done); });
    return run.Execute(image, call.Has("--from-meter"));
}

int FinishShow(const CommandCall& call, SetupRun& run) {
    if (call.Json) {
        WriteJson(call, SetupJson(run));
    } else {
        call.World.Out << SetupText(run);
    }
    return kDone;
}

// Somebody sits there: both ends of the conversation are a terminal.
bool ByHand(const CommandCall& call) {
    const auto script = call.Options.find("--script");
    const bool typed = script == call.Options.end() || script->second == kStandardStream;
    return typed && call.World.InIsTerminal && call.World.ErrIsTerminal;
}

}  // namespace

int EditCommand(const CommandCall& call) {
    SetupImage image;
    std::string script;
    if (Status status = LoadToEdit(call, image); !status.Ok()) return RefuseStatus(call, status);
    if (ByHand(call)) return EditByHand(call, image);
    if (Status status = ReadScript(call, script); !status.Ok()) return RefuseStatus(call, status);
    ScriptPlayer player(script);
    SetupRun run(call, player, [&](SetupRun& done) { return FinishScript(call, player, done); });
    return run.Execute(image, call.Has("--from-meter"));
}

int ShowSetup(const CommandCall& call, const SetupImage& image) {
    ScriptPlayer nobody("");
    SetupRun run(call, nobody, [&call](SetupRun& done) { return FinishShow(call, done); });
    return run.Execute(image, false);
}

}  // namespace counter
