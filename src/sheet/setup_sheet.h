// SetupSheet: a whole setup for the files of a plant: what meter and file it is, all fields by page with the
// captions of the Setup view, the front-panel menu, and what differs from a second setup.
#pragma once

#include <array>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "menu_view/menu_view.h"
#include "setup_view/setup_view.h"
#include "transfer/compare_setups.h"

namespace counter {

// All texts are printable and in UTF-8.
struct SheetLine {
    int Level = 0;  // of indentation
    bool Heading = false;
    bool Active = true;  // false: the setup has it, the meter does not use it now
    std::string Caption;
    std::string Value;
};

struct SheetSection {
    std::string Caption;
    std::string WhyNot;  // a sentence: the page is not offered by this setup; then it has no lines
    std::vector<SheetLine> Lines;
};

struct SheetMenuRow {
    std::string Name;
    std::array<std::string, 7> Cells;  // the sign, then six digits
    std::string Beside;
};

struct SheetChange {
    std::string Field, Was, Is;
};

struct SetupSheet {
    std::vector<std::pair<std::string, std::string>> Facts;  // "Meter", "Counter, firmware 83, Extended"
    std::string WhyNoPages;  // the view can't be opened on this setup; empty: it can
    std::vector<SheetSection> Pages;
    std::string InputOption;
    std::vector<SheetMenuRow> Menu, Setpoints;
    std::string Against;  // what is compared with; empty: nothing
    std::vector<SheetChange> Changes;
};

// What is known of a setup beside its digits. An empty text is left out.
struct SheetFacts {
    std::string File;
    std::string From;  // "read from the meter"
    std::string Date;  // of the sheet
};
struct SheetAgainst {
    std::string Name;
    SetupImage Image;
};

// From a view that is open on the setup. `view` is not changed, nor is its image.
SetupSheet MakeSheet(const SetupView& view, const SheetFacts& facts,
                     const std::optional<SheetAgainst>& against);

// The same of a setup that the view can't be opened on: pages are left out, with the reason.
SetupSheet MakeBareSheet(const Session& session, const std::string& why, const SheetFacts& facts,
                         const std::optional<SheetAgainst>& against);

// "2026-03-04 05:06"
std::string SheetDate(const WallTime& now);

}  // namespace counter
