// The list of what an alarm or an analog output can watch.
//
// Codes: 0 the filtered item, 1 to 3 the items. Entry and code are the same where the Function has a filtered
// item; without one the list begins with Item 1, whose code is 1. A remote display has Item 3 alone.
#pragma once

#include "setup_view/page.h"

namespace counter {

// Fills the list and selects the source stored in `field`. A stored source that isn't offered becomes Item 1
// in the image. Returns the source in force, 0..3.
int RefreshSources(const Page& page, Control& list, Field field);

// The code 0..3 that the list's entry stands for.
int SourceOfEntry(const DerivedValues& values, int index);

}  // namespace counter
