// A page of a form as lines of text, from top to bottom.
#pragma once

#include <string>
#include <vector>

#include "controls/form.h"

namespace counter {

struct FormLine {
    int Level = 0;         // how many captioned frames it is in
    const Control* Of;     // the control that has the value; of a heading the frame
    bool Heading = false;  // the caption of a frame, whose lines follow
    std::string Caption;   // with the mark of a box or option in front; a button's in brackets
    std::string Value;     // as ValueShown; may be empty
    std::string Beside;    // the labels that are in the frame with it, such as a unit; may be empty
};

// What is visible of a page, kEveryTab: of what is beside the pages. A frame that only wraps a field is one
// line with it.
std::vector<FormLine> LinesOfPage(const Form& form, int tab);

// What a control shows beside its caption: an entry's or value's text without blanks around it, "(none)" for
// a list without selection, "0" or "1" of a box or option.
std::string ValueShown(const Control& control);

// The strip that names the pages; null where there is none.
const Control* TabStripOf(const Form& form);

}  // namespace counter
