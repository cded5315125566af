#include "cli/field_setter.h"

#include <utility>

#include "cli/field_names.h"
#include "cli/suggest.h"
#include "offline/field_entry.h"

namespace counter {

namespace {

// Those that a name can mean: one, or every element of an array whose index was left out.
std::vector<Control*> ControlsNamed(Form& form, const std::string& name) {
    std::vector<Control*> controls;
    for (Control& control : form) {
        if (control.Name == name || control.FullName() == name) controls.push_back(&control);
    }
    return controls;
}

std::string NoName(SetupRun& run, const std::string& name) {
    std::vector<std::string> names = FieldNames();
    for (std::string& control : run.ControlNames()) names.push_back(std::move(control));
    return "no field or control '" + name + "'" + DidYouMean(name, names);
}

std::string Quoted(const FieldAssignment& assignment) {
    return "'" + assignment.Name + "=" + assignment.Value + "'";
}

}  // namespace

bool FieldSetter::Step(SetupRun& run) {
    if (!wrong_.empty() || next_ == assignments_.size()) return false;
    FieldAssignment& assignment = assignments_[next_++];
    wrong_ = run.Ended() ? "the program has ended" : Set(run, assignment);
    if (wrong_ == kNoControl || wrong_ == kNoValue) wrong_ += "; see counterctl help edit";
    if (!wrong_.empty()) {
        wrong_ = Quoted(assignment) + ": " + wrong_;
        return false;
    }
    // Some values elsewhere show an old point until the view is refreshed, as after every digit entry.
    run.View().ViewRefresh();
    if (assignment.Which) assignment.Settled = FieldText(run.Program().Image, *assignment.Which);
    wrong_ = StillSo(run);
    return wrong_.empty();
}

std::string FieldSetter::Set(SetupRun& run, FieldAssignment& assignment) {
    assignment.Which = FieldNamed(assignment.Name);
    if (assignment.Which) return EnterField(run.User(), *assignment.Which, assignment.Value);
    const std::vector<Control*> named = ControlsNamed(run.View().Controls, assignment.Name);
    return named.empty() ? NoName(run, assignment.Name)
                         : EnterControl(run.User(), named, assignment.Value, assignment.Which);
}

// What was set must be there at the end, decimals included.
std::string FieldSetter::StillSo(SetupRun& run) const {
    for (std::size_t i = 0; i + 1 < next_; ++i) {
        const FieldAssignment& earlier = assignments_[i];
        if (!earlier.Which) continue;
        const std::string now = FieldText(run.Program().Image, *earlier.Which);
        if (now == earlier.Settled) continue;
        return Quoted(earlier) + " becomes '" + now + "' by " + Quoted(assignments_[next_ - 1]) +
               " behind it; put that in front";
    }
    return {};
}

}  // namespace counter
