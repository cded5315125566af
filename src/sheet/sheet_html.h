// A setup sheet as one HTML document: it stands alone, and prints as it reads.
#pragma once

#include <string>

#include "sheet/setup_sheet.h"

namespace counter {

inline constexpr const char* kSheetTitle = "Setup sheet";

// Tables, and no more of style than a reader of simple documents knows: it becomes the paper and the PDF too.
std::string SheetHtml(const SetupSheet& sheet);

}  // namespace counter
