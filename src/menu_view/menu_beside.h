// What the Menu view shows beside a row, as text.
#pragma once

#include <string>

#include "menu_view/menu_view.h"

namespace counter {

// The Function beside InPut, "x 10" beside a scale, the note beside CALib; empty beside the others. `row` of
// grdMain.
std::string BesideMenuRow(const MenuView& view, int row);

}  // namespace counter
