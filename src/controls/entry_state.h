// What a view and its digit entry share: one entry at a time, and which handlers act.
#pragma once

#include <string>

namespace counter {

struct Control;

struct EntryState {
    // Handlers of lists and check boxes act only while it is set, so that a list filled by a rule
    // writes nothing.
    bool SetupRefreshOn = false;

    // The request, set by the click on a value.
    std::string FieldText;           // its text; the entered text on leaving
    int FieldType = 0;               // 0..4 and 7, a code of value_codec.h; 7 is a byte
    int FieldPos = 0;                // position in the image, from 1
    Control* EntryTarget = nullptr;  // the value that opened the dialog
    bool LowPlace = false;           // the dialog is lower, so as not to cover the value

    // The entry itself.
    int EntryDecimal = 0;  // place of the point from the right: 1 after box 6, 6 after box 1
    int EntryAtEnd = 0;    // 1: the caret is after the digit of box 6
    int EntryByte = 0;     // the last byte entered, 0..255
    int EntryReturn = 0;   // 1: digit entry has just closed, so its view only refreshes what depends on it
};

}  // namespace counter
