// set: fields of a setup file by name, through the Setup view and its rules.
#include <algorithm>

#include "cli/cli.h"
#include "cli/cli_files.h"
#include "cli/cli_output.h"
#include "cli/differences.h"
#include "cli/field_setter.h"
#include "shell/setup_files.h"

namespace counter {

namespace {

// Empty, or what is wrong with the words after the file's name.
std::string ReadAssignments(const CommandCall& call, std::vector<Assignment>& assignments) {
    for (std::size_t i = 1; i < call.Words.size(); ++i) {
        const std::string& word = call.Words[i];
        const std::size_t equals = word.find('=');
        if (equals == std::string::npos) return "'" + word + "' is not FIELD=VALUE";
        assignments.push_back({word.substr(0, equals), word.substr(equals + 1), {}, {}});
    }
    return {};
}

bool SharesBits(const FieldRow& a, const FieldRow& b) {
    const bool sameDigits = a.Pos < b.Pos + b.Digits && b.Pos < a.Pos + a.Digits;
    return sameDigits && a.LoBit <= b.HiBit && b.LoBit <= a.HiBit;
}

bool IsAssigned(const FieldRow& row, const std::vector<Assignment>& assignments) {
    return std::any_of(assignments.begin(), assignments.end(),
                       [&](const Assignment& assignment) { return assignment.Which == row.Handle; });
}

bool SharesBitsWithOne(const FieldRow& row, const std::vector<Assignment>& assignments) {
    return std::any_of(assignments.begin(), assignments.end(), [&](const Assignment& assignment) {
        return assignment.Which && SharesBits(row, RowOf(*assignment.Which));
    });
}

bool Differs(const SetupImage& a, const SetupImage& b, Field field) {
    return !FieldEqual(a, b, field) || FieldValueText(a, field) != FieldValueText(b, field);
}

// Both hold fields whose bits differ, and values that read otherwise because their point has moved.
struct SetResult {
    Differences Changed;       // what was asked for
    Differences Consequences;  // what the rules changed with it
};

SetResult Compare(const SetupImage& before, const SetupImage& after,
                  const std::vector<Assignment>& assignments) {
    SetResult result;
    for (const FieldRow& row : FieldTable()) {
        if (!Differs(before, after, row.Handle)) continue;
        if (IsAssigned(row, assignments)) {
            result.Changed.push_back(DifferenceIn(row.Handle, before, after));
        } else if (!SharesBitsWithOne(row, assignments)) {
            result.Consequences.push_back(DifferenceIn(row.Handle, before, after));
        }
    }
    return result;
}

std::string Told(const Differences& consequences) {
    std::vector<std::vector<std::string>> lines;
    for (const FieldDifference& line : consequences)
        lines.push_back(
            {"  " + std::string(line.Name), Printable(line.A.Text), "->", Printable(line.B.Text)});
    return lines.empty() ? std::string() : "Changed with it:\n" + Columns(lines);
}

int Finish(const CommandCall& call, const SetupImage& before, const FieldSetter& setter, SetupRun& run) {
    if (!setter.Wrong().empty()) return RefuseCall(call, setter.Wrong());
    if (run.Ended()) return RefuseCall(call, "the program has ended");
    if (const int status = run.Save(); status != kDone) return status;
    const SetupImage& after = run.Program().Image;
    const SetResult result = Compare(before, after, setter.Done());
    if (call.Json) {
        WriteJson(call, {{"changed", DifferencesJson(result.Changed)},
                         {"consequences", DifferencesJson(result.Consequences)},
                         {"messages", run.Messages()}});
    }
    call.World.Err << Told(result.Consequences);
    return kDone;
}

}  // namespace

int SetCommand(const CommandCall& call) {
    std::vector<Assignment> assignments;
    if (const std::string wrong = ReadAssignments(call, assignments); !wrong.empty())
        return RefuseCall(call, wrong);
    SetupImage image;
    if (Status status = LoadToEdit(call, image); !status.Ok()) return RefuseStatus(call, status);
    FieldSetter setter(std::move(assignments));
    SetupRun run(call, setter, [&](SetupRun& done) { return Finish(call, image, setter, done); });
    return run.Execute(image, false);
}

}  // namespace counter
