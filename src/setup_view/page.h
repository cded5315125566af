// Page: what every page of the Setup view is built on: its view, the image, and the plain way between a
// control and its field of the image.
#pragma once

#include <span>
#include <string>

#include "controls/page_builder.h"
#include "meter/field_code.h"
#include "session/session.h"

namespace counter {

class SetupView;

inline constexpr int kAnyEntry = -1;

// A control and the field that it shows. Where a control shows several fields in turns, or several controls
// show one field, it is a binding each.
struct Binding {
    Control& Shown;
    Field Of;
    int Entry = kAnyEntry;  // of an option: the entry of the field's list that it stores
};

struct Page {
    Page(SetupView& view, int tab);

    SetupView& View;
    Session& Program;
    PageBuilder Build;

    Form& Controls() const;
    SetupImage& Image() const { return Program.Image; }
    DerivedValues& Values() const { return Program.Derived; }
    MeterIdentity& Meter() const { return Program.Identity; }

    // Binds controls to fields, in the record of the view and by a handler: what the user picks in a list or
    // box is written at once, a value opens digit entry on its field.
    void Bind(std::span<const Binding> bindings) const;
    void Bind(const Binding& binding) const;
    // The same with a handler of its own.
    void Bind(const Binding& binding, Form::Handler handler) const;
    // A control that shows this field too, in turns with the one that it is bound to.
    void BindAlso(Control& control, Field field) const;

    // Fills each list with the entries of its field.
    void Fill(std::span<const Binding> bindings) const;
    // Selects what the image has; a code that the list lacks leaves it without selection.
    void Show(std::span<const Binding> bindings) const;
    void Show(Control& control, Field field) const;

    // The text of a value field, with the point that its row of the field table names; `timeEntry`: of
    // value_codec.h, for a time in seconds.
    std::string TextOf(Field field, int timeEntry = 0) const;
    std::string TextOfByte(Field field) const;
    // Stores the request for digit entry and has it opened. `lowPlace`: the dialog is lower.
    void OpenEntry(Control& target, Field field, bool lowPlace = false) const;

    // --- What an alarm or an analog output can watch ---
    //
    // Codes: 0 the filtered item, 1 to 3 the items. Entry and code are the same where the Function has a
    // filtered item; without one the list begins with Item 1, whose code is 1. A remote display has Item 3
    // alone.

    // Fills the list and selects the source in `field`. A source that isn't offered becomes Item 1 in the
    // image. Returns the source in force, 0..3.
    int RefreshSources(Control& list, Field field) const;
    // The code 0..3 that the list's entry means.
    int SourceOfEntry(int index) const;
};

// The code that a list's entry means, and the entry 0.. that means a code; -1 where there is none.
int CodeOfEntry(const FieldRow& row, int index);
int IndexOfCode(const FieldRow& row, int code);

}  // namespace counter
