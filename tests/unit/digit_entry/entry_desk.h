// EntryDesk: a digit entry over an image, and a user who types.
#pragma once

#include <ostream>
#include <string>

#include "digit_entry/digit_entry.h"
#include "meter/default_setup.h"
#include "support/meter_line.h"
#include "support/virtual_pump.h"

namespace counter::test {

// A field as its view opens it, and what the entry depends on.
struct FieldCase {
    int Type = 2;
    int Pos = 55;
    const char* Text = " +000000.";
    int DecPt1 = 1;
    int PresetActive = 0;
    int CutoffActive = 0;
    int InputOption = 1;
    int ModeIndex = 0;
    int TimeEntry = 0;
};

struct EntryDesk {
    VirtualPump Pump;
    MeterLine Port{Pump, {}};
    LinkState State;
    Link Line{State, Pump, Port};
    SetupImage Image;
    DerivedValues Derived;
    EntryState Shared;
    Control Target;
    DigitEntry Dialog{{Shared, Image, Derived, Line}};

    explicit EntryDesk(const FieldCase& field) {
        BuildDefaultSetup(Image);
        Open(field);
    }
    void Open(const FieldCase& field) {
        Derived.DecPt1 = field.DecPt1;
        Derived.PresetActive = field.PresetActive;
        Derived.CutoffActive = field.CutoffActive;
        Derived.InputOption = field.InputOption;
        Derived.ModeIndex = field.ModeIndex;
        Derived.TimeEntry = field.TimeEntry;
        Target.Text = field.Text;
        Shared.FieldText = field.Text;
        Shared.FieldType = field.Type;
        Shared.FieldPos = field.Pos;
        Shared.EntryTarget = &Target;
        Dialog.OpenDigitEntry();
    }

    // "<" and ">" are the arrows, "~" is Enter.
    void Type(const std::string& keys) {
        for (const char key : keys) {
            if (key == '<') {
                Dialog.LeftArrow();
            } else if (key == '>') {
                Dialog.RightArrow();
            } else {
                Dialog.Key(key == '~' ? '\r' : key);
            }
        }
    }
    // "+ 1 2. 3 4 5 6"; "_" for an empty box.
    std::string Boxes() const {
        std::string text;
        for (int box = 0; box < kDigitBoxes; ++box) {
            if (box > 0) text += ' ';
            text += Dialog.BoxText(box).empty() ? "_" : Dialog.BoxText(box);
        }
        return text;
    }
    // The marks that are lit, such as "2".
    std::string Marks() const {
        std::string text;
        for (int mark = 0; mark < DigitEntry::kMarks; ++mark) {
            if (Dialog.MarkLit(mark)) text += std::to_string(mark);
        }
        return text;
    }
    std::string Digits(int pos, int count = 6) const { return DigitsGet(Image, pos, count); }
};

}  // namespace counter::test
