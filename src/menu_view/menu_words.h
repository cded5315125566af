// What stands in the cells of a row of the menu, in words: each digit with the field that it is and what its
// number means there. All of it comes from the table of items and the field table.
#pragma once

#include <string>
#include <vector>

#include "menu_view/menu_view.h"
#include "meter/setup_image.h"

namespace counter {

inline constexpr int kBesideRow = -1;  // no column: the small grid beside the row

struct MenuWords {
    // Columns of the row, 0 is S, 1 to 6 the digits; or both kBesideRow.
    int First = 0;
    int Last = 0;
    std::string Text;  // "Display Type, 0 = Normal, Expnt"
};

// Of a row 1..MenuRowCount of grdMain, from left to right; every cell that isn't blank has words. `image` is
// what the view was built from. Empty beyond the rows.
std::vector<MenuWords> WordsOfRow(const MenuView& view, const SetupImage& image, int row);

// The same of a row 1..SetPtRowCount of grdSetPt.
std::vector<MenuWords> WordsOfSetpoint(const MenuView& view, int row);

// "digit 3: Display Type, 0 = Normal, Expnt"
std::string LineOf(const MenuWords& words);

}  // namespace counter
