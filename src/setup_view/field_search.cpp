#include "setup_view/field_search.h"

#include <algorithm>
#include <array>
#include <map>

#include "meter/text.h"
#include "setup_view/control_facts.h"
#include "setup_view/setup_view.h"

namespace counter {

namespace {

using Words = std::vector<std::string>;

Words WordsOf(std::string_view text) {
    const std::string small = SmallLetters(text);
    Words words;
    for (std::string_view rest = Trimmed(small); !rest.empty();) {
        const std::string_view word = rest.substr(0, rest.find(' '));
        words.emplace_back(word);
        rest = Trimmed(rest.substr(word.size()));
    }
    return words;
}

bool HasAll(std::string_view text, const Words& words) {
    const std::string small = SmallLetters(text);
    return std::all_of(words.begin(), words.end(),
                       [&](const std::string& word) { return small.find(word) != std::string::npos; });
}

bool IsField(const Control& control) {
    switch (control.Kind) {
        case ControlKind::Value:
        case ControlKind::List:
        case ControlKind::Check:
        case ControlKind::Option:
        case ControlKind::Button:
            return control.Tab != kEveryTab;
        default:
            return false;
    }
}

// As if each page could be come to from the one on show.
Refusal ReachOnItsPage(SetupView& view, const Control& control) {
    const bool before = std::exchange(view.Controls.OnlyPageOnShow, false);
    const Refusal refusal = view.Controls.Reach(control);
    view.Controls.OnlyPageOnShow = before;
    return refusal;
}

std::string WhyNotReached(SetupView& view, const Control& control) {
    const Refusal refusal = ReachOnItsPage(view, control);
    if (refusal == Refusal::None) return {};
    if (refusal == Refusal::Hidden) return "This setup has no such field.";
    return CaptionOf(control) + " " + view.WhyRefused(refusal, control);
}

// Elements of one name and caption are one field in several layouts.
std::vector<Control*> FieldsOnce(SetupView& view) {
    std::map<std::pair<std::string, std::string>, std::size_t> places;
    std::vector<Control*> fields;
    for (Control& control : view.Controls) {
        if (!IsField(control)) continue;
        const auto [place, fresh] = places.try_emplace({control.Name, CaptionOf(control)}, fields.size());
        if (fresh) {
            fields.push_back(&control);
        } else if (ReachOnItsPage(view, *fields[place->second]) == Refusal::Hidden &&
                   ReachOnItsPage(view, control) != Refusal::Hidden) {
            fields[place->second] = &control;
        }
    }
    return fields;
}

std::string ValuesOf(const Control& control) {
    std::string text = ShownBy(control);
    for (const std::string_view entry : control.Entries) text += " " + std::string(entry);
    return text;
}

FieldHit HitOf(SetupView& view, Control& control) {
    const std::string shown = ShownBy(control);
    return {&control,
            CaptionOf(control) + (shown.empty() ? "" : ": " + shown) + "  (" + PlaceOf(control) + ")",
            WhyNotReached(view, control)};
}

}  // namespace

std::vector<FieldHit> SearchFields(SetupView& view, std::string_view text, const HelpWords& help) {
    const Words words = WordsOf(text);
    if (words.empty()) return {};
    std::array<std::vector<FieldHit>, 3> hits;
    for (Control* control : FieldsOnce(view)) {
        const std::string caption = CaptionOf(*control);
        const bool inName = HasAll(caption, words);
        const bool inValue =
            inName || HasAll(caption + " " + PlaceOf(*control) + " " + ValuesOf(*control), words);
        if (!inValue && !(help && HasAll(help(control->HelpNumber), words))) continue;
        hits[inName ? 0 : inValue ? 1 : 2].push_back(HitOf(view, *control));
    }
    for (const std::size_t later : {1U, 2U})
        hits[0].insert(hits[0].end(), hits[later].begin(), hits[later].end());
    return hits[0];
}

Refusal ComeTo(SetupView& view, const Control& control) {
    const Refusal refusal = ReachOnItsPage(view, control);
    const bool shown = refusal == Refusal::None || refusal == Refusal::Disabled;
    if (shown && view.CurrentTab() != control.Tab) {
        if (const Refusal tab = view.Controls.ComeToTab(control.Tab); tab != Refusal::None) return tab;
    }
    return refusal;
}

}  // namespace counter
