#include "cli/field_setter.h"

#include <algorithm>
#include <utility>

#include "cli/field_names.h"
#include "cli/number_entry.h"
#include "cli/suggest.h"
#include "meter/field_value.h"
#include "meter/text.h"

namespace counter {

namespace {

// An entry without blanks and capitals: lists pad theirs, and put one after a point (" 11111. 1").
std::string Plain(std::string_view entry) {
    std::string plain = SmallLetters(entry);
    std::erase(plain, ' ');
    return plain;
}

// The entry that reads like the text, or -1.
int EntryLike(std::span<const std::string_view> entries, const std::string& text) {
    const auto found = std::find_if(entries.begin(), entries.end(), [&](std::string_view entry) {
        return !entry.empty() && Plain(entry) == Plain(text);
    });
    return found == entries.end() ? -1 : static_cast<int>(found - entries.begin());
}

std::string FieldText(const SetupImage& image, Field field) {
    const FieldValue value = ValueOfField(image, field);
    return value.IsNumber ? std::to_string(value.Number) : value.Text;
}

// Those that a name can mean: one, or every element of an array whose index was left out.
std::vector<Control*> ControlsNamed(Form& form, const std::string& name) {
    std::vector<Control*> controls;
    for (Control& control : form) {
        if (control.Name == name || control.FullName() == name) controls.push_back(&control);
    }
    return controls;
}

// Of several the one that can be reached; where none can, the first.
Control& ReachableOf(const Form& form, const std::vector<Control*>& controls) {
    const auto found = std::find_if(controls.begin(), controls.end(), [&form](const Control* control) {
        return form.Reach(*control) == Refusal::None;
    });
    return found == controls.end() ? *controls.front() : **found;
}

std::string NoName(SetupRun& run, const std::string& name) {
    std::vector<std::string> names = FieldNames();
    for (std::string& control : run.ControlNames()) names.push_back(std::move(control));
    return "no field or control '" + name + "'" + DidYouMean(name, names);
}

std::string SelectEntry(SetupRun& run, Control& list, const std::string& value) {
    Form& form = run.View().Controls;
    if (const Refusal reach = form.Reach(list); reach != Refusal::None) return run.RefusalLine(list, reach);
    const int entry = EntryLike(list.Entries, value);
    if (entry < 0) return NoEntryLine(list, "'" + value + "'");
    form.Select(list, entry);
    // Some rules put another entry in its place.
    if (list.ListIndex == entry || form.Reach(list) != Refusal::None) return {};
    return list.FullName() + " does not keep '" + value + "'";
}

std::string TickBox(SetupRun& run, Control& box, const std::string& value) {
    if (value != "0" && value != "1") return box.FullName() + " is 0 or 1";
    return run.RefusalLine(box, run.View().Controls.Check(box, value == "1" ? 1 : 0));
}

// An option is set, never cleared: that is done by setting another.
std::string SetOption(SetupRun& run, Control& option, const std::string& value) {
    if (value != "1") return option.FullName() + " is 1, or another option of its group is set instead";
    return run.RefusalLine(option, run.View().Controls.Click(option));
}

std::string Quoted(const Assignment& assignment) {
    return "'" + assignment.Name + "=" + assignment.Value + "'";
}

}  // namespace

bool FieldSetter::Step(SetupRun& run) {
    if (!wrong_.empty() || next_ == assignments_.size()) return false;
    Assignment& assignment = assignments_[next_++];
    wrong_ = run.Ended() ? "the program has ended" : Set(run, assignment);
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

std::string FieldSetter::Set(SetupRun& run, Assignment& assignment) {
    assignment.Which = FieldNamed(assignment.Name);
    if (!assignment.Which) {
        const std::vector<Control*> named = ControlsNamed(run.View().Controls, assignment.Name);
        return named.empty() ? NoName(run, assignment.Name) : SetOneOf(run, assignment, named);
    }
    const FieldRow& row = RowOf(*assignment.Which);
    const int entry = EntryLike(row.Entries, assignment.Value);
    const std::vector<Control*> controls = run.View().ControlsOf(*assignment.Which, entry);
    if (controls.empty())
        return "is the meter's own, or decided by several controls; see counterctl help edit";
    if (controls.front()->Kind != ControlKind::Option) return SetOneOf(run, assignment, controls);
    // The two forms of a group are told by its option buttons.
    if (entry >= 0) return SetOption(run, ReachableOf(run.View().Controls, controls), "1");
    return "is '" + std::string(row.Entries[0]) + "' or '" + std::string(row.Entries[1]) + "'";
}

std::string FieldSetter::SetOneOf(SetupRun& run, Assignment& assignment,
                                  const std::vector<Control*>& controls) {
    Form& form = run.View().Controls;
    // Some controls show only when their page is come to, and which of an array does may change with it.
    const int tab = ReachableOf(form, controls).Tab;
    if (tab != kEveryTab) form.ComeToTab(tab);
    Control* control = &ReachableOf(form, controls);
    const std::vector<Field> fields = run.View().FieldsOf(*control);
    if (!assignment.Which && fields.size() == 1) assignment.Which = fields[0];
    switch (control->Kind) {
        case ControlKind::List:
            return SelectEntry(run, *control, assignment.Value);
        case ControlKind::Check:
            return TickBox(run, *control, assignment.Value);
        case ControlKind::Option:
            return SetOption(run, *control, assignment.Value);
        case ControlKind::Value:
            return SetNumber(run, *control, assignment);
        default:
            return "has no value that can be set; see counterctl help edit";
    }
}

// Two fields may share a value box, and which of them it shows hangs on Mode and Function.
std::string FieldSetter::SetNumber(SetupRun& run, Control& box, Assignment& assignment) {
    if (std::string why = run.OpenEntry(box); !why.empty()) return why;
    const EntryState& state = run.Program().Views;
    for (const Field field : run.View().FieldsOf(box)) {
        if (!assignment.Which && RowOf(field).Pos == state.FieldPos) assignment.Which = field;
    }
    const bool other = assignment.Which && RowOf(*assignment.Which).Pos != state.FieldPos;
    std::string wrong = other ? box.FullName() + " shows another field now"
                              : TypeNumber(run.Entry(), state, assignment.Value);
    if (!run.CloseEntry(wrong.empty()) && wrong.empty()) wrong = kByteLegal;
    if (!wrong.empty() || !assignment.Which) return wrong;
    // Of a byte the box knows what the rules make of it; other boxes still show what was typed.
    const bool byte = RowOf(*assignment.Which).ValueCode == kByteCode;
    const std::string now =
        byte ? std::string(Trimmed(box.Text)) : FieldText(run.Program().Image, *assignment.Which);
    return SameNumber(now, assignment.Value) ? "" : "becomes " + now + " by the rules of the Setup view";
}

// What was set must be there at the end, decimals included.
std::string FieldSetter::StillSo(SetupRun& run) const {
    for (std::size_t i = 0; i + 1 < next_; ++i) {
        const Assignment& earlier = assignments_[i];
        if (!earlier.Which) continue;
        const std::string now = FieldText(run.Program().Image, *earlier.Which);
        if (now == earlier.Settled) continue;
        return Quoted(earlier) + " becomes '" + now + "' by " + Quoted(assignments_[next_ - 1]) +
               " behind it; put that in front";
    }
    return {};
}

}  // namespace counter
