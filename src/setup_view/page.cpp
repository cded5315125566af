#include "setup_view/page.h"

#include <algorithm>
#include <array>
#include <utility>

#include "meter/meter_words.h"
#include "meter/value_codec.h"
#include "setup_view/help_numbers.h"
#include "setup_view/setup_view.h"

namespace counter {

namespace {

// By the number of the item that is filtered.
constexpr std::array<std::string_view, 4> kFilteredItem = {"", "Filtered Item1", "Filtered Item2",
                                                           "Filtered Item3"};
constexpr std::array<std::string_view, 4> kItem = {"", "Item 1", "Item 2", "Item 3"};

}  // namespace

Page::Page(SetupView& view, int tab)
    : View(view), Program(view.Program), Build(view.Controls, tab, HelpNumberOf) {}

Form& Page::Controls() const {
    return View.Controls;
}

void Page::Bind(std::span<const Binding> bindings) const {
    for (const Binding& binding : bindings) Bind(binding);
}

void Page::Bind(const Binding& binding) const {
    Bind(binding, [this, field = binding.Of](Control& control) {
        if (control.Kind == ControlKind::List)
            PutCode(Image(), field, CodeOfEntry(RowOf(field), control.ListIndex));
        if (control.Kind == ControlKind::Check) PutCode(Image(), field, control.Value);
        if (control.Kind == ControlKind::Value) OpenEntry(control, field);
    });
}

void Page::Bind(const Binding& binding, Form::Handler handler) const {
    View.Bindings.push_back(binding);
    Controls().On(binding.Shown, std::move(handler));
}

void Page::BindAlso(Control& control, Field field) const {
    View.Bindings.push_back({control, field});
}

void Page::Fill(std::span<const Binding> bindings) const {
    for (const Binding& binding : bindings) {
        if (binding.Shown.Kind == ControlKind::List) Form::Fill(binding.Shown, RowOf(binding.Of).Entries);
    }
}

void Page::Show(std::span<const Binding> bindings) const {
    for (const Binding& binding : bindings) Show(binding.Shown, binding.Of);
}

void Page::Show(Control& control, Field field) const {
    const int code = CodeOf(Image(), field);
    if (control.Kind == ControlKind::List) Controls().SetIndex(control, IndexOfCode(RowOf(field), code));
    if (control.Kind == ControlKind::Check) Controls().SetCheck(control, code);
}

std::string Page::TextOf(Field field, int timeEntry) const {
    const DerivedValues& values = Values();
    const FieldRow& row = RowOf(field);
    return ValueText(Image(), {values.InputOption, values.ModeIndex, timeEntry}, row.ValueCode, row.Pos,
                     PointCode(Image(), values, row));
}

std::string Page::TextOfByte(Field field) const {
    return std::to_string(CodeOf(Image(), field));
}

void Page::OpenEntry(Control& target, Field field, bool lowPlace) const {
    const FieldRow& row = RowOf(field);
    ViewState& shared = Program.Views;
    shared.FieldText = target.Text;
    shared.FieldType = row.ValueCode;
    shared.FieldPos = row.Pos;
    shared.EntryTarget = &target;
    shared.LowPlace = lowPlace;
    shared.PageTab = View.CurrentTab();
    if (View.OpenDigitEntry) View.OpenDigitEntry();
    View.Focus(View.Buttons.tabSetup);
}

int Page::RefreshSources(Control& list, Field field) const {
    const DerivedValues& values = Values();
    list.Entries.clear();
    list.ListIndex = -1;
    if (IsRemoteDisplay(values.DisplayType)) {
        list.Entries.push_back(kItem[Source::Item3]);
        Controls().SetIndex(list, 0);
        return Source::Item3;
    }
    bool filtered = values.FilteredItem != 0;
    if (filtered) list.Entries.push_back(kFilteredItem[static_cast<std::size_t>(values.FilteredItem)]);
    list.Entries.push_back(kItem[Source::Item1]);
    if (values.SourceItems > 1) list.Entries.push_back(kItem[Source::Item2]);
    if (values.SourceItems == 3) list.Entries.push_back(kItem[Source::Item3]);

    int wanted = CodeOf(Image(), field);
    int code = SourceInForce(values, wanted);
    if (code != wanted) PutCode(Image(), field, code);
    Controls().SetIndex(list, filtered ? code : code - 1);
    return code;
}

int Page::SourceOfEntry(int index) const {
    if (IsRemoteDisplay(Values().DisplayType)) return Source::Item3;
    return Values().FilteredItem == 0 ? index + 1 : index;
}

int CodeOfEntry(const FieldRow& row, int index) {
    return row.Codes.empty() ? index : row.Codes[static_cast<std::size_t>(index)];
}

int IndexOfCode(const FieldRow& row, int code) {
    int shown = row.Cap != kNoCap ? std::min(code, row.Cap) : code;
    if (row.Codes.empty()) return shown;
    auto found = std::find(row.Codes.begin(), row.Codes.end(), shown);
    return found == row.Codes.end() ? -1 : static_cast<int>(found - row.Codes.begin());
}

}  // namespace counter
