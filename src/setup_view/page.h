// Page: what every page of the Setup view is built on - its view, the image, and the plain road between a
// control and its field of the image.
#pragma once

#include <span>
#include <string>

#include "controls/page_builder.h"
#include "meter/field_table.h"
#include "session/session.h"

namespace counter {

class SetupView;

// A control that does nothing but show and write its field. A list shows the entry of the stored code, a box
// the bit; what the user picks is written at once. A value opens digit entry on its field.
struct Binding {
    Control& Shown;
    Field Stored;
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

    // The code in the field's bits.
    int Stored(Field field) const;
    // Puts a code into them; it must fit.
    void Put(Field field, int code) const;

    // Makes each control act on its field.
    void Bind(std::span<const Binding> bindings) const;
    // Fills each list with the entries of its field.
    void Fill(std::span<const Binding> bindings) const;
    // Selects what is stored; a code that the list lacks leaves it without selection.
    void Show(std::span<const Binding> bindings) const;
    void Show(Control& control, Field field) const;

    // The text of a value field, with the point that its row of the field table names.
    std::string TextOf(Field field) const;
    std::string TextOfByte(Field field) const;
    // Stores the request for digit entry and has it opened. `lowPlace`: the dialog stands lower.
    void OpenEntry(Control& target, Field field, bool lowPlace = false) const;
};

// The code that a list's entry stands for, and the entry 0.. that stands for a code; -1 where there is none.
int CodeOfEntry(const FieldRow& row, int index);
int EntryOfStored(const FieldRow& row, int code);

}  // namespace counter
