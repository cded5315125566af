// The lines of an edit script: one action of a user a line.
//
//   tab N                          select CONTROL #I        check CONTROL 0|1      enter CONTROL KEYS
//   # a line of comment            select CONTROL TEXT      click CONTROL          cancel CONTROL KEYS
//
// Blanks or tabs separate words. A "#" begins a comment; but entries of lists have a "#" of their own,
// so the entries decide where TEXT ends (see TextCandidates).
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace counter {

// The actions for people, a line each.
inline constexpr const char* kActionsHelp =
    "  tab N                  comes to tab N, from 0\n"
    "  select CONTROL #I      picks the entry with index I\n"
    "  select CONTROL TEXT    picks the entry that reads TEXT\n"
    "  check CONTROL 0|1      sets a check box\n"
    "  click CONTROL          an option button or a button\n"
    "  enter CONTROL KEYS     types KEYS into a value field; < > are arrows, ~ is Enter\n"
    "  cancel CONTROL KEYS    the same, ended by Cancel\n";

enum class ScriptVerb { None, Tab, Select, Check, Click, Enter, Cancel };

struct ScriptAction {
    ScriptVerb Verb = ScriptVerb::None;  // None: a line without an action
    std::string Control;                 // name without index
    int Index = -1;                      // index of a control in an array, -1 for one that is in none
    int Number = -1;                     // tab: the tab; check: 0 or 1; select: the entry's index, or -1
    std::string Text;  // select: the entry's text where Number is -1; enter, cancel: the keys
};

// Takes one line apart. Returns what is wrong with it, or nothing.
std::string ParseScriptLine(std::string_view line, ScriptAction& action);

// What TEXT of a select may mean, longest first: the whole of it, or what is in front of a comment.
std::vector<std::string> TextCandidates(std::string_view text);

// "txtSetpt[1]", or the name alone for an index of -1.
std::string ControlLabel(const std::string& name, int index);

}  // namespace counter
