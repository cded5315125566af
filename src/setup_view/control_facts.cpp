#include "setup_view/control_facts.h"

#include <algorithm>

#include "digit_entry/digit_range.h"
#include "digit_entry/digit_text.h"
#include "meter/field_value.h"
#include "meter/field_words.h"
#include "setup_view/setup_view.h"

namespace counter {

namespace {

constexpr std::size_t kMostEntriesTold = 16;  // of a longer list the ends

// The one of a control's fields that it shows now; none for what several controls decide.
Field FieldShown(const SetupView& view, const Control& control) {
    const std::vector<Field> fields = view.FieldsOf(control);
    if (fields.empty()) return Field::Count;
    const DerivedValues& values = view.Program.Derived;
    for (const Field field : fields) {
        if (field == Field::Preset && values.PresetActive) return field;
        if (field == Field::CutoffValue && values.CutoffActive) return field;
    }
    return fields.front();
}

// Of a list, as it is offered now.
std::string EntriesOf(const Control& list) {
    const auto& entries = list.Entries;
    if (entries.empty()) return {};
    if (entries.size() > kMostEntriesTold)
        return "one of " + std::to_string(entries.size()) + ": " + WithCommas(entries.front()) + " to " +
               WithCommas(entries.back());
    std::string text;
    for (const std::string_view entry : entries)
        text += (text.empty() ? "one of: " : "; ") + WithCommas(entry);
    return text;
}

// What the boxes of its digit entry would admit, by the value that is on show.
std::string RangeOfValue(const SetupView& view, const Control& control, Field field) {
    const FieldRow& row = RowOf(field);
    const DerivedValues& values = view.Program.Derived;
    const bool clock = std::count(control.Text.begin(), control.Text.end(), '.') > 1;
    const bool free = row.ValueCode == kFreePointType && values.InputOption != InputBoard::VfConverter;
    const BareText bare = BareTextOf(control.Text, true);
    return RangeOfBoxes({row.ValueCode, row.Pos, clock ? 1 : 0, free}, bare.PointCode);
}

std::string RangeOf(const SetupView& view, const Control& control, Field field) {
    switch (control.Kind) {
        case ControlKind::List:
            return EntriesOf(control);
        case ControlKind::Check:
            return "on or off";
        case ControlKind::Value:
            return field == Field::Count ? "" : RangeOfValue(view, control, field);
        default:
            return {};
    }
}

Field SourceOf(Point point) {
    switch (point) {
        case Point::Alarm1Source:
            return Field::Alarm1Source;
        case Point::Alarm2Source:
            return Field::Alarm2Source;
        case Point::Alarm3Source:
            return Field::Alarm3Source;
        case Point::Alarm4Source:
            return Field::Alarm4Source;
        case Point::AnalogSource:
            return Field::AnalogSource;
        case Point::AnalogSource2:
            return Field::AnalogSource2;
        default:
            return Field::Count;
    }
}

// A value that is compared with an item counts as that does.
std::string UnitFor(const SetupView& view, Field field) {
    if (field == Field::Count) return {};
    const Field source = SourceOf(RowOf(field).DecPt);
    if (source != Field::Count) return "of " + ValueOfField(view.Program.Image, source).Text;
    return std::string(UnitOf(field));
}

// A single bit without a list is a box.
std::string InMeter(const SetupImage& meter, Field field) {
    const FieldValue value = ValueOfField(meter, field);
    const bool box = value.IsNumber && RowOf(field).HiBit == RowOf(field).LoBit;
    if (box) return value.Number == 0 ? "off" : "on";
    return WithCommas(value.Text);
}

}  // namespace

std::string CaptionOf(const Control& control) {
    std::string caption = control.Caption;
    for (const Control* around = control.Container; caption.empty() && around; around = around->Container)
        caption = around->Caption;
    return std::string(Trimmed(caption));
}

std::string PlaceOf(const Control& control) {
    const std::string own = CaptionOf(control);
    std::string inside;
    for (const Control* around = control.Container; around; around = around->Container) {
        const std::string caption(Trimmed(around->Caption));
        if (!caption.empty() && caption != own) inside = ", " + caption + inside;
    }
    const bool onPage = control.Tab != kEveryTab;
    return onPage ? std::string(kTabCaptions[static_cast<std::size_t>(control.Tab)]) + inside : inside;
}

std::string ShownBy(const Control& control) {
    switch (control.Kind) {
        case ControlKind::Value:
            return std::string(Trimmed(control.Text));
        case ControlKind::List:
            if (control.ListIndex < 0) return {};
            return WithCommas(control.Entries[static_cast<std::size_t>(control.ListIndex)]);
        case ControlKind::Check:
        case ControlKind::Option:
            return control.Value == 1 ? "on" : "off";
        default:
            return {};
    }
}

ControlFacts FactsOf(const SetupView& view, const Control& control, const SetupImage* meter) {
    const Field field = FieldShown(view, control);
    ControlFacts facts{
        PlaceOf(control), CaptionOf(control), RangeOf(view, control, field), UnitFor(view, field), {}, {}};
    if (meter && field != Field::Count) facts.Meter = InMeter(*meter, field);
    const Refusal refusal = view.Controls.Reach(control);
    if (refusal == Refusal::Disabled) facts.WhyNot = view.WhyRefused(refusal, control);
    return facts;
}

}  // namespace counter
