#include "setup_view/page.h"

#include <algorithm>

#include "meter/value_codec.h"
#include "setup_view/help_numbers.h"
#include "setup_view/setup_view.h"

namespace counter {

Page::Page(SetupView& view, int tab)
    : View(view), Program(view.Program), Build(view.Controls, tab, HelpNumberOf) {}

Form& Page::Controls() const {
    return View.Controls;
}

int Page::Stored(Field field) const {
    const FieldRow& row = RowOf(field);
    return BitsGet(Image(), row.HiBit, row.LoBit, row.Pos);
}

void Page::Put(Field field, int code) const {
    const FieldRow& row = RowOf(field);
    BitsPut(Image(), row.HiBit, row.LoBit, row.Pos, code);
}

void Page::Bind(std::span<const Binding> bindings) const {
    for (const Binding& binding : bindings) {
        Field field = binding.Stored;
        Controls().On(binding.Shown, [this, field](Control& control) {
            if (control.Kind == ControlKind::List) Put(field, CodeOfEntry(RowOf(field), control.ListIndex));
            if (control.Kind == ControlKind::Check) Put(field, control.Value);
            if (control.Kind == ControlKind::Value) OpenEntry(control, field);
        });
    }
}

void Page::Fill(std::span<const Binding> bindings) const {
    for (const Binding& binding : bindings) {
        if (binding.Shown.Kind == ControlKind::List) Form::Fill(binding.Shown, RowOf(binding.Stored).Entries);
    }
}

void Page::Show(std::span<const Binding> bindings) const {
    for (const Binding& binding : bindings) Show(binding.Shown, binding.Stored);
}

void Page::Show(Control& control, Field field) const {
    if (control.Kind == ControlKind::List)
        Controls().SetIndex(control, EntryOfStored(RowOf(field), Stored(field)));
    if (control.Kind == ControlKind::Check) Controls().SetCheck(control, Stored(field));
}

std::string Page::TextOf(Field field) const {
    const DerivedValues& values = Values();
    const FieldRow& row = RowOf(field);
    return ValueText(Image(), {values.InputOption, values.ModeIndex, values.TimeEntry}, row.ValueCode,
                     row.Pos, PointCode(Image(), values, row));
}

std::string Page::TextOfByte(Field field) const {
    return std::to_string(Stored(field));
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
    if (View.TakeFocus) View.TakeFocus(View.Buttons.tabSetup);
}

int CodeOfEntry(const FieldRow& row, int index) {
    return row.Codes.empty() ? index : row.Codes[static_cast<std::size_t>(index)];
}

int EntryOfStored(const FieldRow& row, int code) {
    int shown = row.Cap != kNoCap ? std::min(code, row.Cap) : code;
    if (row.Codes.empty()) return shown;
    auto found = std::find(row.Codes.begin(), row.Codes.end(), shown);
    return found == row.Codes.end() ? -1 : static_cast<int>(found - row.Codes.begin());
}

}  // namespace counter
