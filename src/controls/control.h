// Control: one plain struct with all properties that a control of any kind can have.
//
// A view model is made of these; what draws it, prints it or drives it is one switch over the kind. Nothing
// here knows pixels.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "controls/colors.h"

namespace counter {

enum class ControlKind {
    Frame,
    Label,
    List,
    Check,
    Option,  // one of the options that share a container; at most one of them is set
    Button,
    Value,  // shows a value; a click opens digit entry, nothing is typed into it
    TabStrip,
    Picture,   // shows text for a while
    Menu,      // a menu heading or entry; its container is the heading it is under
    Entry,     // a box that a user types into freely
    Progress,  // shows Value, 0..100
};

inline constexpr int kSingle = -1;    // Index of a control that is not in an array
inline constexpr int kEveryTab = -1;  // Tab of a control that is beside the pages

struct Control {
    ControlKind Kind = ControlKind::Label;
    std::string Name;     // "txtSetpt"
    int Index = kSingle;  // place in its array
    int Tab = kEveryTab;  // the page it is on, from 0
    Control* Container = nullptr;
    int HelpNumber = 0;

    // Its own flags, whatever its container or page.
    bool Visible = true;
    bool Enabled = true;

    std::string Text;  // of a value, entry or picture
    // Of all others but lists and the tab strip. In a menu and on a button that has one, "&" comes before
    // the access key.
    std::string Caption;
    // Of a list or the tab strip; the texts live as long as the program.
    std::vector<std::string_view> Entries;
    int ListIndex = -1;         // entry that is selected, or the page on show; -1 none
    int Value = 0;              // of a check box or option, 0 or 1; of a progress bar, 0..100
    std::vector<bool> Offered;  // of a tab strip: the pages that can be come to

    std::optional<Color> TextColor;  // where a rule has set one
    std::optional<Color> BackColor;

    // "txtSetpt[1]", or the bare name outside arrays.
    std::string FullName() const;
};

}  // namespace counter
