// What the user does to the setup, as acts that can be undone, and the way from a field to its control.
#include <algorithm>
#include <utility>

#include "controls/form.h"
#include "meter/field_value.h"
#include "meter/text.h"
#include "setup_view/setup_view.h"

namespace counter {

namespace {

// Controls that change a field together with others, so that none is bound to it.
constexpr std::pair<std::string_view, Field> kUnbound[] = {
    {"optBasic", Field::ClassAndCurve},
    {"optExtended", Field::ClassAndCurve},
    {"cboCusCrv", Field::ClassAndCurve},
    {"chkDevStatus", Field::DeviationCode},
};

std::string PlainWords(std::string_view caption) {
    std::string words(Trimmed(caption));
    std::erase(words, '&');
    return words;
}

bool IsVisible(const Control& control) {
    return control.Visible && (!control.Container || IsVisible(*control.Container));
}

}  // namespace

std::vector<Field> SetupView::FieldsOfAct(const Control& control) const {
    std::vector<Field> fields = FieldsOf(control);
    for (const auto& [name, field] : kUnbound) {
        if (control.Name == name) fields.push_back(field);
    }
    return fields;
}

SetupAct SetupView::ActOn(const Control& control) const {
    if (control.Kind == ControlKind::TabStrip)
        return {"", "as " + PlainWords(kTabCaptions[static_cast<std::size_t>(control.ListIndex)]) +
                        " was opened"};
    std::vector<Field> fields = FieldsOfAct(control);
    std::string what = PlainWords(control.Caption);
    if (what.empty() && !fields.empty()) what = FieldName(fields.front());
    if (what.empty()) what = control.FullName();
    return {control.FullName(), what, std::move(fields)};
}

void SetupView::DoAct(const Control& control, const std::function<void()>& act) {
    const SetupActScope scope(Program.Changes, Program.Image, ActOn(control));
    if (control.Kind == ControlKind::Value) {
        SetupAct entry = ActOn(control);
        entry.Typed = true;
        Program.Changes.AwaitEntry(std::move(entry));
    }
    act();
}

bool SetupView::Undo() {
    SetupChanges& changes = Program.Changes;
    changes.Settle(Program.Image);
    if (!onShow_ || !changes.CanUndo()) return false;
    const SetupChanges::Step step = changes.Undo();
    BuildOn(step.Before, step.Act);
    return true;
}

bool SetupView::Redo() {
    SetupChanges& changes = Program.Changes;
    changes.Settle(Program.Image);
    if (!onShow_ || !changes.CanRedo()) return false;
    const SetupChanges::Step step = changes.Redo();
    BuildOn(step.After, step.Act);
    return true;
}

// On the page of what was done, where the user sees it.
void SetupView::BuildOn(const SetupImage& image, const SetupAct& act) {
    Program.Image = image;
    Program.Views.EntryReturn = 0;
    Control* const acted = Controls.FindFull(act.Control);
    const int stay = stay_ + 1;
    Build(acted && acted->Tab != kEveryTab ? acted->Tab : CurrentTab());
    if (stay == stay_ && acted && Controls.Reach(*acted) == Refusal::None) Focus(*acted);
    if (acted == &Communication.Parity.Inner || acted == &Communication.Protocol.Inner)
        Communication.GiveLineItsParity();
    Controls.TellChanged();
}

// Of several the one that can be used, or at least seen.
Control* SetupView::ControlFor(Field field) {
    std::vector<Control*> controls = ControlsOf(field, ValueOfField(Program.Image, field).Number);
    for (Control& control : Controls) {
        const bool decides = std::ranges::any_of(
            kUnbound, [&](const auto& row) { return row.second == field && row.first == control.Name; });
        if (decides) controls.push_back(&control);
    }
    const auto rank = [this](const Control* control) {
        if (!IsVisible(*control)) return 0;
        const Refusal refusal = Controls.Reach(*control);
        return refusal == Refusal::None || refusal == Refusal::OtherTab ? 2 : 1;
    };
    const auto best = std::ranges::max_element(controls, {}, rank);
    return best == controls.end() ? nullptr : *best;
}

std::string SetupView::ComeToField(Field field) {
    Control* const control = ControlFor(field);
    if (!control)
        return std::string(FieldName(field)) + " has no control: it is the meter's own, or follows others.";
    Refusal refusal = control->Tab == kEveryTab ? Refusal::None : Controls.ComeToTab(control->Tab);
    if (refusal == Refusal::None) refusal = Controls.Reach(*control);
    if (refusal != Refusal::None) return std::string(FieldName(field)) + " " + WhyRefused(refusal, *control);
    Focus(*control);
    Controls.TellChanged();
    return {};
}

}  // namespace counter
