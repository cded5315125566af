// set: fields of a setup file by name, through the Setup view and its rules.
#include "cli/cli.h"
#include "cli/cli_files.h"
#include "cli/cli_output.h"
#include "cli/field_setter.h"
#include "cli/set_result.h"
#include "shell/setup_files.h"

namespace counter {

namespace {

// Empty, or what is wrong with the words after the file's name.
std::string ReadAssignments(const CommandCall& call, std::vector<FieldAssignment>& assignments) {
    for (std::size_t i = 1; i < call.Words.size(); ++i) {
        const std::string& word = call.Words[i];
        const std::size_t equals = word.find('=');
        if (equals == std::string::npos) return "'" + word + "' is not FIELD=VALUE";
        assignments.push_back({word.substr(0, equals), word.substr(equals + 1), {}, {}});
    }
    return {};
}

int Finish(const CommandCall& call, const SetupImage& before, const FieldSetter& setter, SetupRun& run) {
    if (!setter.Wrong().empty()) return RefuseCall(call, setter.Wrong());
    if (run.Ended()) return RefuseCall(call, "the program has ended");
    if (const int status = run.Save(); status != kDone) return status;
    const SetupImage& after = run.Program().Image;
    const SetResult result = CompareSet(before, after, setter.Done());
    if (call.Json) {
        WriteJson(call, {{"changed", DifferencesJson(result.Changed)},
                         {"consequences", DifferencesJson(result.Consequences)},
                         {"messages", run.Messages()}});
    }
    call.World.Err << ConsequenceLines(result.Consequences);
    return kDone;
}

}  // namespace

int SetCommand(const CommandCall& call) {
    std::vector<FieldAssignment> assignments;
    if (const std::string wrong = ReadAssignments(call, assignments); !wrong.empty())
        return RefuseCall(call, wrong);
    SetupImage image;
    if (Status status = LoadToEdit(call, image); !status.Ok()) return RefuseStatus(call, status);
    FieldSetter setter(std::move(assignments));
    SetupRun run(call, setter, [&](SetupRun& done) { return Finish(call, image, setter, done); });
    return run.Execute(image, false);
}

}  // namespace counter
