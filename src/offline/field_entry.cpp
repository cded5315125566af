#include "offline/field_entry.h"

#include <algorithm>

#include "meter/field_value.h"
#include "meter/text.h"
#include "offline/number_entry.h"

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

// Of several the one that can be reached; where none can, the first.
Control& ReachableOf(const Form& form, const std::vector<Control*>& controls) {
    const auto found = std::find_if(controls.begin(), controls.end(), [&form](const Control* control) {
        return form.Reach(*control) == Refusal::None;
    });
    return found == controls.end() ? *controls.front() : **found;
}

std::string SelectEntry(ViewUser& user, Control& list, const std::string& value) {
    Form& form = user.View.Controls;
    if (const Refusal reach = form.Reach(list); reach != Refusal::None) return user.RefusalLine(list, reach);
    const int entry = EntryLike(list.Entries, value);
    if (entry < 0) return user.NoEntryLine(list, "'" + value + "'");
    form.Select(list, entry);
    // Some rules put another entry in its place.
    if (list.ListIndex == entry || form.Reach(list) != Refusal::None) return {};
    return user.NameOf(list) + " does not keep '" + value + "'";
}

std::string TickBox(ViewUser& user, Control& box, const std::string& value) {
    if (value != "0" && value != "1") return user.NameOf(box) + " is 0 or 1";
    return user.RefusalLine(box, user.View.Controls.Check(box, value == "1" ? 1 : 0));
}

// An option is set, never cleared: that is done by setting another.
std::string SetOption(ViewUser& user, Control& option, const std::string& value) {
    if (value != "1") return user.NameOf(option) + " is 1, or another option of its group is set instead";
    return user.RefusalLine(option, user.View.Controls.Click(option));
}

// Two fields may share a value box, and which of them it shows hangs on Mode and Function.
std::string EnterNumber(ViewUser& user, Control& box, const std::string& value, std::optional<Field>& which) {
    if (std::string why = user.OpenEntry(box); !why.empty()) return why;
    const EntryState& state = user.View.Program.Views;
    for (const Field field : user.View.FieldsOf(box)) {
        if (!which && RowOf(field).Pos == state.FieldPos) which = field;
    }
    const bool other = which && RowOf(*which).Pos != state.FieldPos;
    std::string wrong =
        other ? user.NameOf(box) + " shows another field now" : TypeNumber(user.Entry, state, value);
    if (!user.CloseEntry(wrong.empty()) && wrong.empty()) wrong = kByteLegal;
    if (!wrong.empty() || !which) return wrong;
    // Of a byte the box knows what the rules make of it; other boxes still show what was typed.
    const bool byte = RowOf(*which).ValueCode == kByteCode;
    const std::string now =
        byte ? std::string(Trimmed(box.Text)) : FieldText(user.View.Program.Image, *which);
    return SameNumber(now, value) ? "" : "becomes " + now + " by the rules of the Setup view";
}

}  // namespace

std::string FieldText(const SetupImage& image, Field field) {
    const FieldValue value = ValueOfField(image, field);
    return value.IsNumber ? std::to_string(value.Number) : value.Text;
}

std::string EnterField(ViewUser& user, Field field, const std::string& value) {
    const FieldRow& row = RowOf(field);
    const int entry = EntryLike(row.Entries, value);
    const std::vector<Control*> controls = user.View.ControlsOf(field, entry);
    if (controls.empty()) return kNoControl;
    std::optional<Field> which = field;
    if (controls.front()->Kind != ControlKind::Option) return EnterControl(user, controls, value, which);
    // The two forms of a group are told by its option buttons.
    if (entry >= 0) return SetOption(user, ReachableOf(user.View.Controls, controls), "1");
    return "is '" + std::string(row.Entries[0]) + "' or '" + std::string(row.Entries[1]) + "'";
}

std::string EnterControl(ViewUser& user, const std::vector<Control*>& controls, const std::string& value,
                         std::optional<Field>& which) {
    Form& form = user.View.Controls;
    // Some controls show only when their page is come to, and which of an array does may change with it.
    const int tab = ReachableOf(form, controls).Tab;
    if (tab != kEveryTab) form.ComeToTab(tab);
    Control* control = &ReachableOf(form, controls);
    const std::vector<Field> fields = user.View.FieldsOf(*control);
    if (!which && fields.size() == 1) which = fields[0];
    switch (control->Kind) {
        case ControlKind::List:
            return SelectEntry(user, *control, value);
        case ControlKind::Check:
            return TickBox(user, *control, value);
        case ControlKind::Option:
            return SetOption(user, *control, value);
        case ControlKind::Value:
            return EnterNumber(user, *control, value, which);
        default:
            return kNoValue;
    }
}

}  // namespace counter
