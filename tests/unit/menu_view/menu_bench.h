// A menu built from the default setup with some digits put in, and its rows as text.
#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "menu_view/menu_view.h"
#include "meter/default_setup.h"

namespace counter::test {

struct Patch {
    int Pos;
    std::string_view Digits;
};

// "S|1|2|3|4|5|6"
template <typename Cells>
std::string Joined(const Cells& cells) {
    std::string text;
    for (const MenuCell& cell : cells) text.append(text.empty() ? "" : "|").append(cell.View());
    return text;
}

struct MenuBench {
    SetupImage Image;
    MeterIdentity Meter;
    DerivedValues Shared;
    MenuView View;

    explicit MenuBench(const std::vector<Patch>& patches = {}, int version = 83, int type = 3)
        : Meter{type, version} {
        BuildDefaultSetup(Image);
        for (const Patch& patch : patches) DigitsPut(Image, patch.Pos, patch.Digits);
        Build();
    }
    void Build() { View = BuildMenuView(Image, Meter, Shared); }

    std::span<const MenuRow> Main() const { return std::span(View.grdMain).first(Size(View.MenuRowCount)); }
    std::span<const MenuRow> SetPt() const {
        return std::span(View.grdSetPt).first(Size(View.SetPtRowCount));
    }

    // The row of grdMain with that name, 0 where there is none.
    int RowOf(std::string_view name) const {
        int row = 1;
        for (const MenuRow& line : Main().subspan(1)) {
            if (line.Name.View().substr(1) == name) return row;
            ++row;
        }
        return 0;
    }
    std::string Cells(std::string_view name) const {
        int row = RowOf(name);
        return row == 0 ? "absent" : Joined(Main()[static_cast<std::size_t>(row)].Cells);
    }

  private:
    static std::size_t Size(int rows) { return static_cast<std::size_t>(rows) + 1; }
};

// "InPut|SEtuP|...", without the header.
inline std::string Names(std::span<const MenuRow> rows) {
    std::string names;
    for (const MenuRow& row : rows.subspan(1)) {
        names.append(names.empty() ? "" : "|").append(row.Name.View().substr(1));
    }
    return names;
}

}  // namespace counter::test
