#include "menu_view/menu_beside.h"

#include "meter/text.h"

namespace counter {

namespace {

// The characters of cells without the blank that each begins with.
template <typename Cells>
std::string Spelled(const Cells& cells) {
    std::string text;
    for (const MenuCell& cell : cells) text += cell.View().substr(cell.View().size() > 1 ? 1 : 0);
    return std::string(Trimmed(text));
}

// A multiplier; a code that has none shows nothing.
std::string Times(const std::string& multiplier) {
    return multiplier.empty() ? multiplier : "x " + multiplier;
}

}  // namespace

std::string BesideMenuRow(const MenuView& view, int row) {
    if (row == view.InputPlace.Row) return Spelled(view.grdInput);
    if (row == view.Scale1Place.Row) return Times(Spelled(view.grdScale1));
    if (row == view.Scale2Place.Row) return Times(Spelled(view.grdScale2));
    if (row == view.NoChangePlace.Row) return std::string(Trimmed(kNoChangeText));
    return {};
}

}  // namespace counter
