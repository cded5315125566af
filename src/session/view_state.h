// What views share beside the image: one digit entry, and what helps with the control that the user touched.
#pragma once

#include "controls/entry_state.h"

namespace counter {

struct ViewState : EntryState {
    int HelpId = 0;   // help number of what the user touched last
    int PageTab = 0;  // the page to come back to when a dialog or help closes
};

}  // namespace counter
